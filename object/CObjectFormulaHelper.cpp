#include "object/CObjectFormulaHelper.h"

#include "catalog/CAttribute.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/SizeValue.h"
#include "object/CObject.h"

namespace {

CFolderTable& TableOf(const CObject& object) { return *object.GetStdSize()->GetTemplate()->GetTable(); }

}  // namespace

Value& CObjectFormulaHelper::GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) {
  return GetValueOfAttribute(result, TableOf(*object_).FindAttribute(name), format);
}

Value& CObjectFormulaHelper::GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) {
  return GetValueOfAttribute(result, TableOf(*object_).Attributes().FindByNumber(attributeNumber), format);
}

bool CObjectFormulaHelper::Count() { return guard_.Count(object_->GetStdSize()->GetIdentifier()); }

Value& CObjectFormulaHelper::GetValueOfAttribute(Value& result, const CAttribute* attribute,
                                                 const NumberFormat& format) {
  result = std::monostate{};
  if (!Count() || attribute == nullptr) return result;
  const auto own = object_->Values().find(attribute->GetName());
  if (own != object_->Values().end()) return result = own->second;
  if (const CFormula* tree = attribute->GetFormulaTree()) {
    tree->Evaluate(result, *this, format);
    object_->Calculated()[attribute->GetNumber()] = result;
    return result;
  }
  if (const Value* value = GetSizeValue(*attribute, *object_->GetStdSize(), format, this)) result = *value;
  return result;
}

bool CObjectFormulaHelper::SetValueByNumber(int32_t attributeNumber, const Value& value) {
  if (!Count()) return false;
  const CAttribute* attribute = TableOf(*object_).Attributes().FindByNumber(attributeNumber);
  if (attribute == nullptr) return false;
  const CFormula* tree = attribute->GetFormulaTree();
  if (tree == nullptr) {
    object_->Values()[attribute->GetName()] = value;
    return true;
  }
  return tree->SetValue(*this, value);
}
