// TemplateAttribute: one column as a template holds it (one OBJECTATTRIBUTE
// row), with the value common to all sizes of the template. The record has
// no type of its own: its type is the kind of its value.
#pragma once

#include <cstdint>
#include <string>

#include "formula/Value.h"

struct TemplateAttribute {
  std::int32_t number = 0;
  std::int32_t oldNumber = 0;
  std::wstring name;
  std::wstring description;
  std::wstring measure;
  std::wstring varName;
  std::wstring formula;
  Value value;
};

// Attribute types are the value kinds: 1 integer, 2 double, 3 string; 0 is
// refused as a type. The default of a type is its zero value.
//
// Sets `value` to the default of `type`; a type above 3 leaves it as it is.
void SetDefaultOfType(Value& value, std::int32_t type);

// Number, old number, the five texts and the value (compared as values) all
// equal: two templates that agree on every record share one column set.
bool SameRecord(const TemplateAttribute& left, const TemplateAttribute& right);
