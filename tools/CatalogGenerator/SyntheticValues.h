// SyntheticValues: the values a generated catalog stores, each a pure
// function of the seed and of where the value stands, so that a shape and a
// seed always give the same catalog, whatever order the rows are written in.
//
// Values of one kind vary: integers from -1000 to 1000, doubles with two
// decimals up to 2000, texts of a material and a number in Cyrillic (every
// character fits code page 1251). Common values of different split groups
// in one folder always differ, which is what makes the groups split.
//
// Immutable; any thread may use it.
#pragma once

#include <cstdint>

#include "formula/Value.h"

class SyntheticValues {
 public:
  explicit SyntheticValues(std::uint64_t seed) : seed_(seed) {}

  // The value of attribute `number`, of `type` (1, 2 or 3), for the size
  // generated as the `size`-th of the whole run.
  Value SizeValue(std::int64_t size, std::int32_t number, std::int32_t type) const;
  // The common value of attribute `number` in the templates of split group
  // `group` of the `folder`-th folder of the run.
  Value CommonValue(std::int64_t folder, std::int32_t group, std::int32_t number, std::int32_t type) const;

 private:
  std::uint64_t Hash(std::uint64_t domain, std::uint64_t place, std::uint64_t number) const;

  std::uint64_t seed_;
};
