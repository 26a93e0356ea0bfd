// ValueConversion: a value of any kind read as an integer, a double or text.
//
// These are the conversions that formulas, the object buffer and value reads
// share, so each kind has exactly one reading. All functions are pure.
#pragma once

#include <cstdint>
#include <string>

#include "formula/NumberText.h"
#include "formula/Value.h"

// Empty gives 0; a double is truncated toward zero, saturating at the 32-bit
// limits, and NaN gives 0; a string counts only if it is a whole decimal
// integer, else 0.
int32_t ValueToInt(const ValueView& value);
int32_t ValueToInt(const Value& value);

// Empty gives `fallback`; a string is read by StringToDouble with `fallback`.
double ValueToDouble(const ValueView& value, double fallback = 0.0);
double ValueToDouble(const Value& value, double fallback = 0.0);

// Empty gives an empty text, an integer its plain digits, a double its text
// under `format` with a decimal comma, a string itself up to its first NUL.
std::wstring ValueToText(const ValueView& value, const NumberFormat& format = kDefaultNumberFormat);
std::wstring ValueToText(const Value& value, const NumberFormat& format = kDefaultNumberFormat);
