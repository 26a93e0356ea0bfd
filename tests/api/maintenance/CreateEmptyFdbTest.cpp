// lxCreateEmptyFDB: the library's own empty catalog written to a file,
// byte for byte, wherever the caller asks, but never over a database that
// an engine has open.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "DebugOutput.h"
#include "EmbeddedCatalog.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"
#include "storage/ibpp/IBPP.h"

namespace {

using lxtest::Captured;
using lxtest::FlushText;
using lxtest::Writes;

std::vector<unsigned char> Bytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<unsigned char> Image() {
  const auto image = EmptyCatalogImage();
  return {image.begin(), image.end()};
}

std::wstring Wide(const std::filesystem::path& path) { return Utf8ToWide(path.string()); }

TEST(CreateEmptyFdb, WritesTheImageByteForByteMakingMissingFolders) {
  lxtest::TempDir folder;
  const std::filesystem::path file = folder.path() / "one" / "два" / "three" / "catalog.fdb";
  auto [created, writes] = Captured([&] { return lxCreateEmptyFDB(Wide(file).c_str()); });
  EXPECT_TRUE(created);
  EXPECT_TRUE(writes.empty());
  ASSERT_FALSE(Image().empty());
  EXPECT_EQ(Bytes(file), Image());
}

TEST(CreateEmptyFdb, ReplacesAnExistingLargerFileEntirely) {
  lxtest::TempDir folder;
  const std::filesystem::path file = folder.path() / "catalog.fdb";
  {
    std::ofstream old(file, std::ios::binary);
    old << std::string(Image().size() + 12345, 'x');
  }
  EXPECT_TRUE(lxCreateEmptyFDB(Wide(file).c_str()));
  EXPECT_EQ(Bytes(file), Image());
}

TEST(CreateEmptyFdb, NullPathIsAQuietFailure) {
  auto [created, writes] = Captured([] { return lxCreateEmptyFDB(nullptr); });
  EXPECT_FALSE(created);
  EXPECT_TRUE(writes.empty());
}

// The engine takes an exclusive flock on every database it opens (Super
// mode), which is what the export tests for before it cuts a file.
TEST(CreateEmptyFdb, RefusesADatabaseThatAnAttachmentHoldsAndLeavesItWhole) {
  lxtest::EmbeddedCatalog catalog;
  catalog.Sql().Execute(L"INSERT INTO FOLDER (NAME) VALUES ('Остаётся')");
  const std::vector<unsigned char> before = Bytes(catalog.File());
  {
    IBPP::Database holder("", catalog.File().string(), "SYSDBA", "", "", "", "");
    holder.Connect();
    auto [created, writes] = Captured([&] { return lxCreateEmptyFDB(catalog.Path().c_str()); });
    EXPECT_FALSE(created);
    EXPECT_TRUE(writes.empty());
    holder.Disconnect();
  }
  EXPECT_EQ(catalog.Sql().Int(L"SELECT COUNT(*) FROM FOLDER WHERE NAME = 'Остаётся'"), 1);
  // Once nobody holds it, the same call replaces it.
  EXPECT_TRUE(lxCreateEmptyFDB(catalog.Path().c_str()));
  EXPECT_EQ(Bytes(catalog.File()), Image());
  EXPECT_NE(before, Image());
}

TEST(CreateEmptyFdb, AFolderThatCannotBeMadeIsTheFramesFileSystemFailure) {
  lxtest::TempDir folder;
  const std::filesystem::path blocker = folder.path() / "not-a-folder";
  std::ofstream(blocker) << "a file where a folder should be";
  const std::wstring path = Wide(blocker / "below" / "catalog.fdb");
  auto [created, writes] = Captured([&] { return lxCreateEmptyFDB(path.c_str()); });
  EXPECT_FALSE(created);
  EXPECT_EQ(writes, Writes{FlushText({" (fun: lxCreateEmptyFDB) Неизвестное исключение"})});
}

// The parent is there, only it is no folder: nothing to create, and the
// file cannot be opened, which is the quiet failure.
TEST(CreateEmptyFdb, AFileThatCannotBeOpenedIsAQuietFailure) {
  lxtest::TempDir folder;
  const std::filesystem::path blocker = folder.path() / "not-a-folder";
  std::ofstream(blocker) << "a file where a folder should be";
  auto [created, writes] = Captured([&] { return lxCreateEmptyFDB(Wide(blocker / "catalog.fdb").c_str()); });
  EXPECT_FALSE(created);
  EXPECT_TRUE(writes.empty());
  auto [onFolder, folderWrites] = Captured([&] { return lxCreateEmptyFDB(Wide(folder.path()).c_str()); });
  EXPECT_FALSE(onFolder);
  EXPECT_TRUE(folderWrites.empty());
}

TEST(CreateEmptyFdb, TheWrittenCatalogOpensThroughTheLibrary) {
  lxtest::EmbeddedCatalog catalog;
  LxDataProvider* provider = catalog.Provider();
  ASSERT_NE(provider, nullptr);
  EXPECT_STREQ(provider_GetParam(provider, L"VERSION", L""), L"1");
  EXPECT_TRUE(provider_IsEditable(provider));
}

}  // namespace
