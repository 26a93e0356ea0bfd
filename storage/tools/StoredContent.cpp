#include "storage/tools/StoredContent.h"

#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>
#include <openssl/evp.h>

#include <cstdint>
#include <stdexcept>

std::vector<unsigned char> PackStoredContent(std::span<const unsigned char> content) {
  static const int initialised = lzo_init();
  if (initialised != LZO_E_OK) throw std::runtime_error("LZO could not be initialised");

  const std::uint32_t length = static_cast<std::uint32_t>(content.size());
  // LZO's documented worst case for incompressible input, plus the prefix.
  std::vector<unsigned char> packed(4 + content.size() + content.size() / 16 + 64 + 3);
  for (int i = 0; i < 4; ++i) packed[i] = static_cast<unsigned char>(length >> (8 * i));

  std::vector<unsigned char> workMemory(LZO1Y_MEM_COMPRESS);
  lzo_uint packedLength = 0;
  if (lzo1y_1_compress(content.data(), content.size(), packed.data() + 4, &packedLength, workMemory.data()) != LZO_E_OK)
    throw std::runtime_error("LZO1Y-1 compression failed");
  packed.resize(4 + packedLength);
  return packed;
}

std::string Md5Hex(std::span<const unsigned char> content) {
  unsigned char digest[EVP_MAX_MD_SIZE];
  unsigned int digestLength = 0;
  if (EVP_Digest(content.data(), content.size(), digest, &digestLength, EVP_md5(), nullptr) != 1)
    throw std::runtime_error("MD5 failed");
  static const char kDigits[] = "0123456789abcdef";
  std::string text;
  for (unsigned int i = 0; i < digestLength; ++i) {
    text += kDigits[digest[i] >> 4];
    text += kDigits[digest[i] & 0x0F];
  }
  return text;
}
