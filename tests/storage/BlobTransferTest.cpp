// The stored form of content and whole blobs in and out of a real catalog:
// what any LZO1Y decompressor must be able to read, what the library hands
// back unchanged when it cannot read it, and how blobs are cut into segments.
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "TestCatalog.h"
#include "content/ByteData.h"
#include "storage/BlobTransfer.h"
#include "storage/ibpp/Exception.h"

namespace lxtest {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes Random(std::size_t size, unsigned seed) {
  std::mt19937 generator(seed);
  Bytes bytes(size);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(generator());
  return bytes;
}

Bytes Repeated(const std::string& text, int times) {
  Bytes bytes;
  for (int i = 0; i < times; ++i) bytes.insert(bytes.end(), text.begin(), text.end());
  return bytes;
}

Bytes BytesOf(const ByteData& data) { return Bytes(data.Data(), data.Data() + data.Size()); }

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

class BlobColumns : public ::testing::Test {
 protected:
  BlobColumns() : scope_(catalog_.Provider()) {}

  // A FRAGMENT row whose thumbnail holds the bytes as they are; its
  // FRAGMENT column stays NULL.
  std::int32_t Stored(const Bytes& bytes) {
    IBPP::Blob blob = scope_.NewBlob();
    WriteWholeBlob(blob, bytes);
    IBPP::Statement statement = scope_.NewStatement();
    statement.Prepare("INSERT INTO FRAGMENT (THUMBNAIL) VALUES (?) RETURNING ID");
    statement.Set(1, blob);
    statement.Execute();
    std::int32_t id = 0;
    statement.Get(1, id);
    return id;
  }

  // LoadBlobColumn over the column of the row.
  ByteDataPtr Loaded(std::int32_t id, const char* column) {
    IBPP::Statement statement = scope_.NewStatement();
    statement.Execute(std::string("SELECT ") + column + " FROM FRAGMENT WHERE ID = " + std::to_string(id));
    EXPECT_TRUE(statement.Fetch());
    IBPP::Blob blob = scope_.NewBlob();
    return LoadBlobColumn(statement, 1, blob);
  }

  TestCatalog catalog_;
  SqlScope scope_;
};

TEST_F(BlobColumns, AreWrittenInSegmentsOfAtMost32767Bytes) {
  const Bytes bytes = Random(40000, 1);
  const std::int32_t id = Stored(bytes);
  IBPP::Statement statement = scope_.NewStatement();
  statement.Execute("SELECT THUMBNAIL FROM FRAGMENT WHERE ID = " + std::to_string(id));
  ASSERT_TRUE(statement.Fetch());
  IBPP::Blob blob = scope_.NewBlob();
  statement.Get(1, blob);
  blob.Open();
  std::array<int, 3> shape{};
  blob.Info(&shape[0], &shape[1], &shape[2]);
  blob.Close();
  EXPECT_EQ(shape, (std::array{40000, 32767, 2}));
  EXPECT_EQ(ReadWholeBlob(blob), bytes);
}

TEST_F(BlobColumns, LoadGivesNoDataForAnEmptyBlobAndTheStoredBytesWhenTheyCannotBeUnpacked) {
  EXPECT_EQ(Loaded(Stored({}), "THUMBNAIL"), nullptr);

  const Bytes negative{0xFE, 0xFF, 0xFF, 0xFF, 1, 2, 3};
  ByteDataPtr data = Loaded(Stored(negative), "THUMBNAIL");
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(BytesOf(*data), negative);

  ByteData content(reinterpret_cast<const unsigned char*>("content"), 7);
  content.Compress();
  data = Loaded(Stored(BytesOf(content)), "THUMBNAIL");
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(std::string(data->Data(), data->Data() + data->Size()), "content");

  // A NULL column has no blob to open.
  EXPECT_THROW(Loaded(Stored({1}), "FRAGMENT"), IBPP::Exception);
}

}  // namespace
}  // namespace lxtest
