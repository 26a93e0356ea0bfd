// lxCreateEmptyFDB: the library's own empty catalog written to a file,
// byte for byte, wherever the caller asks, but never over a database that
// an engine has open.
#include <gtest/gtest.h>

#include <filesystem>

#include "ChildProcess.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "TestCatalog.h"
#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"
#include "storage/ibpp/IBPP.h"

namespace {

using lxtest::Captured;
using lxtest::Quietly;
using lxtest::FlushText;
using lxtest::ReadWhole;
using lxtest::Writes;

std::string Image() {
  const auto image = EmptyCatalogImage();
  return {image.begin(), image.end()};
}

std::wstring Wide(const std::filesystem::path& path) { return Utf8ToWide(path.string()); }

TEST(CreateEmptyFdb, WritesTheImageByteForByteMakingMissingFoldersAndReplacingAnyFile) {
  lxtest::TempDir folder;
  const std::filesystem::path file = folder.path() / "one" / "два" / "three" / "catalog.fdb";
  EXPECT_EQ(Captured([&] { return lxCreateEmptyFDB(Wide(file).c_str()); }), Quietly(true));
  ASSERT_FALSE(Image().empty());
  EXPECT_EQ(ReadWhole(file), Image());

  lxtest::WriteWhole(file, std::string(Image().size() + 12345, 'x'));
  EXPECT_TRUE(lxCreateEmptyFDB(Wide(file).c_str()));
  EXPECT_EQ(ReadWhole(file), Image());
}

// The engine takes an exclusive flock on every database it opens (Super
// mode), which is what the export tests for before it cuts a file.
TEST(CreateEmptyFdb, RefusesADatabaseThatAnAttachmentHoldsAndLeavesItWhole) {
  lxtest::EmbeddedCatalog catalog;
  catalog.Sql().Execute(L"INSERT INTO FOLDER (NAME) VALUES ('Остаётся')");
  {
    IBPP::Database holder("", catalog.File().string(), "SYSDBA", "", "", "", "");
    holder.Connect();
    EXPECT_EQ(Captured([&] { return lxCreateEmptyFDB(catalog.Path().c_str()); }), Quietly(false));
    holder.Disconnect();
  }
  EXPECT_EQ(catalog.Sql().Int(L"SELECT COUNT(*) FROM FOLDER WHERE NAME = 'Остаётся'"), 1);
  // Once nobody holds it, the same call replaces it.
  EXPECT_TRUE(lxCreateEmptyFDB(catalog.Path().c_str()));
  EXPECT_EQ(ReadWhole(catalog.File()), Image());
}

// A file where a folder should be: below it no folder can be made, which is
// the frame's file system failure; in it (the parent is there, only it is no
// folder) nothing needs making and the file cannot be opened, which is the
// quiet failure, as are a path that names a folder and no path at all.
TEST(CreateEmptyFdb, PathsThatCannotBeWrittenFail) {
  lxtest::TempDir folder;
  const std::filesystem::path blocker = folder.path() / "not-a-folder";
  lxtest::WriteWhole(blocker, "a file where a folder should be");
  auto [below, belowWrites] = Captured([&] { return lxCreateEmptyFDB(Wide(blocker / "below" / "catalog.fdb").c_str()); });
  EXPECT_FALSE(below);
  EXPECT_EQ(belowWrites, Writes{FlushText({" (fun: lxCreateEmptyFDB) Неизвестное исключение"})});
  EXPECT_EQ(Captured([&] { return lxCreateEmptyFDB(Wide(blocker / "catalog.fdb").c_str()); }), Quietly(false));
  EXPECT_EQ(Captured([&] { return lxCreateEmptyFDB(Wide(folder.path()).c_str()); }), Quietly(false));
  EXPECT_EQ(Captured([] { return lxCreateEmptyFDB(nullptr); }), Quietly(false));
}

}  // namespace
