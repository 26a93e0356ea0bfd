// How the library starts the editor tool, seen from the tool's side: a test
// double of RuvDbEditor.exe beside this test records every command line it
// receives and exits with the code each test gives it. The real tool is
// nowhere near this test's folder.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "ChildProcess.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "platform/TextCodec.h"

namespace {

using lxtest::Backslashed;
using lxtest::Captured;
using Received = std::vector<std::vector<std::string>>;

class ToolDouble : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("LX_FAKE_EDITOR_LOG", Log().c_str(), 1);
    for (const char* option : kExitVariables) unsetenv(option);
    std::filesystem::create_directories(database_.parent_path());
    std::ofstream(database_) << "the double never reads it";
  }
  void TearDown() override {
    unsetenv("LX_FAKE_EDITOR_LOG");
    for (const char* option : kExitVariables) unsetenv(option);
  }

  std::string Log() const { return (folder_.path() / "received.log").string(); }

  // Each run of the double: program, then arguments.
  Received Runs() const {
    Received runs;
    std::ifstream in(Log());
    for (std::string line; std::getline(in, line);) {
      std::vector<std::string> words;
      std::istringstream fields(line);
      for (std::string word; std::getline(fields, word, '\t');) words.push_back(word);
      runs.push_back(words);
    }
    return runs;
  }

  static std::string Tool() { return lxtest::BesideThisProgram("RuvDbEditor.exe"); }

  std::wstring Path() const { return Utf8ToWide(database_.string()); }

  static constexpr const char* kExitVariables[] = {"LX_FAKE_EDITOR_EXIT_UPDATE_ODS", "LX_FAKE_EDITOR_EXIT_UPDATE_SCHEMA",
                                                   "LX_FAKE_EDITOR_EXIT_UPDATE_ULB",
                                                   "LX_FAKE_EDITOR_EXIT_SET_DATABASE_READONLY"};

  lxtest::TempDir folder_;
  std::filesystem::path database_ = folder_.path() / "Папка с пробелом" / "catalog.fdb";
};

TEST_F(ToolDouble, UpdateDatabaseRunsStructureThenSchemaWithBackslashedPaths) {
  auto [updated, writes] = Captured([&] { return lxUpdateDatabase(Path().c_str()); });
  EXPECT_TRUE(updated);
  EXPECT_TRUE(writes.empty());
  EXPECT_EQ(Runs(), (Received{{Tool(), "--update-ods", Backslashed(database_)},
                              {Tool(), "--update-schema", Backslashed(database_)}}));
}

// A failing structure update stops before the schema update; a failing
// schema update fails the whole.
TEST_F(ToolDouble, AFailingStepFailsUpdateDatabase) {
  setenv("LX_FAKE_EDITOR_EXIT_UPDATE_ODS", "3", 1);
  auto [updated, writes] = Captured([&] { return lxUpdateDatabase(Path().c_str()); });
  EXPECT_FALSE(updated);
  EXPECT_TRUE(writes.empty());
  EXPECT_EQ(Runs(), (Received{{Tool(), "--update-ods", Backslashed(database_)}}));
  unsetenv("LX_FAKE_EDITOR_EXIT_UPDATE_ODS");
  setenv("LX_FAKE_EDITOR_EXIT_UPDATE_SCHEMA", "1", 1);
  EXPECT_FALSE(lxUpdateDatabase(Path().c_str()));
  EXPECT_EQ(Runs().size(), 3u);
}

TEST_F(ToolDouble, ReadOnlyPassesTheStateAsAWordAndUpdateUlbTheModule) {
  EXPECT_TRUE(lxSetDatabaseReadonly(Path().c_str(), false));
  EXPECT_TRUE(lxSetDatabaseReadonly(Path().c_str(), true));
  EXPECT_TRUE(lxUpdateUlb(Path().c_str()));
  EXPECT_EQ(Runs(), (Received{{Tool(), "--set-database-readonly", Backslashed(database_), "false"},
                              {Tool(), "--set-database-readonly", Backslashed(database_), "true"},
                              {Tool(), "--update-ulb", Backslashed(database_)}}));
}

TEST_F(ToolDouble, EveryNonZeroExitCodeIsAQuietFailure) {
  for (const char* code : {"1", "2", "42", "255"}) {
    setenv("LX_FAKE_EDITOR_EXIT_SET_DATABASE_READONLY", code, 1);
    setenv("LX_FAKE_EDITOR_EXIT_UPDATE_ULB", code, 1);
    auto [readOnly, writes] = Captured([&] { return lxSetDatabaseReadonly(Path().c_str(), true); });
    EXPECT_FALSE(readOnly) << code;
    EXPECT_TRUE(writes.empty()) << code;
    EXPECT_FALSE(lxUpdateUlb(Path().c_str())) << code;
  }
  EXPECT_EQ(Runs().size(), 8u);
}

TEST_F(ToolDouble, AMissingFileStartsNoProcess) {
  const std::wstring missing = Utf8ToWide((folder_.path() / "missing.fdb").string());
  auto [updated, writes] = Captured([&] { return lxUpdateDatabase(missing.c_str()); });
  EXPECT_FALSE(updated);
  EXPECT_TRUE(writes.empty());
  EXPECT_FALSE(lxUpdateUlb(missing.c_str()));
  EXPECT_FALSE(lxSetDatabaseReadonly(missing.c_str(), true));
  EXPECT_FALSE(std::filesystem::exists(Log()));
}

}  // namespace
