// CAttributeFormula: a reference to an attribute by its number ("A12").
//
// The one node that can be written through: a formula that is nothing but
// such a reference acts as an alias of the attribute it names, so a write to
// the first lands on the second. Immutable after construction.
#pragma once

#include <cstdint>

#include "formula/CFormula.h"

class CAttributeFormula : public CFormula {
 public:
  explicit CAttributeFormula(int32_t attributeNumber) : attributeNumber_(attributeNumber) {}

  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;
  bool SetValue(IFormulaDataSource& dataSource, const Value& value) const override;
  bool CanEditValue() const override { return true; }

  int32_t AttributeNumber() const { return attributeNumber_; }

 private:
  int32_t attributeNumber_;
};
