#include "CatalogFixture.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>

#include "platform/TextCodec.h"

namespace lxtest {
namespace {

std::wstring Environment(const char* name, const wchar_t* fallback = L"") {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? std::wstring(fallback) : Utf8ToWide(value);
}

bool ThroughServer() { return !Environment("LX_TEST_SERVER").empty(); }

}  // namespace

std::filesystem::path Path(const std::wstring& path) { return WideToUtf8(path); }

Connection Connection::FromEnvironment() {
  return Connection{Environment("LX_TEST_SERVER"), Environment("LX_TEST_USER", L"SYSDBA"),
                    Environment("LX_TEST_PASSWORD", L"masterkey")};
}

CatalogFixture::CatalogFixture() : connection_(Connection::FromEnvironment()) {
  static std::atomic<int> pools{0};
  const std::wstring poolName = L"CatalogTest" + std::to_wstring(getpid()) + L"-" + std::to_wstring(pools++);
  pool_ = lxAddLibraryProviderPool(poolName.c_str(), L"/lib/catalog-test.ulb");
  database_ = NewCatalogFile("catalog.fdb");
  sql_ = std::make_unique<CatalogSql>(connection_.server, database_, connection_.user, connection_.password);
  provider_ = Attach(database_);
}

CatalogFixture::~CatalogFixture() {
  lxDeleteProviderPool(pool_);
  if (ThroughServer()) {
    std::error_code ignored;
    std::filesystem::remove(WideToUtf8(database_), ignored);
  }
}

std::wstring CatalogFixture::NewCatalogFile(const std::string& name) {
  static std::atomic<int> files{0};
  std::filesystem::path file = folder_.path() / name;
  if (ThroughServer()) {
    file = std::filesystem::path(WideToUtf8(Environment("LX_TEST_DB_DIR"))) /
           (std::to_string(getpid()) + "-" + std::to_string(files++) + "-" + name);
  }
  const std::wstring path = Utf8ToWide(file.string());
  if (!lxCreateEmptyFDB(path.c_str())) ADD_FAILURE() << "lxCreateEmptyFDB failed for " << file;
  return path;
}

LxDataProvider* CatalogFixture::Attach(const std::wstring& file) {
  return pool_AddProvider(pool_, connection_.server.c_str(), file.c_str(), connection_.user.c_str(),
                          connection_.password.c_str());
}

}  // namespace lxtest
