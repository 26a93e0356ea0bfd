// BufferReader: reads the tagged elements of an object buffer (1 integer,
// 2 double, 3 string of UTF-16LE units, 4 block; little-endian, unaligned)
// and never past its end.
//
// An element that is not there (another tag, too few bytes) yields nothing
// and leaves the position; a string or block whose length runs past the end
// yields empty and leaves the position behind its length field. So a damaged
// buffer reads as far as it can, and every read is bounded by the buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "formula/Value.h"

class BufferReader {
 public:
  BufferReader(const unsigned char* data, std::size_t size) : data_(data), size_(size) {}

  std::size_t Position() const { return position_; }
  // Bytes past the position.
  std::size_t Left() const { return size_ - position_; }

  // Each gives false and leaves `out` alone when the element is not there.
  bool ReadInt(std::int32_t& out);
  bool ReadDouble(double& out);
  bool ReadString(std::wstring& out);
  bool ReadBlock(std::vector<unsigned char>& out);
  // An integer, double or string by its tag. A number that the end cuts off
  // keeps its kind with the value 0; any other tag, or no byte, gives empty.
  Value ReadValue();

 private:
  // Checks the tag and room for `bytes` behind it; on success the position
  // is past the tag.
  bool Enter(unsigned char tag, std::size_t bytes);
  // A length field's bytes as they stand: the reader of each element
  // decides what a negative length means.
  std::uint32_t TakeUint32();
  // The bytes of a string or block of `length`, or null (and nothing
  // consumed) when they run past the end.
  const unsigned char* TakeBytes(std::uint32_t length);

  const unsigned char* data_;
  std::size_t size_;
  std::size_t position_ = 0;
};
