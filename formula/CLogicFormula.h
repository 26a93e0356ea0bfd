// CLogicFormula: one operator of a condition over a left and a right operand.
// The result is always the integer 1 or 0; there is no boolean kind.
// Immutable after construction.
#pragma once

#include <cstdint>

#include "formula/CFormula.h"

// The operator codes; the numbers are fixed.
enum class LogicOperation : int32_t {
  Equal = 1,           // "==": within tolerance on numbers, wildcard on strings
  NotEqual = 2,        // "!=": exact on strings, so not the negation of "=="
  Greater = 3,         // ">"
  GreaterOrEqual = 4,  // ">="
  Less = 5,            // "<"
  LessOrEqual = 6,     // "<="
  Or = 7,              // "||"
  And = 8,             // "&&"
  BitsInCommon = 9,    // "^^"
  Like = 10,           // "%"
  NotLike = 11,        // "!%"
};

class CLogicFormula : public CFormula {
 public:
  CLogicFormula(FormulaPtr left, FormulaPtr right, LogicOperation operation)
      : left_(std::move(left)), right_(std::move(right)), operation_(operation) {}

  // "&&" and "||" evaluate the right operand only when the left one leaves the
  // answer open. Throws FormulaError for a string under "&&", "||", the
  // orderings and "^^".
  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  const CFormula& Left() const { return *left_; }
  const CFormula& Right() const { return *right_; }
  LogicOperation Operation() const { return operation_; }

 private:
  bool EvaluateJunction(IFormulaDataSource& dataSource, const NumberFormat& format) const;
  bool EvaluateLike(IFormulaDataSource& dataSource, const NumberFormat& format) const;
  bool EvaluateComparison(IFormulaDataSource& dataSource, const NumberFormat& format) const;

  FormulaPtr left_;
  FormulaPtr right_;
  LogicOperation operation_;
};
