// Content in memory: the stored form that any LZO1Y decompressor must read,
// what is handed back unchanged when it cannot be unpacked, and the digest
// of representation data.
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"
#include "content/ByteData.h"
#include "platform/Digest.h"

namespace lxtest {
namespace {

Bytes Repeated(const std::string& text, int times) {
  Bytes bytes;
  for (int i = 0; i < times; ++i) bytes.insert(bytes.end(), text.begin(), text.end());
  return bytes;
}

// Owned bytes, as a read from a blob leaves them.
ByteDataPtr Holding(const Bytes& bytes) {
  auto data = std::make_shared<ByteData>();
  std::copy(bytes.begin(), bytes.end(), data->Allocate(static_cast<std::int32_t>(bytes.size())));
  return data;
}

TEST(StoredForm, IsTheLengthLittleEndianThenOneStreamThatLzoItselfReads) {
  ASSERT_EQ(lzo_init(), LZO_E_OK);
  // Text packs well; random bytes do not and grow, past the buffer bound a
  // smaller estimate would give.
  for (const Bytes& content : {Repeated("Болт М12 ", 3000), Random(100000, 7), Bytes{'x'}}) {
    ByteData data(content.data(), static_cast<std::int32_t>(content.size()));
    data.Compress();
    ASSERT_TRUE(data.Owned());
    const Bytes stored = BytesOf(data);
    ASSERT_GT(stored.size(), 4u);
    const std::uint32_t length = stored[0] | stored[1] << 8 | stored[2] << 16 | std::uint32_t{stored[3]} << 24;
    EXPECT_EQ(length, content.size());

    Bytes unpacked(content.size());
    lzo_uint produced = unpacked.size();
    EXPECT_EQ(lzo1y_decompress_safe(stored.data() + 4, stored.size() - 4, unpacked.data(), &produced, nullptr),
              LZO_E_OK);
    EXPECT_EQ(produced, content.size());
    EXPECT_EQ(unpacked, content);

    data.Decompress();
    EXPECT_EQ(BytesOf(data), content);
  }
}

TEST(StoredForm, WhatCannotBeUnpackedStaysAsStored) {
  ByteData packed(reinterpret_cast<const unsigned char*>("abcabcabcabc"), 12);
  packed.Compress();
  Bytes valid = BytesOf(packed);
  Bytes statedShorter = valid;
  statedShorter[0] = 5;
  const Bytes cases[] = {
      {0xFF, 0xFF, 0xFF, 0xFF, 'd', 'a', 't', 'a'},  // a negative length
      {0x10, 0, 0, 0, 0x55, 0x66, 0x77, 0x88, 0x99},  // not a stream
      statedShorter,                                  // more content than stated
      {1, 0, 0},                                      // no whole length
  };
  for (const Bytes& stored : cases) {
    ByteDataPtr data = Holding(stored);
    data->Decompress();
    EXPECT_EQ(BytesOf(*data), stored) << testing::PrintToString(stored);
  }
}

TEST(Digest, IsMd5AsLowerCaseHexadecimal) {
  const std::string abc = "abc";
  EXPECT_EQ(Md5Hex({}), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(Md5Hex({reinterpret_cast<const unsigned char*>(abc.data()), abc.size()}),
            "900150983cd24fb0d6963f7d28e17f72");
}

}  // namespace
}  // namespace lxtest
