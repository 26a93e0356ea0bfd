// ServiceRequest: the parameter buffer of one task for the Firebird service
// manager (backup, restore, a change of database properties). Byte layout,
// as the services API reads it: the task's code, then items, each a tag byte
// followed by
//   text:   2-byte little-endian length, then the bytes;
//   number: 4-byte little-endian value;
//   byte:   one byte;
//   flag:   nothing.
//
// A plain value; not shared between threads.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class ServiceRequest {
 public:
  explicit ServiceRequest(unsigned char task);

  ServiceRequest& Text(unsigned char tag, std::string_view text);
  ServiceRequest& Number(unsigned char tag, std::uint32_t value);
  ServiceRequest& Byte(unsigned char tag, unsigned char value);
  ServiceRequest& Flag(unsigned char tag);

  const char* Data() const { return bytes_.data(); }
  unsigned short Size() const { return static_cast<unsigned short>(bytes_.size()); }

 private:
  std::string bytes_;
};
