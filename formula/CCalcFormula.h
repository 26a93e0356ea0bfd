// CCalcFormula: one arithmetic operator, "+", "-", "*" or "/", over a left and
// a right operand held as the two children.
//
// Arithmetic never fails: integers wrap in 32 bits, division by zero gives
// zero of the operands' kind, an empty operand makes the result empty, and
// "+" joins texts when either side is a string. Immutable after construction.
#pragma once

#include "formula/CComplexFormula.h"

class CCalcFormula : public CComplexFormula {
 public:
  CCalcFormula(wchar_t operation, FormulaPtr left, FormulaPtr right);

  // Both operands are always evaluated, the left one first.
  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  wchar_t Operation() const { return operation_; }
  const CFormula& Left() const { return *Children()[0]; }
  const CFormula& Right() const { return *Children()[1]; }

 private:
  wchar_t operation_;
};
