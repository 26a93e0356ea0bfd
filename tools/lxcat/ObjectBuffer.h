#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What a saved placed object holds, read from its bytes. The interface gives
// a client the packet, size and library of a buffer but neither its version
// nor the names of its own and binary values, so lxcat reads the tagged
// format itself, as leniently as the library loads it: what cannot be read
// is left out, never an error.
namespace lxcat {

// Versions before this name their own values by old number.
inline constexpr uint32_t kOwnValuesByName = 20111128;

struct BufferValue {
  int8_t kind = 0;  // 1 integer, 2 double, 3 string, 0 unreadable
  int32_t integer = 0;
  double number = 0;
  std::wstring text;
};

struct OwnValue {
  std::wstring name;  // by name from version 20111128
  int32_t oldNumber = 0;  // by number before it
  BufferValue value;
};

struct BinaryValue {
  std::wstring name;
  size_t bytes = 0;
};

struct DecodedObject {
  uint32_t version = 0;  // 0 for a buffer without one
  bool knownVersion = false;
  std::wstring packet;
  std::wstring size;
  std::wstring library;
  std::vector<OwnValue> ownValues;
  std::optional<double> elevation;
  std::wstring viewName;
  int32_t viewType = 0;
  std::vector<BinaryValue> binaryValues;
};

DecodedObject DecodeObjectBuffer(const std::vector<unsigned char>& bytes);

}  // namespace lxcat
