#include "formula/ValueConversion.h"

#include <cmath>

namespace {

int32_t TruncateToInt32(double number) {
  if (std::isnan(number)) return 0;
  if (number >= 2147483647.0) return INT32_MAX;
  if (number <= -2147483648.0) return INT32_MIN;
  return static_cast<int32_t>(number);
}

}  // namespace

int32_t ValueToInt(const ValueView& value) {
  switch (value.index) {
    case LX_VALUE_INT:
      return value.payload.integer;
    case LX_VALUE_DOUBLE:
      return TruncateToInt32(value.payload.number);
    case LX_VALUE_STRING: {
      int32_t number = 0;
      return ParseWholeInt32(ViewText(value), number) ? number : 0;
    }
    default:
      return 0;
  }
}

int32_t ValueToInt(const Value& value) { return ValueToInt(MakeValueView(value)); }

double ValueToDouble(const ValueView& value, double fallback) {
  switch (value.index) {
    case LX_VALUE_INT:
      return value.payload.integer;
    case LX_VALUE_DOUBLE:
      return value.payload.number;
    case LX_VALUE_STRING:
      return StringToDouble(ViewText(value), fallback);
    default:
      return fallback;
  }
}

double ValueToDouble(const Value& value, double fallback) {
  return ValueToDouble(MakeValueView(value), fallback);
}

std::wstring ValueToText(const ValueView& value, const NumberFormat& format) {
  switch (value.index) {
    case LX_VALUE_INT:
      return std::to_wstring(value.payload.integer);
    case LX_VALUE_DOUBLE:
      return DoubleToText(value.payload.number, format.precision, true, format.trimZeros);
    case LX_VALUE_STRING:
      return std::wstring(ViewText(value));
    default:
      return {};
  }
}

std::wstring ValueToText(const Value& value, const NumberFormat& format) {
  return ValueToText(MakeValueView(value), format);
}
