#include "formula/ValueCompare.h"

#include <cmath>

#include "formula/ValueConversion.h"

namespace {

// The text a number must match when it is compared with a string.
constexpr NumberFormat kEqualityFormat{false, 3};

}  // namespace

std::partial_ordering CompareValues(const ValueView& left, const ValueView& right) {
  if (IsEmpty(left) && IsEmpty(right)) return std::partial_ordering::equivalent;
  if (IsEmpty(left) || IsEmpty(right)) return std::partial_ordering::unordered;
  const double leftNumber = ValueToDouble(left);
  const double rightNumber = ValueToDouble(right);
  if (std::fabs(leftNumber - rightNumber) < kValueTolerance) return std::partial_ordering::equivalent;
  // NaN falls through to "greater": the comparison of differences is the rule,
  // and a NaN difference is neither small nor negative.
  return rightNumber > leftNumber ? std::partial_ordering::less : std::partial_ordering::greater;
}

bool ValuesEqual(const ValueView& left, const ValueView& right) {
  if (IsEmpty(left) || IsEmpty(right)) return IsEmpty(left) && IsEmpty(right);
  if (!IsString(left) && !IsString(right)) {
    return std::fabs(ValueToDouble(left) - ValueToDouble(right)) < kValueTolerance;
  }
  if (IsString(left) && IsString(right)) return ViewText(left) == ViewText(right);
  const ValueView& number = IsString(left) ? right : left;
  const ValueView& text = IsString(left) ? left : right;
  return ValueToText(number, kEqualityFormat) == ViewText(text);
}
