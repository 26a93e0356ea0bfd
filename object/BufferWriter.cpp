#include "object/BufferWriter.h"

#include <cstring>

#include "platform/TextCodec.h"

void BufferWriter::PutUint32(std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8) Put(static_cast<unsigned char>(number >> shift));
}

void BufferWriter::WriteInt(std::int32_t number) {
  if (!Fits(5)) return;
  Put(1);
  PutUint32(static_cast<std::uint32_t>(number));
}

void BufferWriter::WriteDouble(double number) {
  if (!Fits(9)) return;
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  Put(2);
  PutUint32(static_cast<std::uint32_t>(bits));
  PutUint32(static_cast<std::uint32_t>(bits >> 32));
}

void BufferWriter::WriteString(std::wstring_view text) {
  const std::size_t length = 2 * Utf16Length(text);
  if (length > UINT32_MAX || !Fits(5 + length)) return;
  Put(3);
  PutUint32(static_cast<std::uint32_t>(length));
  WriteUtf16Le(text, data_ + position_);
  position_ += length;
}

void BufferWriter::WriteBlock(const std::vector<unsigned char>& block) {
  if (block.size() > INT32_MAX || !Fits(5 + block.size())) return;
  Put(4);
  PutUint32(static_cast<std::uint32_t>(block.size()));
  if (!block.empty()) std::memcpy(data_ + position_, block.data(), block.size());
  position_ += block.size();
}
