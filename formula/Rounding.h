// Rounding: the rounding of the formula function R. Pure, any thread.
#pragma once

#include <cstdint>

// `number` rounded to `digits` decimals, halves away from zero: 2.5 gives 3,
// -2.5 gives -3. Negative `digits` round to tens, hundreds and so on. When
// the scale leaves the range of a double the answer is the mathematical one:
// a scale too large to represent keeps `number` as it is, a scale too small
// gives zero.
double RoundHalfAway(double number, int32_t digits);
