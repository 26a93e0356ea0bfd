// FormulaScanner: the searches over formula text that the parser splits by.
//
// The parser has no tokens: it narrows a range [start, end) of one view and
// looks for an operator outside brackets and double quotes. Bracket matching
// always runs to the end of the whole view, not of the range, which is part
// of the language (a bracket opened in a range may close beyond it). Only
// U+0020 counts as a blank. A scanner borrows the view it reads and holds
// no other state; const methods may be called from several threads.
#pragma once

#include <cstddef>
#include <string_view>

class FormulaScanner {
 public:
  static constexpr size_t kNotFound = std::wstring_view::npos;

  explicit FormulaScanner(std::wstring_view view) : view_(view) {}

  std::wstring_view View() const { return view_; }

  // Narrows the range by leading and trailing blanks and by a pair of
  // brackets that encloses all of it, repeatedly. False when nothing is left.
  // Throws FormulaError for a "(" that has no ")" up to the end of the view.
  bool TrimRange(size_t& start, size_t& end) const;

  // The next position worth looking at from `position`: behind a bracketed
  // group or a quoted string that starts there, and behind any blanks; the
  // position itself when it holds a plain character. kNotFound at the end of
  // the view. Throws FormulaError for an unclosed bracket or quote.
  size_t SkipGroup(size_t position) const;

  // The leftmost `op` in the range outside brackets and quotes, or kNotFound.
  // An operator that ends the range is no operator, so "a+" stays one word.
  size_t FindAtTopLevel(size_t start, size_t end, std::wstring_view op) const;

  // The ")" that closes the "(" at `open`, counted to the end of the view.
  // Throws FormulaError when there is none.
  size_t MatchingBracket(size_t open) const;

 private:
  // For a two-character operator: from `position`, the first position whose
  // successor is plain as well, so that both characters can be compared.
  size_t NextPlainPair(size_t position) const;

  std::wstring_view view_;
};
