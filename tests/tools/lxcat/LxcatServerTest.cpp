// lxcat on a catalog named the way Firebird names a database on a server,
// 'host/port:path', with the user and password given as options or through
// ISC_USER / ISC_PASSWORD. The test command runs it against its private
// server (label "server"); in the plain run the catalog is a local file and
// the password is not checked.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "CatalogFixture.h"
#include "ChildProcess.h"
#include "platform/TextCodec.h"

namespace lxtest {
namespace {

class LxcatServerTest : public TableFixture {
 protected:
  std::string Catalog() const {
    const std::string path = WideToUtf8(database_);
    return connection_.server.empty() ? path : WideToUtf8(connection_.server) + ":" + path;
  }
  ChildResult Lxcat(std::vector<std::string> arguments, const std::vector<std::string>& environment = {}) {
    return RunChild(BesideThisProgram("lxcat"), arguments, environment);
  }
};

TEST_F(LxcatServerTest, OpensTheCatalogWithOptionsOrTheEnvironment) {
  LxAttribute* length = table_AddAttribute(table_, L"Длина", L"", LX_VALUE_INT);
  LxStdSize* size = table_AddStdSize(table_, L"М5");
  ASSERT_TRUE(length && size && stdsize_SetValueI(size, length, 42));
  const std::string user = WideToUtf8(connection_.user);
  const std::string password = WideToUtf8(connection_.password);
  const std::vector<ChildResult> runs{
      Lxcat({"table", Catalog(), "Пакет\\Болты", "--format", "json", "--user", user, "--password", password}),
      Lxcat({"table", Catalog(), "Пакет\\Болты", "--format", "json"},
            {"ISC_USER=" + user, "ISC_PASSWORD=" + password})};
  for (const ChildResult& run : runs) {
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const nlohmann::json table = nlohmann::json::parse(run.out);
    ASSERT_EQ(table["sizes"].size(), 1u);
    EXPECT_EQ(table["sizes"][0]["id"], "М5");
    EXPECT_EQ(table["columns"][0]["name"], "Длина");
    EXPECT_EQ(table["sizes"][0]["values"][0], 42);
  }
  if (connection_.server.empty()) return;
  const ChildResult refused = Lxcat({"tree", Catalog(), "--user", user, "--password", password + "-wrong"});
  EXPECT_NE(refused.exitCode, 0);
  EXPECT_EQ(std::count(refused.err.begin(), refused.err.end(), '\n'), 1) << refused.err;
  EXPECT_NE(refused.err.find("Your user name and password are not defined"), std::string::npos) << refused.err;
}

}  // namespace
}  // namespace lxtest
