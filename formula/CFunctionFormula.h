// CFunctionFormula: a call of one of the formula functions, with its
// arguments as children. Only "R" (rounding) computes anything; the other
// names the parser accepts evaluate to the integer 0 without touching their
// arguments. Immutable after construction.
#pragma once

#include <string>

#include "formula/CComplexFormula.h"

class CFunctionFormula : public CComplexFormula {
 public:
  CFunctionFormula(std::wstring name, std::vector<FormulaPtr> arguments)
      : CComplexFormula(std::move(arguments)), name_(std::move(name)) {}

  // R(x) and R(x, digits) give a double rounded half away from zero. R with
  // another count of arguments throws FormulaError after evaluating them all.
  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  const std::wstring& Name() const { return name_; }

 private:
  std::wstring name_;
};
