// AttributeLayout: the attributes that every template of one split group
// carries, in the order they are written. Numbers from 21 by kind (values per
// size, common values, formulas), attribute 11 first when the shape asks for
// it, and the extra attribute of odd groups last.
//
// Types cycle 1, 2, 3 (integer, double, text) by position, so A21 is an
// integer and A22 a double, which the formulas rely on. Every other numeric
// attribute has the unit "мм" and every fourth a variable name.
//
// Pure functions over the shape; thread-safe.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/CatalogGenerator/CatalogShape.h"

enum class ValueKind {
  // An ATTRIBUTEVALUE row for each size.
  PerSize,
  // OBJECTATTRIBUTE.CONCRETEVALUEID on each template.
  Common,
  // No stored value: a formula, or the extra attribute of a split group.
  None,
};

struct AttributeDefinition {
  std::int32_t number = 0;
  std::int32_t type = 0;
  std::wstring name;
  std::wstring description;
  std::wstring measure;
  std::wstring varName;
  std::wstring formula;
  ValueKind kind = ValueKind::None;
  // Attribute 11: its value per size is the size's identifier.
  bool identifier = false;
};

inline constexpr std::int32_t kIdSpecificationNumber = 11;
inline constexpr std::int32_t kFirstGeneratedNumber = 21;

// The attributes of templates in split group `group` (from 0).
std::vector<AttributeDefinition> TemplateAttributes(const CatalogShape& shape, std::int32_t group);

// Whether group `group` carries the extra attribute of SplitBy::AttributeSets.
bool HasGroupAttribute(const CatalogShape& shape, std::int32_t group);
