#include "object/BufferReader.h"

#include <cstring>

#include "platform/TextCodec.h"

namespace {

constexpr unsigned char kIntTag = 1;
constexpr unsigned char kDoubleTag = 2;
constexpr unsigned char kStringTag = 3;
constexpr unsigned char kBlockTag = 4;

}  // namespace

bool BufferReader::Enter(unsigned char tag, std::size_t bytes) {
  if (Left() < 1 + bytes || data_[position_] != tag) return false;
  ++position_;
  return true;
}

std::uint32_t BufferReader::TakeUint32() {
  const unsigned char* at = data_ + position_;
  position_ += 4;
  return at[0] | at[1] << 8 | at[2] << 16 | std::uint32_t{at[3]} << 24;
}

const unsigned char* BufferReader::TakeBytes(std::uint32_t length) {
  if (length > Left()) return nullptr;
  const unsigned char* at = data_ + position_;
  position_ += length;
  return at;
}

bool BufferReader::ReadInt(std::int32_t& out) {
  if (!Enter(kIntTag, 4)) return false;
  out = static_cast<std::int32_t>(TakeUint32());
  return true;
}

bool BufferReader::ReadDouble(double& out) {
  if (!Enter(kDoubleTag, 8)) return false;
  const std::uint64_t low = TakeUint32();
  const std::uint64_t bits = low | std::uint64_t{TakeUint32()} << 32;
  std::memcpy(&out, &bits, sizeof out);
  return true;
}

bool BufferReader::ReadString(std::wstring& out) {
  if (!Enter(kStringTag, 4)) return false;
  const std::uint32_t length = TakeUint32();
  const unsigned char* text = TakeBytes(length);
  // An odd last byte is no code unit; it is passed over with the rest.
  out = text != nullptr ? ReadUtf16Le(text, length / 2) : std::wstring();
  return true;
}

bool BufferReader::ReadBlock(std::vector<unsigned char>& out) {
  if (!Enter(kBlockTag, 4)) return false;
  const std::uint32_t length = TakeUint32();
  // A negative length is as good as one past the end: nothing to copy.
  const unsigned char* block = length <= INT32_MAX ? TakeBytes(length) : nullptr;
  if (block != nullptr) {
    out.assign(block, block + length);
  } else {
    out.clear();
  }
  return true;
}

Value BufferReader::ReadValue() {
  if (Left() == 0) return {};
  switch (data_[position_]) {
    case kIntTag: {
      std::int32_t number = 0;
      ReadInt(number);
      return number;
    }
    case kDoubleTag: {
      double number = 0.0;
      ReadDouble(number);
      return number;
    }
    case kStringTag: {
      std::wstring text;
      ReadString(text);
      return text;
    }
    default:
      return {};
  }
}
