// Starting a program by its command line and reading its exit code.
#include <gtest/gtest.h>

#include <fstream>

#include "TempDir.h"
#include "platform/Process.h"

namespace {

TEST(Process, ExitCodeComesBack) {
  EXPECT_EQ(RunAndWait(LR"(/bin/sh -c "exit 0")"), 0);
  EXPECT_EQ(RunAndWait(LR"(/bin/sh -c "exit 3")"), 3);
  EXPECT_EQ(RunAndWait(LR"(/bin/sh -c "kill -TERM $$")"), 128 + 15);
  // Backslashes in the program's path are separators.
  EXPECT_EQ(RunAndWait(LR"(\bin\sh -c "exit 4")"), 4);
  // A program that cannot start has no exit code.
  EXPECT_EQ(RunAndWait(L"/no/such/program --flag"), std::nullopt);
  EXPECT_EQ(RunAndWait(L""), std::nullopt);
}

TEST(Process, ArgumentsArriveAsSplit) {
  lxtest::TempDir dir;
  const std::string out = (dir.path() / "args.txt").string();
  const std::wstring line = L"/bin/sh -c \"printf '%s|' \\\"$@\\\" > " + std::wstring(out.begin(), out.end()) +
                            L"\" sh \"two words\" back\\slash";
  ASSERT_EQ(RunAndWait(line), 0);
  std::ifstream file(out);
  std::string written;
  std::getline(file, written);
  EXPECT_EQ(written, R"(two words|back\slash|)");
}

}  // namespace
