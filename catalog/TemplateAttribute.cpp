#include "catalog/TemplateAttribute.h"

#include "formula/ValueCompare.h"

void SetDefaultOfType(Value& value, std::int32_t type) {
  switch (type) {
    case LX_VALUE_EMPTY: value = std::monostate{}; break;
    case LX_VALUE_INT: value = std::int32_t{0}; break;
    case LX_VALUE_DOUBLE: value = 0.0; break;
    case LX_VALUE_STRING: value = std::wstring(); break;
    default: break;
  }
}

bool SameRecord(const TemplateAttribute& left, const TemplateAttribute& right) {
  return left.number == right.number && left.oldNumber == right.oldNumber && left.name == right.name &&
         left.description == right.description && left.measure == right.measure && left.varName == right.varName &&
         left.formula == right.formula && ValuesEqual(MakeValueView(left.value), MakeValueView(right.value));
}
