// IdRange: a run of ids reserved from one of the catalog's generators, handed
// out in order. Running past its end is a fault of the generator's own
// counting and throws, so that a row can never take an id it did not
// reserve. A plain value type.
#pragma once

#include <cstdint>
#include <stdexcept>

class IdRange {
 public:
  IdRange() = default;
  // [first, last]; empty when last < first.
  IdRange(std::int32_t first, std::int32_t last) : next_(first), last_(last) {}

  std::int32_t Take() {
    if (next_ > last_) throw std::logic_error("more rows written than ids reserved");
    return next_++;
  }
  // `count` consecutive ids; the first of them (the next one if count is 0).
  std::int32_t TakeRun(std::int32_t count) {
    if (std::int64_t{next_} + count - 1 > last_) throw std::logic_error("more rows written than ids reserved");
    const std::int32_t first = next_;
    next_ += count;
    return first;
  }
  // Left over: reserved but not taken.
  std::int64_t Left() const { return std::int64_t{last_} - next_ + 1; }

 private:
  std::int32_t next_ = 1;
  std::int32_t last_ = 0;
};
