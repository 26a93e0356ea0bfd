// CNamedAttributeFormula: a reference to an attribute by its name, which is
// any word of a formula that is neither a number nor a string nor "A" and a
// number. Read-only: a reference by name can't be written through.
// Immutable after construction.
#pragma once

#include <string>

#include "formula/CFormula.h"

class CNamedAttributeFormula : public CFormula {
 public:
  explicit CNamedAttributeFormula(std::wstring name) : name_(std::move(name)) {}

  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  const std::wstring& Name() const { return name_; }

 private:
  std::wstring name_;
};
