// Text forms of numbers and numbers read from text.
#include <gtest/gtest.h>

#include <cfloat>
#include <clocale>
#include <cmath>
#include <limits>

#include "ValueAssertions.h"
#include "formula/NumberText.h"
#include "formula/ValueConversion.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct DoubleTextCase {
  double number;
  uint64_t precision;
  bool comma;
  bool trimZeros;
  const wchar_t* expected;
};

TEST(DoubleToText, CutsPadsAndTrimsTheFraction) {
  const DoubleTextCase cases[] = {
      {2.5, 2, true, false, L"2,50"},
      {1.999, 2, true, false, L"1,99"},  // cut, never rounded up to 2,00
      {3.0, 2, true, true, L"3"}, {3.25, 8, true, false, L"3,25000000"},
      {3.25, 8, true, true, L"3,25"},  // trimming looks at six digits at most
      {0.000001, 2, true, false, L"0,00"},
      {-0.000001, 2, true, false, L"0,00"},  // below 1e-5 is zero, with no sign
      {0.00001, 6, true, false, L"0,000010"}, {0.0000099, 6, true, false, L"0,000000"}, {2.5, 2, false, false, L"2.50"},
      {-1.5, 2, true, false, L"-1,50"}, {-0.001, 2, true, false, L"-0,00"}, {1.25, 1, true, true, L"1,2"},
      {1.05, 1, true, true, L"1"},  // the only digit looked at is 0
      {0.1, 2, true, true, L"0,1"}, {1.0005, 3, true, false, L"1,000"},
      {123.456789, kKeepPrintedDigits, true, false, L"123,456789"},
      {2.0, kKeepPrintedDigits, true, true, L"2,000000"},  // kept digits are not trimmed
      {1e15, 2, true, false, L"1000000000000000,00"}, {7.9, 0, true, false, L"7"}, {-7.9, 0, true, false, L"-7"},
      {-0.5, 0, true, false, L"0"}, {1.5, 0, true, true, L"1"}, {9.2e18, 0, true, false, L"9200000000000000000"},
      {1e20, 0, true, false, L"100000000000000000000"},  // beyond 64 bits
      {-1e20, 0, true, false, L"-100000000000000000000"}, {kInf, 2, true, false, L"inf"},
      {-kInf, 2, true, false, L"-inf"}, {kNaN, 2, true, false, L"nan"}, {-kNaN, 2, true, false, L"nan"},
      {kInf, 0, true, false, L"inf"}, {kNaN, 0, true, false, L"nan"}, {kInf, kKeepPrintedDigits, true, true, L"inf"},
  };
  for (const DoubleTextCase& c : cases) {
    SCOPED_TRACE(testing::Message() << c.number << " precision " << c.precision << " comma " << c.comma
                                    << " trim " << c.trimZeros);
    EXPECT_EQ(DoubleToText(c.number, c.precision, c.comma, c.trimZeros), c.expected);
  }
  // The largest double is printed in full.
  const std::wstring text = DoubleToText(DBL_MAX, 2, true, false);
  EXPECT_EQ(text.size(), 309u + 3u);
  EXPECT_EQ(text.substr(0, 6), L"179769");
  EXPECT_EQ(text.substr(text.size() - 3), L",00");
}

struct ValueTextCase {
  Value value;
  NumberFormat format;
  const wchar_t* expected;
};

TEST(ValueToText, EachKindHasOneTextForm) {
  const ValueTextCase cases[] = {
      {Value{}, kDefaultNumberFormat, L""}, {Value{-42}, kDefaultNumberFormat, L"-42"},
      {Value{INT32_MIN}, kDefaultNumberFormat, L"-2147483648"},
      {Value{2.5}, kDefaultNumberFormat, L"2,50"},  // always a decimal comma
      {Value{7.9}, NumberFormat{false, 0}, L"7"}, {Value{3.0}, NumberFormat{true, 2}, L"3"},
      {Value{std::wstring(L"ab\0cd", 5)}, kDefaultNumberFormat, L"ab"},  // up to the first NUL
      {Value{L"Болт"}, NumberFormat{false, 0}, L"Болт"},
  };
  for (const ValueTextCase& c : cases) {
    SCOPED_TRACE(DescribeValue(c.value));
    EXPECT_EQ(ValueToText(c.value, c.format), c.expected);
  }
}

struct ReadDoubleCase {
  const wchar_t* text;
  double expected;
};

TEST(StringToDouble, TakesCommaOrPointAndOnlyWholeTexts) {
  constexpr double kFallback = -777.0;
  const ReadDoubleCase cases[] = {
      {L"1,5", 1.5},   {L"1.5", 1.5},        {L"-0,25", -0.25},      {L"1e3", 1000.0},
      {L"", kFallback}, {L"abc", kFallback}, {L"1.5x", kFallback}, {L"1,5,0", kFallback},
      {L"2 ", kFallback}, {L"1e", kFallback}, {L" 2", 2.0},         {L"7", 7.0},
  };
  for (const ReadDoubleCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text));
    EXPECT_EQ(StringToDouble(c.text, kFallback), c.expected);
  }
}

TEST(StringToDouble, IgnoresTheProcessLocale) {
  const char* previous = std::setlocale(LC_NUMERIC, nullptr);
  const std::string saved = previous ? previous : "C";
  // Needs a locale with a decimal comma, which not every system has.
  if (std::setlocale(LC_NUMERIC, "ru_RU.UTF-8") == nullptr) GTEST_SKIP() << "no ru_RU.UTF-8 locale";
  const double read = StringToDouble(L"1.5", 0.0);
  std::setlocale(LC_NUMERIC, saved.c_str());
  EXPECT_EQ(read, 1.5);
}

struct IntCase {
  Value value;
  int32_t expected;
};

TEST(ValueToInt, ReadsEachKind) {
  const IntCase cases[] = {
      {Value{}, 0}, {Value{-17}, -17}, {Value{2.9}, 2}, {Value{-2.9}, -2}, {Value{1e10}, INT32_MAX},
      {Value{-1e10}, INT32_MIN}, {Value{kNaN}, 0}, {Value{L"42"}, 42}, {Value{L"-7"}, -7}, {Value{L"+7"}, 7},
      {Value{L"4x"}, 0}, {Value{L""}, 0}, {Value{L"2.5"}, 0}, {Value{L"9999999999"}, INT32_MAX},
  };
  for (const IntCase& c : cases) {
    SCOPED_TRACE(DescribeValue(c.value));
    EXPECT_EQ(ValueToInt(c.value), c.expected);
    EXPECT_EQ(ValueToInt(MakeValueView(c.value)), c.expected);
  }
}

struct DoubleCase {
  Value value;
  double fallback;
  double expected;
};

TEST(ValueToDouble, ReadsEachKind) {
  const DoubleCase cases[] = {
      {Value{}, 0.0, 0.0},           {Value{}, 5.5, 5.5},          {Value{3}, 9.0, 3.0},
      {Value{2.25}, 9.0, 2.25},      {Value{L"1,5"}, 9.0, 1.5},    {Value{L"x"}, 9.0, 9.0}, {Value{L""}, 9.0, 9.0},
  };
  for (const DoubleCase& c : cases) {
    SCOPED_TRACE(DescribeValue(c.value));
    EXPECT_EQ(ValueToDouble(c.value, c.fallback), c.expected);
  }
}

}  // namespace
