#include "tools/lxcat/TypedValue.h"

#include <charconv>
#include <cmath>

#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

std::optional<int32_t> WholeInteger(const std::string& text) {
  int32_t value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (text.empty() || result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

std::optional<double> WholeDouble(std::string text) {
  for (char& c : text) {
    if (c == ',') c = '.';
  }
  double value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (text.empty() || result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace

std::optional<TypedValue> ParseTypedValue(int32_t type, const std::string& text) {
  TypedValue value;
  value.type = type;
  if (type == LX_VALUE_INT) {
    const auto integer = WholeInteger(text);
    if (!integer) return std::nullopt;
    value.integer = *integer;
  } else if (type == LX_VALUE_DOUBLE) {
    const auto number = WholeDouble(text);
    if (!number) return std::nullopt;
    value.number = *number;
  } else if (type == LX_VALUE_STRING) {
    value.text = Utf8ToWide(text);
  } else {
    return std::nullopt;
  }
  return value;
}

int32_t TypeOfTexts(const std::vector<const std::string*>& texts) {
  int32_t type = LX_VALUE_INT;
  bool any = false;
  for (const std::string* text : texts) {
    if (text->empty()) continue;
    any = true;
    if (type == LX_VALUE_INT && !WholeInteger(*text)) type = LX_VALUE_DOUBLE;
    if (type == LX_VALUE_DOUBLE && !WholeDouble(*text)) return LX_VALUE_STRING;
  }
  return any ? type : LX_VALUE_STRING;
}

bool WriteTypedValue(LxStdSize* size, LxAttribute* column, const TypedValue& value) {
  switch (value.type) {
    case LX_VALUE_INT: return stdsize_SetValueI(size, column, value.integer);
    case LX_VALUE_DOUBLE: return stdsize_SetValueD(size, column, value.number);
    default: return stdsize_SetValueS(size, column, value.text.c_str());
  }
}

std::string TypeName(int32_t type) {
  switch (type) {
    case LX_VALUE_INT: return "integer";
    case LX_VALUE_DOUBLE: return "double";
    case LX_VALUE_STRING: return "text";
    default: return std::to_string(type);
  }
}

}  // namespace lxcat
