// BufferWriter: writes the tagged elements of an object buffer into the
// client's memory. An element that does not fit whole in what is left of
// the capacity is left out without a word, and writing goes on with the
// next, which may still fit: the counts of a cut buffer can promise more
// than follows, and the reader copes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class BufferWriter {
 public:
  BufferWriter(unsigned char* data, std::size_t capacity) : data_(data), capacity_(capacity) {}

  std::size_t Written() const { return position_; }

  void WriteInt(std::int32_t number);
  void WriteDouble(double number);
  void WriteString(std::wstring_view text);
  void WriteBlock(const std::vector<unsigned char>& block);

 private:
  // Room for `bytes` more; the position is not moved.
  bool Fits(std::size_t bytes) const { return capacity_ - position_ >= bytes; }
  void Put(unsigned char byte) { data_[position_++] = byte; }
  void PutUint32(std::uint32_t number);

  unsigned char* data_;
  std::size_t capacity_;
  std::size_t position_ = 0;
};
