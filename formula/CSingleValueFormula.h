// CSingleValueFormula: a constant of a formula, from a number, a quoted
// string or a piece of literal text. Immutable after construction.
#pragma once

#include "formula/CFormula.h"

class CSingleValueFormula : public CFormula {
 public:
  explicit CSingleValueFormula(Value value) : value_(std::move(value)) {}

  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  const Value& GetValue() const { return value_; }

 private:
  Value value_;
};
