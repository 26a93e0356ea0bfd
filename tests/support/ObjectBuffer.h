// Object buffers written without the library: the tagged elements (1 integer,
// 2 double, 3 string of UTF-16LE units, 4 block, all little-endian) and whole
// buffers of each of the six format versions, so that tests and the fuzzer's
// seeds do not take the library's writer as their own oracle.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <variant>
#include <vector>

namespace lxtest {

class ObjectBuffer {
 public:
  using Bytes = std::vector<unsigned char>;

  ObjectBuffer& Int(std::int32_t number) {
    bytes_.push_back(1);
    return Raw(&number, 4);
  }
  ObjectBuffer& Double(double number) {
    bytes_.push_back(2);
    return Raw(&number, 8);
  }
  // Characters above U+FFFF become surrogate pairs.
  ObjectBuffer& String(const std::wstring& text) {
    Bytes units;
    for (wchar_t ch : text) {
      const std::uint32_t code = static_cast<std::uint32_t>(ch);
      if (code >= 0x10000) {
        Unit(units, 0xD800 + ((code - 0x10000) >> 10));
        Unit(units, 0xDC00 + ((code - 0x10000) & 0x3FF));
      } else {
        Unit(units, code);
      }
    }
    bytes_.push_back(3);
    const std::uint32_t length = static_cast<std::uint32_t>(units.size());
    Raw(&length, 4);
    return Raw(units.data(), units.size());
  }
  ObjectBuffer& Block(const Bytes& block) {
    bytes_.push_back(4);
    const std::int32_t length = static_cast<std::int32_t>(block.size());
    Raw(&length, 4);
    return Raw(block.data(), block.size());
  }
  // Bytes as they stand, for damaged buffers.
  ObjectBuffer& Raw(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    bytes_.insert(bytes_.end(), bytes, bytes + size);
    return *this;
  }

  const Bytes& bytes() const { return bytes_; }
  unsigned char* data() { return bytes_.data(); }
  std::int32_t size() const { return static_cast<std::int32_t>(bytes_.size()); }

 private:
  static void Unit(Bytes& units, std::uint32_t unit) {
    units.push_back(static_cast<unsigned char>(unit & 0xFF));
    units.push_back(static_cast<unsigned char>(unit >> 8));
  }

  Bytes bytes_;
};

// One own value: `name` for versions from 20111128, `oldNumber` below it.
struct BufferValue {
  std::wstring name;
  std::int32_t oldNumber = 0;
  std::variant<std::int32_t, double, std::wstring> value;
};

struct BufferBlock {
  std::wstring name;
  std::vector<unsigned char> bytes;
};

// The content of a whole buffer, written in any of the six versions; each
// version takes the fields it has and leaves the others out.
struct ObjectContent {
  std::wstring packetName{};
  std::wstring stdSizeId{};
  std::wstring libraryId{};
  std::vector<BufferValue> values{};
  double elevation = 0.0;
  std::wstring viewName{};
  std::uint32_t viewType = 0;
  std::vector<BufferBlock> blocks{};

  ObjectBuffer Written(std::int32_t version) const {
    ObjectBuffer buffer;
    buffer.Int(version).String(packetName).String(stdSizeId);
    if (version == 20190222) buffer.String(libraryId);
    buffer.Int(static_cast<std::int32_t>(values.size()));
    for (const BufferValue& entry : values) {
      if (version >= 20111128) {
        buffer.String(entry.name);
      } else {
        buffer.Int(entry.oldNumber);
      }
      std::visit([&buffer](const auto& value) { Value(buffer, value); }, entry.value);
    }
    if (version == 20110202) buffer.Double(elevation);
    buffer.String(viewName).Int(static_cast<std::int32_t>(viewType));
    if (version >= 20160204) {
      buffer.Int(static_cast<std::int32_t>(blocks.size()));
      for (const BufferBlock& block : blocks) buffer.String(block.name).Block(block.bytes);
    }
    return buffer;
  }

 private:
  static void Value(ObjectBuffer& buffer, std::int32_t value) { buffer.Int(value); }
  static void Value(ObjectBuffer& buffer, double value) { buffer.Double(value); }
  static void Value(ObjectBuffer& buffer, const std::wstring& value) { buffer.String(value); }
};

// Every version the format has had, oldest first.
inline constexpr std::int32_t kObjectBufferVersions[] = {20110124, 20110202, 20110725,
                                                         20111128, 20160204, 20190222};

}  // namespace lxtest
