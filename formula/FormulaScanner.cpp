#include "formula/FormulaScanner.h"

#include "formula/FormulaError.h"

namespace {

constexpr wchar_t kBlank = L' ';
constexpr wchar_t kUnmatchedBracketMessage[] =
    L"Ошибка синтаксиса. Несоответствие открывающих и закрывающих скобок!";
constexpr wchar_t kUnmatchedQuoteMessage[] =
    L"Ошибка синтаксиса. Несоответствие открывающих и закрывающих кавычек!";

}  // namespace

size_t FormulaScanner::MatchingBracket(size_t open) const {
  size_t depth = 1;
  for (size_t position = open + 1; position < view_.size(); ++position) {
    if (view_[position] == L'(') {
      ++depth;
    } else if (view_[position] == L')' && --depth == 0) {
      return position;
    }
  }
  throw FormulaError(kUnmatchedBracketMessage);
}

bool FormulaScanner::TrimRange(size_t& start, size_t& end) const {
  while (start < end) {
    if (view_[start] == kBlank) {
      ++start;
    } else if (view_[end - 1] == kBlank) {
      --end;
    } else if (view_[start] == L'(' && MatchingBracket(start) == end - 1) {
      ++start;
      --end;
    } else {
      return true;
    }
  }
  return false;
}

size_t FormulaScanner::SkipGroup(size_t position) const {
  for (;;) {
    if (position >= view_.size()) return kNotFound;
    size_t next = position;
    if (view_[position] == L'(') {
      next = MatchingBracket(position) + 1;
    } else if (view_[position] == L'"') {
      const size_t closing = view_.find(L'"', position + 1);
      if (closing == std::wstring_view::npos) throw FormulaError(kUnmatchedQuoteMessage);
      next = closing + 1;
    }
    if (next >= view_.size()) return kNotFound;
    if (view_[next] != kBlank) return next;
    position = next + 1;
  }
}

size_t FormulaScanner::NextPlainPair(size_t position) const {
  for (;;) {
    const size_t following = SkipGroup(position + 1);
    if (following == kNotFound) return kNotFound;
    if (following == position + 1) return position;
    position = following;
  }
}

size_t FormulaScanner::FindAtTopLevel(size_t start, size_t end, std::wstring_view op) const {
  size_t position = SkipGroup(start);
  while (position != kNotFound) {
    if (position + op.size() >= end) return kNotFound;
    if (view_.substr(position, op.size()) == op) return position;
    position = SkipGroup(position + 1);
    if (position == kNotFound || position + op.size() >= view_.size()) return kNotFound;
    if (op.size() == 2) position = NextPlainPair(position);
  }
  return kNotFound;
}
