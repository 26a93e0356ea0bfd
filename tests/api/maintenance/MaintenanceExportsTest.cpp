// The three exports that start the editor tool, with the real tool beside
// this test: its exit codes reach the exports' results, and what it does is
// seen by the data provider's writability probe and in the catalog's
// schema. Also the probe on a catalog file the process may not write.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "ChildProcess.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "TestCatalog.h"
#include "platform/TextCodec.h"

namespace {

using lxtest::Captured;
using lxtest::EmbeddedCatalog;
using lxtest::Writes;

// The tool's own reason may reach the captured standard error; the library
// itself must have written nothing.
bool LibraryWasSilent(const Writes& writes) {
  for (const std::string& write : writes) {
    if (write.rfind(">LxDataAcces: ", 0) == 0) return false;
  }
  return true;
}

std::wstring Wide(const std::filesystem::path& path) { return Utf8ToWide(path.string()); }

// The catalog that lxCreateEmptyFDB wrote opens through the library.
TEST(ReadOnlyExport, RoundTripSeenByTheWritabilityProbe) {
  EmbeddedCatalog catalog;
  LxDataProvider* provider = catalog.Attached();
  ASSERT_NE(provider, nullptr);
  EXPECT_TRUE(provider_IsEditable(provider));

  EXPECT_TRUE(lxSetDatabaseReadonly(catalog.Path().c_str(), true));
  auto [editable, writes] = Captured([&] { return provider_IsEditable(provider); });
  EXPECT_FALSE(editable);
  EXPECT_TRUE(writes.empty());
  // Reading still works on a read-only catalog.
  EXPECT_STREQ(provider_GetParam(provider, L"VERSION", L""), L"1");

  EXPECT_TRUE(lxSetDatabaseReadonly(catalog.Path().c_str(), false));
  EXPECT_TRUE(provider_IsEditable(provider));
}

// An up-to-date catalog stays as it is run after run; an older one gets
// back what it lacks.
TEST(UpdateDatabaseExport, BringsACatalogUpToDate) {
  EmbeddedCatalog catalog;
  const std::vector<std::string> schema = catalog.Sql().Schema();
  auto [updated, writes] = Captured([&] { return lxUpdateDatabase(catalog.Path().c_str()); });
  EXPECT_TRUE(updated);
  EXPECT_TRUE(writes.empty());
  EXPECT_TRUE(lxUpdateDatabase(catalog.Path().c_str()));
  EXPECT_EQ(catalog.Sql().Schema(), schema);

  for (const wchar_t* statement : {L"ALTER TABLE MODEL DROP ORIENTATION", L"ALTER TABLE OBJECT DROP CONSTRAINT INTEG_81",
                                   L"ALTER TABLE OBJECTATTRIBUTE DROP CONSTRAINT INTEG_82",
                                   L"DROP TABLE TEMPLATEATTRIBUTE", L"DROP TABLE TEMPLATEGROUP", L"DROP TABLE TEMPLATE",
                                   L"DROP TABLE ATTRIBUTEGROUP", L"ALTER TABLE OBJECT DROP TEMPLATEID",
                                   L"ALTER TABLE OBJECTATTRIBUTE DROP ATTRIBUTEGROUPID",
                                   L"DROP PROCEDURE CREATE_ATTR_VAL"}) {
    catalog.Sql().Execute(statement);
  }
  ASSERT_NE(catalog.Sql().Schema(), schema);
  EXPECT_TRUE(lxUpdateDatabase(catalog.Path().c_str()));
  EXPECT_EQ(catalog.Sql().Schema(), schema);
}

TEST(ToolExports, FalseWhenTheToolFailsOrTheFileIsMissing) {
  lxtest::TempDir folder;
  const std::filesystem::path file = folder.path() / "catalog.fdb";
  std::ofstream(file) << "not a database";
  auto [updated, writes] = Captured([&] { return lxUpdateDatabase(Wide(file).c_str()); });
  EXPECT_FALSE(updated);
  EXPECT_TRUE(LibraryWasSilent(writes));
  auto [readOnly, readOnlyWrites] = Captured([&] { return lxSetDatabaseReadonly(Wide(file).c_str(), true); });
  EXPECT_FALSE(readOnly);
  EXPECT_TRUE(LibraryWasSilent(readOnlyWrites));

  auto [missing, missingWrites] = Captured([&] { return lxUpdateDatabase(Wide(folder.path() / "no.fdb").c_str()); });
  EXPECT_FALSE(missing);
  EXPECT_TRUE(missingWrites.empty());
}

TEST(UpdateUlbExport, TrueForAReadableModuleFalseOtherwise) {
  lxtest::TempDir folder;
  const std::filesystem::path module = folder.path() / "Трубы.ulb";
  std::ofstream(module) << "module";
  EXPECT_TRUE(lxUpdateUlb(Wide(module).c_str()));
  // Missing: the library's own test, no tool run. A folder: the tool's.
  EXPECT_FALSE(lxUpdateUlb(Wide(folder.path() / "missing.ulb").c_str()));
  auto [folderResult, writes] = Captured([&] { return lxUpdateUlb(Wide(folder.path()).c_str()); });
  EXPECT_FALSE(folderResult);
  EXPECT_TRUE(LibraryWasSilent(writes));
}

// ---- the probe on a file this process may not write

// Root writes any file whatever its mode, so the probe runs in a helper
// process as user nobody, which owns the catalog file, with a lock folder of
// its own. A provider is made while the file is writable: the engine
// refuses to attach a file it may not write at all ("no permission for
// read-write access"), so a provider never exists on such a file from the
// start; what the probe meets is a file that became read-only later.
class ReadOnlyFileProbe : public ::testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "needs root to run the helper as another user";
    std::filesystem::permissions(catalog_.Folder(), std::filesystem::perms(0755));
    std::filesystem::permissions(catalog_.File(), std::filesystem::perms(0644));
    std::filesystem::create_directory(lock_.path() / "lock");
    std::filesystem::permissions(lock_.path(), std::filesystem::perms(0755));
    for (const std::filesystem::path& owned : {catalog_.File(), lock_.path() / "lock"}) {
      ASSERT_EQ(lxtest::RunChild("chown", {"nobody", owned.string()}).exitCode, 0);
    }
  }

  lxtest::ChildResult ProbeAsNobody(std::vector<std::string> options) {
    std::vector<std::string> arguments{"--reuid=nobody", "--regid=nogroup", "--clear-groups",
                                       LX_READ_ONLY_PROBE_HELPER, catalog_.File().string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return lxtest::RunChild("setpriv", arguments, {"FIREBIRD_LOCK=" + (lock_.path() / "lock").string()});
  }

  EmbeddedCatalog catalog_;
  lxtest::TempDir lock_;
};

TEST_F(ReadOnlyFileProbe, AFileTheUserMayWriteIsEditable) {
  const lxtest::ChildResult run = ProbeAsNobody({});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out, "attached 1 editable 1\n");
  EXPECT_EQ(run.err, "");
}

TEST_F(ReadOnlyFileProbe, AFileThatBecameReadOnlyIsNotEditableAndTheProbeIsSilent) {
  const lxtest::ChildResult run = ProbeAsNobody({"--read-only-after-attach"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out, "attached 1 editable 0\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(std::filesystem::status(catalog_.File()).permissions(), std::filesystem::perms(0444));
}

// What a caller meets first on such a file: the provider cannot be made,
// with the engine's reason in the frame's message.
TEST_F(ReadOnlyFileProbe, AFileThatIsReadOnlyFromTheStartCannotBeAttached) {
  std::filesystem::permissions(catalog_.File(), std::filesystem::perms(0444));
  const lxtest::ChildResult run = ProbeAsNobody({});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out, "attached 0 editable 0\n");
  EXPECT_NE(run.err.find("(fun: pool_AddProvider)"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("no permission for read-write access"), std::string::npos) << run.err;
}

}  // namespace
