#include "platform/Digest.h"

#include <openssl/evp.h>

#include <stdexcept>

std::string Md5Hex(std::span<const unsigned char> content) {
  unsigned char digest[EVP_MAX_MD_SIZE];
  unsigned int digestLength = 0;
  if (EVP_Digest(content.data(), content.size(), digest, &digestLength, EVP_md5(), nullptr) != 1)
    throw std::runtime_error("MD5 failed");
  static const char kDigits[] = "0123456789abcdef";
  std::string text;
  text.reserve(2 * digestLength);
  for (unsigned int i = 0; i < digestLength; ++i) {
    text += kDigits[digest[i] >> 4];
    text += kDigits[digest[i] & 0x0F];
  }
  return text;
}
