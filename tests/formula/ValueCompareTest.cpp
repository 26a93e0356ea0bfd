// Views, ordering and equality of values.
#include <gtest/gtest.h>

#include <compare>

#include "ValueAssertions.h"
#include "formula/ValueCompare.h"

namespace {

TEST(ValueView, KeepsKindAndPayloadAndStopsAStringAtItsFirstNul) {
  const Value values[] = {Value{}, Value{-5}, Value{2.5}, Value{L"Болт"}, Value{L""}};
  for (const Value& value : values) {
    SCOPED_TRACE(DescribeValue(value));
    const ValueView view = MakeValueView(value);
    EXPECT_EQ(view.index, static_cast<int8_t>(value.index()));
    EXPECT_TRUE(SameValue(MakeValue(view), value));
  }
  const Value embedded{std::wstring(L"ab\0cd", 5)};
  const ValueView view = MakeValueView(embedded);
  EXPECT_EQ(view.length, 2u);
  EXPECT_EQ(view.payload.text, std::get<LX_VALUE_STRING>(embedded).c_str());
  EXPECT_TRUE(SameValue(MakeValue(view), Value{L"ab"}));
}

TEST(ValueView, AnUnknownKindReadsAsEmpty) {
  ValueView view{};
  view.index = 9;
  EXPECT_TRUE(SameValue(MakeValue(view), Value{}));
}

struct OrderCase {
  Value left;
  Value right;
  std::partial_ordering expected;
};

TEST(CompareValues, OrdersNumbersWithinTheTolerance) {
  const OrderCase cases[] = {
      {Value{}, Value{}, std::partial_ordering::equivalent}, {Value{}, Value{1}, std::partial_ordering::unordered},
      {Value{1}, Value{}, std::partial_ordering::unordered}, {Value{}, Value{0}, std::partial_ordering::unordered},
      {Value{5}, Value{6}, std::partial_ordering::less}, {Value{6}, Value{5}, std::partial_ordering::greater},
      {Value{2}, Value{2.0}, std::partial_ordering::equivalent},
      {Value{1.000001}, Value{1.000002}, std::partial_ordering::equivalent},
      {Value{1.000002}, Value{1.000001}, std::partial_ordering::equivalent},
      {Value{1.0}, Value{1.00002}, std::partial_ordering::less},
      {Value{-1.0}, Value{-1.00002}, std::partial_ordering::greater},
  };
  for (const OrderCase& c : cases) {
    SCOPED_TRACE(DescribeValue(c.left) + " vs " + DescribeValue(c.right));
    EXPECT_EQ(CompareValues(MakeValueView(c.left), MakeValueView(c.right)), c.expected);
  }
}

struct EqualCase {
  Value left;
  Value right;
  bool expected;
};

TEST(ValuesEqual, ComparesEachPairOfKinds) {
  const EqualCase cases[] = {
      {Value{}, Value{}, true}, {Value{}, Value{0}, false}, {Value{L""}, Value{}, false},
      {Value{1.000001}, Value{1.000002}, true}, {Value{2}, Value{2.00002}, false}, {Value{3}, Value{3.0}, true},
      {Value{L"abc"}, Value{L"abc"}, true}, {Value{L"abc"}, Value{L"ABC"}, false}, {Value{L"ab"}, Value{L"abc"}, false},
      {Value{L"a*"}, Value{L"abc"}, false},  // no wildcards here
      {Value{2.5}, Value{L"2,500"}, true},   // three fraction digits, comma
      {Value{2.5}, Value{L"2,50"}, false}, {Value{L"2,500"}, Value{2.5}, true}, {Value{2.5}, Value{L"2.500"}, false},
      {Value{2}, Value{L"2"}, true},  // an integer gives its plain digits
      {Value{2}, Value{L"2,000"}, false}, {Value{0.0000001}, Value{L"0,000"}, true},
  };
  for (const EqualCase& c : cases) {
    SCOPED_TRACE(DescribeValue(c.left) + " vs " + DescribeValue(c.right));
    EXPECT_EQ(ValuesEqual(MakeValueView(c.left), MakeValueView(c.right)), c.expected);
  }
}

}  // namespace
