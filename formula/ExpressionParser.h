// ExpressionParser: builds the tree of one expression or condition by
// recursive splitting of ranges of one view.
//
// The order in which operators are searched is the precedence: the operator
// found first binds loosest, and because the leftmost occurrence splits,
// operators of one level associate to the right ("10-3-2" is 10-(3-2)).
// Every method returns an owned tree, or null for a range that is empty or
// blank; partial trees are released on every failure path. A parser borrows
// its view and serves one parse: it remembers which ranges it has already
// parsed, so it isn't shared between threads.
#pragma once

#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "formula/CFormula.h"
#include "formula/FormulaScanner.h"

class ExpressionParser {
 public:
  explicit ExpressionParser(std::wstring_view view) : scanner_(view) {}

  // Condition operators first, loosest to tightest, then an expression.
  FormulaPtr ParseCondition(size_t start, size_t end);

  // "+", "-", "*", "/", then a function call, then an operand; a word that is
  // none of these becomes the whole view as a string.
  FormulaPtr ParseExpression(size_t start, size_t end);

 // Deepest nesting of operators, calls and conditions one parse accepts.
  static constexpr int kMaxDepth = 1000;

 private:
  class DepthGuard;

  FormulaPtr SplitExpression(size_t start, size_t end);
  // Parses the range only for the errors it would raise, and only once.
  void CheckExpression(size_t start, size_t end);
  FormulaPtr ParseFunctionCall(size_t start, size_t end);
  std::vector<FormulaPtr> SplitArguments(size_t start, size_t end);
  FormulaPtr ParseOperand(size_t start, size_t end) const;

  FormulaScanner scanner_;
  // Ranges whose ParseExpression has completed without an exception. Parsing
  // a range always ends the same way, so such a range needn't be checked
  // again: without this, texts like "-a*-b*-c*..." take exponential time.
  std::set<std::pair<size_t, size_t>> completedRanges_;
  int depth_ = 0;
};
