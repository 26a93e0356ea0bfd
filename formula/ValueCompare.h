// ValueCompare: ordering and equality of values, with the tolerance that
// formulas and object comparison share. Pure functions, any thread.
#pragma once

#include <compare>

#include "formula/Value.h"

// Two numbers closer than this are the same number, for ordering and equality.
inline constexpr double kValueTolerance = 1e-5;

// A partial ordering of two values that are not strings (a string is read as a
// number). Two empties are equivalent; one empty against anything else is
// unordered, so every ordered comparison with it is false.
std::partial_ordering CompareValues(const ValueView& left, const ValueView& right);

// Empty equals only empty; numbers equal within the tolerance; strings equal
// code unit for code unit; a number equals a string that is its text with
// three fraction digits and a decimal comma (an integer: its plain digits).
bool ValuesEqual(const ValueView& left, const ValueView& right);
