#include "ServiceRequest.h"

#include <limits>
#include <stdexcept>

namespace {

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

}  // namespace

ServiceRequest::ServiceRequest(unsigned char task) { bytes_ += static_cast<char>(task); }

// The whole buffer travels with a 2-byte length, and so does each text.
ServiceRequest& ServiceRequest::Text(unsigned char tag, std::string_view text) {
  constexpr std::size_t kLimit = std::numeric_limits<std::uint16_t>::max();
  if (text.size() > kLimit || bytes_.size() + 3 + text.size() > kLimit) {
    throw std::length_error("service parameter too long");
  }
  bytes_ += static_cast<char>(tag);
  AppendLittleEndian(bytes_, static_cast<std::uint32_t>(text.size()), 2);
  bytes_.append(text);
  return *this;
}

ServiceRequest& ServiceRequest::Number(unsigned char tag, std::uint32_t value) {
  bytes_ += static_cast<char>(tag);
  AppendLittleEndian(bytes_, value, 4);
  return *this;
}

ServiceRequest& ServiceRequest::Byte(unsigned char tag, unsigned char value) {
  bytes_ += static_cast<char>(tag);
  bytes_ += static_cast<char>(value);
  return *this;
}

ServiceRequest& ServiceRequest::Flag(unsigned char tag) {
  bytes_ += static_cast<char>(tag);
  return *this;
}
