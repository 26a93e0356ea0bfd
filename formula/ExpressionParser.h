// ExpressionParser: builds the tree of one expression or condition by
// recursive splitting of ranges of one view.
//
// The order in which operators are searched is the precedence: the operator
// found first binds loosest, and because the leftmost occurrence splits,
// operators of one level associate to the right ("10-3-2" is 10-(3-2)).
// Every method returns an owned tree, or null for a range that is empty or
// blank; partial trees are released on every failure path. Stateless apart
// from the borrowed view.
#ifndef LXDA_FORMULA_EXPRESSIONPARSER_H
#define LXDA_FORMULA_EXPRESSIONPARSER_H

#include <string_view>
#include <vector>

#include "formula/CFormula.h"
#include "formula/FormulaScanner.h"

class ExpressionParser {
 public:
  explicit ExpressionParser(std::wstring_view view) : scanner_(view) {}

  // Condition operators first, loosest to tightest, then an expression.
  FormulaPtr ParseCondition(size_t start, size_t end) const;

  // "+", "-", "*", "/", then a function call, then an operand; a word that is
  // none of these becomes the whole view as a string.
  FormulaPtr ParseExpression(size_t start, size_t end) const;

 private:
  FormulaPtr ParseFunctionCall(size_t start, size_t end) const;
  std::vector<FormulaPtr> SplitArguments(size_t start, size_t end) const;
  FormulaPtr ParseOperand(size_t start, size_t end) const;

  FormulaScanner scanner_;
};

#endif  // LXDA_FORMULA_EXPRESSIONPARSER_H
