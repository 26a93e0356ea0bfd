// CObjectFormulaHelper: a formula's view of a placed object. A read takes the
// object's own value first, whatever its kind, then the attribute's formula,
// evaluated through this same helper, then the size's value. A write through
// a bare reference lands among the object's own values.
//
// Reads and writes both count: past 50 through one helper everything is
// empty or refused, and the first of those writes the cycle message. Lives
// on the stack of one top-level read or write; never shared.
#pragma once

#include <cstdint>
#include <string>

#include "formula/FormulaCycle.h"
#include "formula/IFormulaDataSource.h"

class CAttribute;
class CObject;

class CObjectFormulaHelper : public IFormulaDataSource {
 public:
  explicit CObjectFormulaHelper(CObject* object) : object_(object) {}

  Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) override;
  Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) override;
  bool SetValueByNumber(int32_t attributeNumber, const Value& value) override;

  // The value of `attribute` (null gives empty) as a formula sees it.
  Value& GetValueOfAttribute(Value& result, const CAttribute* attribute, const NumberFormat& format);

 private:
  // Counts one access; false once past the limit, with the message once.
  bool Count();

  CObject* object_;
  FormulaReadGuard guard_;
};
