// How many tasks the machine runs at once, and how a list is cut into the
// pieces that tasks take: the packet load and the search split their lists
// the same way, each with its own floor.
#pragma once

#include <cstddef>
#include <vector>

// What the system reports; 0 when it cannot tell, for the caller to decide.
unsigned HardwareThreads();

// Positions [first, last) of one contiguous piece of a list.
struct Chunk {
  std::size_t first = 0;
  std::size_t last = 0;
  bool operator==(const Chunk&) const = default;
};

// A list of `count` elements in about `threads` chunks of at least `floor`
// elements each (all of them in one chunk when fewer than `floor`); the
// remainder is spread over the strides and the last chunk runs to the end.
// `threads` 0 counts as 8. No elements, no chunks.
std::vector<Chunk> SplitIntoChunks(std::size_t count, unsigned threads, std::size_t floor);
