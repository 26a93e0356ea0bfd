#include "catalog/CStdSizeFormulaHelper.h"

#include <stdexcept>

#include "catalog/CAttribute.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/SizeValue.h"

Value& CStdSizeFormulaHelper::GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) {
  return Read(result, size_->GetTemplate()->GetTable()->FindAttribute(name), format);
}

Value& CStdSizeFormulaHelper::GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) {
  return Read(result, size_->GetTemplate()->GetTable()->Attributes().FindByNumber(attributeNumber), format);
}

bool CStdSizeFormulaHelper::SetValueByNumber(int32_t, const Value&) {
  throw std::logic_error("The method or operation is not implemented.");
}

Value& CStdSizeFormulaHelper::Read(Value& result, const CAttribute* attribute, const NumberFormat& format) {
  result = std::monostate{};
  if (attribute == nullptr) return result;  // a name the table lacks is not a read
  if (!guard_.Count(size_->GetIdentifier())) return result;
  if (const Value* value = GetSizeValue(*attribute, *size_, format, this)) result = *value;
  return result;
}
