// Parts of lxcat that its output cannot show when a test runs it as a child:
// the progress bar, which draws only on a terminal, and how a catalog text
// splits into server and path.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tools/lxcat/CatalogSession.h"
#include "tools/lxcat/ProgressBar.h"

namespace lxtest {
namespace {

// What a bar draws on standard error while `seconds` pass, standard error
// being a terminal or not.
std::string Drawn(bool terminal, double seconds) {
  int master = -1;
  int slave = -1;
  if (openpty(&master, &slave, nullptr, nullptr, nullptr) != 0) return "no pty";
  const int errors = terminal ? slave : open("/dev/null", O_WRONLY);
  const int saved = dup(STDERR_FILENO);
  dup2(errors, STDERR_FILENO);
  {
    lxcat::ProgressBar bar("loading");
    bar.Set(3, 10);
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  }
  dup2(saved, STDERR_FILENO);
  close(saved);
  if (!terminal) close(errors);
  close(slave);
  std::string text;
  char buffer[4096];
  fcntl(master, F_SETFL, O_NONBLOCK);
  while (true) {
    const ssize_t got = read(master, buffer, sizeof buffer);
    if (got <= 0) break;
    text.append(buffer, got);
  }
  close(master);
  return text;
}

TEST(LxcatPartsTest, TheProgressBarShowsOnlyOnATerminalAndOnlyAfterASecond) {
  const std::string shown = Drawn(true, 1.4);
  EXPECT_NE(shown.find("loading [#########"), std::string::npos) << shown;
  EXPECT_NE(shown.find("] 3/10 1s"), std::string::npos) << shown;
  EXPECT_EQ(shown.substr(shown.size() - 4), "\r\033[K");  // and the line is clean again
  EXPECT_EQ(Drawn(true, 0.3), "");
  EXPECT_EQ(Drawn(false, 1.4), "");
}

TEST(LxcatPartsTest, ACatalogTextIsAServerOnlyWhenAHostStandsBeforeTheColon) {
  auto parsed = [](const std::string& text) {
    const lxcat::CatalogAddress address = lxcat::ParseCatalogAddress(text);
    return std::make_pair(address.server, address.database);
  };
  EXPECT_EQ(parsed("/data/catalog.fdb"), std::make_pair(std::wstring(), std::wstring(L"/data/catalog.fdb")));
  EXPECT_EQ(parsed("db.example:/data/c.fdb"), std::make_pair(std::wstring(L"db.example"), std::wstring(L"/data/c.fdb")));
  EXPECT_EQ(parsed("127.0.0.1/3051:/data/c.fdb"),
            std::make_pair(std::wstring(L"127.0.0.1/3051"), std::wstring(L"/data/c.fdb")));
  EXPECT_EQ(parsed("./каталог:1.fdb"), std::make_pair(std::wstring(), std::wstring(L"./каталог:1.fdb")));
  EXPECT_EQ(parsed("host/:x.fdb").first, L"");
  EXPECT_EQ(parsed("host:").first, L"");
}

}  // namespace
}  // namespace lxtest
