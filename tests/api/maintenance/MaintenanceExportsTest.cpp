// The three exports that start the editor tool, with the real tool beside
// this test: what it does is seen by the data provider's writability probe
// and in the catalog's schema. (Its exit codes on a file that is no database
// are EditorToolTest's; how a failing exit code or a missing file reaches
// the exports' results is ToolDoubleTest's.) Also the probe on a catalog file the process may not write.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "CatalogFixture.h"
#include "ChildProcess.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "TestCatalog.h"

namespace {

using lxtest::Captured;
using lxtest::Quietly;
using lxtest::EmbeddedCatalog;

// The catalog that lxCreateEmptyFDB wrote, attached through the library.
// Embedded: the tool works embedded.
class RealToolExports : public lxtest::CatalogFixture {};

// An up-to-date catalog stays as it is run after run (what an older one
// gets back is the tool's work, EditorToolTest); the read-only state set
// and cleared is seen by the writability probe.
TEST_F(RealToolExports, UpdateLeavesAnUpToDateCatalogAndReadOnlyIsSeenByTheProbe) {
  ASSERT_NE(provider_, nullptr);
  const std::vector<std::string> schema = Sql().Schema();
  EXPECT_EQ(Captured([&] { return lxUpdateDatabase(database_.c_str()); }), Quietly(true));
  EXPECT_TRUE(lxUpdateDatabase(database_.c_str()));
  EXPECT_EQ(Sql().Schema(), schema);
  EXPECT_TRUE(provider_IsEditable(provider_));

  EXPECT_TRUE(lxSetDatabaseReadonly(database_.c_str(), true));
  EXPECT_EQ(Captured([&] { return provider_IsEditable(provider_); }), Quietly(false));
  // Reading still works on a read-only catalog.
  EXPECT_STREQ(provider_GetParam(provider_, L"VERSION", L""), L"1");

  EXPECT_TRUE(lxSetDatabaseReadonly(database_.c_str(), false));
  EXPECT_TRUE(provider_IsEditable(provider_));
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
