#include "formula/NumberText.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cwchar>
#include <locale.h>

namespace {

constexpr double kPrintsAsZeroBelow = 1e-5;
constexpr int kPrintedFractionDigits = 6;

// A fixed-point print of the largest double has 309 integer digits; with the
// sign, the point and six fraction digits it still fits.
constexpr size_t kFixedPrintCapacity = 330;

std::wstring Widen(const char* begin, const char* end) { return std::wstring(begin, end); }

std::wstring NonFiniteText(double number) {
  if (std::isnan(number)) return L"nan";
  return number < 0 ? L"-inf" : L"inf";
}

// Precision 0: the number truncated toward zero, printed as a whole number.
// Values beyond the 64-bit range print their truncated digits in full rather
// than whatever an out-of-range conversion would give.
std::wstring IntegerText(double number) {
  char buffer[kFixedPrintCapacity];
  const double whole = std::trunc(number);
  constexpr double kInt64Bound = 9223372036854775808.0;  // 2^63
  std::to_chars_result printed;
  if (whole >= -kInt64Bound && whole < kInt64Bound) {
    printed = std::to_chars(buffer, buffer + sizeof buffer, static_cast<int64_t>(whole));
  } else {
    printed = std::to_chars(buffer, buffer + sizeof buffer, whole, std::chars_format::fixed, 0);
  }
  return Widen(buffer, printed.ptr);
}

// The fraction of `text` runs from `fractionStart` to its end. Lowers
// `precision` to the last digit, among the first ones it covers, that is not 0.
uint64_t TrimmedPrecision(const std::wstring& text, size_t fractionStart, uint64_t precision) {
  const size_t looked = static_cast<size_t>(
      std::min<uint64_t>(precision, std::min<size_t>(kPrintedFractionDigits, text.size() - fractionStart)));
  uint64_t kept = 0;
  for (size_t digit = 0; digit < looked; ++digit) {
    if (text[fractionStart + digit] != L'0') kept = digit + 1;
  }
  return kept;
}

// The host application may have set a locale with a decimal comma; numbers in
// formulas are read the same way whatever it chose. Null if it can't be made.
locale_t ClassicLocale() {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return classic;
}

}  // namespace

std::wstring DoubleToText(double number, uint64_t precision, bool comma, bool trimZeros) {
  if (!std::isfinite(number)) return NonFiniteText(number);
  if (std::fabs(number) < kPrintsAsZeroBelow) number = 0.0;
  if (precision == 0) return IntegerText(number);

  char buffer[kFixedPrintCapacity];
  const auto printed = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed,
                                     kPrintedFractionDigits);
  std::wstring text = Widen(buffer, printed.ptr);

  const size_t separator = text.find_first_of(L",.");
  if (separator == std::wstring::npos) return text;
  if (comma) text[separator] = L',';
  if (precision == kKeepPrintedDigits) return text;

  const size_t fractionStart = separator + 1;
  if (trimZeros) precision = TrimmedPrecision(text, fractionStart, precision);

  const size_t fractionLength = text.size() - fractionStart;
  if (fractionLength > precision) {
    // Drop the separator too when no fraction digit stays.
    text.resize(precision == 0 ? separator : fractionStart + static_cast<size_t>(precision));
  } else {
    text.append(static_cast<size_t>(precision - fractionLength), L'0');
  }
  return text;
}

double StringToDouble(std::wstring_view text, double fallback) {
  if (text.empty()) return fallback;
  std::wstring pointed(text);
  std::replace(pointed.begin(), pointed.end(), L',', L'.');
  wchar_t* stop = nullptr;
  const locale_t classic = ClassicLocale();
  const double number = classic != nullptr ? wcstod_l(pointed.c_str(), &stop, classic)
                                           : std::wcstod(pointed.c_str(), &stop);
  return stop == pointed.c_str() + pointed.size() ? number : fallback;
}

bool ParseWholeInt32(std::wstring_view text, int32_t& number) {
  const std::wstring terminated(text);
  wchar_t* stop = nullptr;
  const long wide = std::wcstol(terminated.c_str(), &stop, 10);
  if (stop != terminated.c_str() + terminated.size()) return false;
  number = static_cast<int32_t>(std::clamp<long>(wide, INT32_MIN, INT32_MAX));
  return true;
}
