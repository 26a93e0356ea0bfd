// One command-line text into arguments, as a Windows program would read it.
#include <gtest/gtest.h>

#include "platform/CommandLine.h"

using Args = std::vector<std::wstring>;

namespace {

TEST(CommandLine, SplitsLikeAWindowsProgram) {
  struct Case {
    const wchar_t* line;
    Args args;
  };
  const Case cases[] = {
      {LR"(\opt\app\RuvDbEditor.exe --update-ods "\tmp\base one.fdb")",
       {LR"(\opt\app\RuvDbEditor.exe)", L"--update-ods", LR"(\tmp\base one.fdb)"}},
      {LR"(tool --set-database-readonly "C:\db.fdb" false)", {L"tool", L"--set-database-readonly", LR"(C:\db.fdb)", L"false"}},
      {LR"("C:\Program Files\tool.exe" x)", {LR"(C:\Program Files\tool.exe)", L"x"}},
      {LR"(p a\\\"b)", {L"p", LR"(a\"b)"}}, {LR"(p "a\\" b)", {L"p", LR"(a\)", L"b"}},
      {LR"(p a\\b c\d)", {L"p", LR"(a\\b)", LR"(c\d)"}}, {LR"(p "say ""hi""")", {L"p", LR"(say "hi")"}},
      {L"  p \t a   b  ", {L"p", L"a", L"b"}}, {LR"(p "")", {L"p", L""}},
      {LR"(p "unclosed arg)", {L"p", L"unclosed arg"}},
      {LR"(p a"b c"d)", {L"p", L"ab cd"}},
      {LR"(C:\dir\"odd" x)", {LR"(C:\dir\"odd")", L"x"}},
      {L"", {}}, {L"   ", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(SplitCommandLine(c.line), c.args) << c.line;
}

}  // namespace
