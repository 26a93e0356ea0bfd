// CStdSizeFormulaHelper: a formula's view of one standard size. Reads go by
// name (case ignored) or number to the size's table, and each read counts:
// past 50 reads through one helper every further read is empty, and the
// first of those writes the cycle message straight to the debug channel.
// The count never goes down, so it bounds the total work of one top-level
// read, cycle or not.
//
// Lives on the stack of one top-level read; never shared between threads.
#pragma once

#include <cstdint>
#include <string>

#include "formula/FormulaCycle.h"
#include "formula/IFormulaDataSource.h"

class CAttribute;
class CStandartSize;

class CStdSizeFormulaHelper : public IFormulaDataSource {
 public:
  explicit CStdSizeFormulaHelper(CStandartSize* size) : size_(size) {}

  Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) override;
  Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) override;
  // A standard size takes no value through a formula.
  bool SetValueByNumber(int32_t attributeNumber, const Value& value) override;

 private:
  Value& Read(Value& result, const CAttribute* attribute, const NumberFormat& format);

  CStandartSize* size_;
  FormulaReadGuard guard_;
};
