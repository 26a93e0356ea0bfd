#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "LxDataAccess.h"

// Values given on the command line or in an import file are text; a column's
// type decides what the text must be. Integers are whole 32-bit decimals;
// doubles take a comma or a point, as the library reads numbers; texts are
// anything.
namespace lxcat {

struct TypedValue {
  int32_t type = LX_VALUE_STRING;
  int32_t integer = 0;
  double number = 0;
  std::wstring text;
};

// Nothing when the text is not a value of the type.
std::optional<TypedValue> ParseTypedValue(int32_t type, const std::string& text);
// The narrowest type that holds every non-empty text: integer, double, text.
int32_t TypeOfTexts(const std::vector<const std::string*>& texts);
// Through the stdsize_SetValue call of the value's type.
bool WriteTypedValue(LxStdSize* size, LxAttribute* column, const TypedValue& value);

// "integer", "double", "text", for messages and options.
std::string TypeName(int32_t type);

}  // namespace lxcat
