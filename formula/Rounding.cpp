#include "formula/Rounding.h"

#include <cmath>

double RoundHalfAway(double number, int32_t digits) {
  const double scale = std::pow(10.0, digits);
  if (scale == 0.0) return 0.0;
  const double scaled = number * scale;
  // An infinite scale, or a product beyond the doubles, means the number has
  // no digits left at that position to round away.
  if (!std::isfinite(scaled)) return number;

  double whole = 0.0;
  const bool atLeastHalf = std::fabs(std::modf(scaled, &whole)) >= 0.5;
  const bool positive = scaled >= 0;
  const double rounded = (atLeastHalf == positive) ? std::ceil(scaled) : std::floor(scaled);
  return rounded / scale;
}
