// Where the library and the host live, and the temporary folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/ModulePaths.h"
#include "platform/TempFolder.h"
#include "platform/TextCodec.h"

namespace {

TEST(ModulePaths, DirectoryIsCutAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(DirectoryOf(L"/opt/app/lib.so"), L"/opt/app");
  EXPECT_EQ(DirectoryOf(LR"(C:\app\bin\x.dll)"), LR"(C:\app\bin)");
  EXPECT_EQ(DirectoryOf(LR"(/mixed\sep/file)"), LR"(/mixed\sep)");
  EXPECT_EQ(DirectoryOf(L"/file"), L"");
  EXPECT_EQ(DirectoryOf(L"file"), L"");
}

TEST(ModulePaths, LibraryFileContainsThisCode) {
  // The test links the library's objects into its own executable, so the
  // module that holds the code is the test program itself.
  const std::filesystem::path self = std::filesystem::canonical("/proc/self/exe");
  EXPECT_EQ(std::filesystem::canonical(WideToUtf8(LibraryFilePath())), self);
}

// Sets or clears an environment variable for one scope.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    if (value) setenv(name, value, 1); else unsetenv(name);
  }
  ~ScopedEnv() {
    if (old_) setenv(name_, old_->c_str(), 1); else unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(TempFolder, TmpThenTmpdirThenSlashTmp) {
  {
    ScopedEnv tmp("TMP", "/first"), tmpdir("TMPDIR", "/second");
    EXPECT_EQ(TempFolder(), L"/first");
  }
  {
    ScopedEnv tmp("TMP", nullptr), tmpdir("TMPDIR", "/second");
    EXPECT_EQ(TempFolder(), L"/second");
  }
  {
    ScopedEnv tmp("TMP", ""), tmpdir("TMPDIR", nullptr);
    EXPECT_EQ(TempFolder(), L"/tmp");
  }
}

}  // namespace
