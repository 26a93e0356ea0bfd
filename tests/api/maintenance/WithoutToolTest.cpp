// With no RuvDbEditor.exe beside the host executable, the three exports
// that need it fail quietly; writing an empty catalog needs no tool.
#include <gtest/gtest.h>

#include <filesystem>

#include "ChildProcess.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "platform/TextCodec.h"

namespace {

using lxtest::Captured;

TEST(WithoutTool, TheToolExportsFailQuietlyOnAnExistingCatalog) {
  ASSERT_FALSE(std::filesystem::exists(lxtest::BesideThisProgram("RuvDbEditor.exe")));
  lxtest::TempDir folder;
  const std::wstring catalog = Utf8ToWide((folder.path() / "catalog.fdb").string());
  ASSERT_TRUE(lxCreateEmptyFDB(catalog.c_str()));

  auto [updated, updateWrites] = Captured([&] { return lxUpdateDatabase(catalog.c_str()); });
  EXPECT_FALSE(updated);
  EXPECT_TRUE(updateWrites.empty());
  auto [ulb, ulbWrites] = Captured([&] { return lxUpdateUlb(catalog.c_str()); });
  EXPECT_FALSE(ulb);
  EXPECT_TRUE(ulbWrites.empty());
  auto [readOnly, readOnlyWrites] = Captured([&] { return lxSetDatabaseReadonly(catalog.c_str(), true); });
  EXPECT_FALSE(readOnly);
  EXPECT_TRUE(readOnlyWrites.empty());
}

}  // namespace
