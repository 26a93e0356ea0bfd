#include "tools/lxcat/ObjectBuffer.h"

#include <cstring>

namespace lxcat {
namespace {

constexpr uint32_t kWithElevation = 20110202;
constexpr uint32_t kWithBinaryValues = 20160204;
constexpr uint32_t kWithLibrary = 20190222;
constexpr uint32_t kVersions[] = {20110124, 20110202, 20110725, 20111128, 20160204, 20190222};

enum Tag : unsigned char { kInteger = 1, kDouble = 2, kString = 3, kBlock = 4 };

// Reads elements as the library does: an element whose tag or room is
// missing yields nothing and leaves the position; a string or block longer
// than what is left yields nothing but moves past its length field.
class Reader {
 public:
  explicit Reader(const std::vector<unsigned char>& bytes) : bytes_(bytes) {}

  std::optional<int32_t> Integer() {
    if (!Tagged(kInteger, 5)) return std::nullopt;
    int32_t value;
    std::memcpy(&value, &bytes_[at_ + 1], 4);
    at_ += 5;
    return value;
  }
  std::optional<double> Double() {
    if (!Tagged(kDouble, 9)) return std::nullopt;
    double value;
    std::memcpy(&value, &bytes_[at_ + 1], 8);
    at_ += 9;
    return value;
  }
  std::wstring String() {
    const auto length = Length(kString);
    std::wstring text;
    if (!length) return text;
    for (size_t i = 0; i + 1 < *length; i += 2) text += static_cast<wchar_t>(bytes_[at_ + i] | bytes_[at_ + i + 1] << 8);
    at_ += *length;
    return text;
  }
  size_t Block() {
    const auto length = Length(kBlock);
    if (!length) return 0;
    at_ += *length;
    return *length;
  }
  size_t Position() const { return at_; }

  BufferValue Value() {
    BufferValue value;
    if (at_ >= bytes_.size()) return value;
    switch (bytes_[at_]) {
      case kInteger:
        if (auto integer = Integer()) value.integer = *integer, value.kind = kInteger;
        break;
      case kDouble:
        if (auto number = Double()) value.number = *number, value.kind = kDouble;
        break;
      case kString:
        if (Tagged(kString, 5)) value.text = String(), value.kind = kString;
        break;
      default: break;
    }
    return value;
  }

 private:
  bool Tagged(unsigned char tag, size_t room) const {
    return bytes_.size() - at_ >= room && at_ < bytes_.size() && bytes_[at_] == tag;
  }
  // The length behind a string or block tag, when the bytes are all there.
  std::optional<size_t> Length(unsigned char tag) {
    if (!Tagged(tag, 5)) return std::nullopt;
    uint32_t length;
    std::memcpy(&length, &bytes_[at_ + 1], 4);
    at_ += 5;
    if (length > bytes_.size() - at_) return std::nullopt;
    return length;
  }

  const std::vector<unsigned char>& bytes_;
  size_t at_ = 0;
};

}  // namespace

DecodedObject DecodeObjectBuffer(const std::vector<unsigned char>& bytes) {
  DecodedObject object;
  Reader reader(bytes);
  if (bytes.size() > 4 && bytes[0] == kInteger) object.version = static_cast<uint32_t>(reader.Integer().value_or(0));
  for (uint32_t version : kVersions) object.knownVersion |= version == object.version;
  object.packet = reader.String();
  object.size = reader.String();
  if (!object.knownVersion) return object;
  if (object.version == kWithLibrary) object.library = reader.String();
  const int32_t count = reader.Integer().value_or(0);
  // A damaged count may promise billions; the entries end with the bytes.
  for (int32_t i = 0; i < count; ++i) {
    const size_t start = reader.Position();
    OwnValue own;
    if (object.version < kOwnValuesByName) {
      own.oldNumber = reader.Integer().value_or(0);
    } else {
      own.name = reader.String();
    }
    own.value = reader.Value();
    object.ownValues.push_back(std::move(own));
    if (reader.Position() == start) break;
  }
  if (object.version == kWithElevation) object.elevation = reader.Double().value_or(0.0);
  object.viewName = reader.String();
  object.viewType = reader.Integer().value_or(0);
  if (object.version < kWithBinaryValues) return object;
  const int32_t binaries = reader.Integer().value_or(0);
  for (int32_t i = 0; i < binaries; ++i) {
    const size_t start = reader.Position();
    BinaryValue binary{reader.String()};
    binary.bytes = reader.Block();
    object.binaryValues.push_back(std::move(binary));
    if (reader.Position() == start) break;
  }
  return object;
}

}  // namespace lxcat
