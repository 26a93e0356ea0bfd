// NumberText: the text forms of numbers and the reading of numbers from text.
//
// Writing cuts digits and never rounds, and prints a decimal comma when asked;
// reading takes a comma or a point and counts only when it consumes the whole
// text. All functions are pure and may be called from any thread.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "LxDataAccess.h"

// NumberFormat::precision with every bit set: keep the six fraction digits
// that the fixed-point print gives, untouched.
inline constexpr uint64_t kKeepPrintedDigits = std::numeric_limits<uint64_t>::max();

// What every caller inside the library uses when it is given no format.
inline constexpr NumberFormat kDefaultNumberFormat{false, 2};

// `number` as text with `precision` fraction digits, cut rather than rounded.
// Magnitudes below 1e-5 print as zero. Precision 0 gives the integer form with
// no separator. Infinities and NaN print as "inf", "-inf" and "nan" whatever
// the options, since they have no fraction to cut or pad.
std::wstring DoubleToText(double number, uint64_t precision, bool comma, bool trimZeros);

// The number that `text` holds when read as a double, with "," taken as ".".
// Gives `fallback` for an empty text and for one not consumed to its end.
// Reads in the "C" locale whatever locale the host process has set.
double StringToDouble(std::wstring_view text, double fallback);

// Reads `text` as a base-10 long the way a 32-bit wcstol does: optional
// leading white space and sign, digits to the end, saturating at the 32-bit
// limits on overflow. Returns false, leaving `number` alone, unless the
// conversion consumed the whole text. An empty text counts as consumed, 0.
bool ParseWholeInt32(std::wstring_view text, int32_t& number);
