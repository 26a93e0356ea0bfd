// Byte content for tests of stored content: random bytes from a seed, and
// the bytes a ByteData holds.
#pragma once

#include <cstddef>
#include <random>
#include <vector>

#include "content/ByteData.h"

namespace lxtest {

using Bytes = std::vector<unsigned char>;

inline Bytes Random(std::size_t size, unsigned seed) {
  std::mt19937 generator(seed);
  Bytes bytes(size);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(generator());
  return bytes;
}

inline Bytes BytesOf(const ByteData& data) { return Bytes(data.Data(), data.Data() + data.Size()); }

}  // namespace lxtest
