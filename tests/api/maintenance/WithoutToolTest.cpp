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
using lxtest::Quietly;

TEST(WithoutTool, TheToolExportsFailQuietlyOnAnExistingCatalog) {
  ASSERT_FALSE(std::filesystem::exists(lxtest::BesideThisProgram("RuvDbEditor.exe")));
  lxtest::TempDir folder;
  const std::wstring catalog = Utf8ToWide((folder.path() / "catalog.fdb").string());
  ASSERT_TRUE(lxCreateEmptyFDB(catalog.c_str()));

  EXPECT_EQ(Captured([&] { return lxUpdateDatabase(catalog.c_str()); }), Quietly(false));
  EXPECT_EQ(Captured([&] { return lxUpdateUlb(catalog.c_str()); }), Quietly(false));
  EXPECT_EQ(Captured([&] { return lxSetDatabaseReadonly(catalog.c_str(), true); }), Quietly(false));
}

}  // namespace
