// Whole blobs in and out of a real catalog: how they are cut into segments,
// and what a stored column gives when it holds no data or bytes that cannot
// be unpacked.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"
#include "TestCatalog.h"
#include "content/ByteData.h"
#include "storage/BlobTransfer.h"
#include "storage/ibpp/Exception.h"

namespace lxtest {
namespace {

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
