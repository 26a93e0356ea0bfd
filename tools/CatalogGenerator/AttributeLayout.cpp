#include "tools/CatalogGenerator/AttributeLayout.h"

namespace {

// The texts that the library itself gives attribute 11.
constexpr const wchar_t* kIdSpecificationName = L"ID_specification";
constexpr const wchar_t* kIdSpecificationDescription =
    L"Идентификатор элемента (для идентификации и сортировки в спецификации)";

constexpr const wchar_t* kNumericFormula = L"{A21*2+1}";
constexpr const wchar_t* kTextFormula = L"Болт М{A21}x{A22}";

AttributeDefinition IdSpecification() {
  AttributeDefinition attribute;
  attribute.number = kIdSpecificationNumber;
  attribute.type = 3;
  attribute.name = kIdSpecificationName;
  attribute.description = kIdSpecificationDescription;
  attribute.kind = ValueKind::PerSize;
  attribute.identifier = true;
  return attribute;
}

ValueKind KindAt(const CatalogShape& shape, std::int32_t position) {
  const std::int32_t perSize = shape.attributes - shape.commonAttributes - shape.formulaAttributes;
  if (position < perSize) return ValueKind::PerSize;
  if (position < perSize + shape.commonAttributes) return ValueKind::Common;
  return ValueKind::None;
}

AttributeDefinition Numbered(const CatalogShape& shape, std::int32_t position) {
  AttributeDefinition attribute;
  attribute.number = kFirstGeneratedNumber + position;
  attribute.kind = KindAt(shape, position);
  attribute.name = L"Параметр " + std::to_wstring(attribute.number);
  attribute.description = L"Описание параметра " + std::to_wstring(attribute.number);
  attribute.type = 1 + position % 3;
  if (attribute.kind == ValueKind::None) {
    const std::int32_t formulaIndex = position - (shape.attributes - shape.formulaAttributes);
    attribute.type = formulaIndex % 2 == 0 ? 2 : 3;
    attribute.formula = formulaIndex % 2 == 0 ? kNumericFormula : kTextFormula;
  }
  if (attribute.type != 3 && position % 2 == 0) attribute.measure = L"мм";
  if (position % 4 == 1) attribute.varName = L"V" + std::to_wstring(attribute.number);
  return attribute;
}

AttributeDefinition GroupAttribute(const CatalogShape& shape) {
  AttributeDefinition attribute;
  attribute.number = kFirstGeneratedNumber + shape.attributes;
  attribute.type = 1;
  attribute.name = L"Исполнение";
  attribute.description = L"Исполнение группы шаблонов";
  attribute.kind = ValueKind::None;
  return attribute;
}

}  // namespace

bool HasGroupAttribute(const CatalogShape& shape, std::int32_t group) {
  return shape.splitBy == SplitBy::AttributeSets && group % 2 == 1;
}

std::vector<AttributeDefinition> TemplateAttributes(const CatalogShape& shape, std::int32_t group) {
  std::vector<AttributeDefinition> attributes;
  attributes.reserve(shape.attributes + 2);
  if (shape.idSpecification) attributes.push_back(IdSpecification());
  for (std::int32_t position = 0; position < shape.attributes; ++position)
    attributes.push_back(Numbered(shape, position));
  if (HasGroupAttribute(shape, group)) attributes.push_back(GroupAttribute(shape));
  return attributes;
}
