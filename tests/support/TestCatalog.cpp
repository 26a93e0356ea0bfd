#include "TestCatalog.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <stdexcept>

#include "platform/TextCodec.h"

namespace lxtest {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

std::filesystem::path NewCatalogPath(bool throughServer, const TempDir& folder, const std::string& subfolder) {
  if (!throughServer) return (subfolder.empty() ? folder.path() : folder.path() / subfolder) / "catalog.fdb";
  const std::string shared = Environment("LX_TEST_DB_DIR");
  if (shared.empty()) throw std::runtime_error("LX_TEST_SERVER needs LX_TEST_DB_DIR");
  static std::atomic<int> counter{0};
  return std::filesystem::path(shared) /
         ("catalog-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".fdb");
}

}  // namespace

bool TestCatalog::ThroughServer() { return !Environment("LX_TEST_SERVER").empty(); }

TestCatalog::TestCatalog(bool throughServer, const std::string& subfolder)
    : throughServer_(throughServer), file_(NewCatalogPath(throughServer, folder_, subfolder)),
      path_(Utf8ToWide(file_.string())) {
  if (!lxCreateEmptyFDB(path_.c_str())) throw std::runtime_error("lxCreateEmptyFDB failed for " + file_.string());
  // The server runs as its own user; the folder's group lets it in.
  using std::filesystem::perms;
  if (throughServer_)
    std::filesystem::permissions(file_, perms::owner_read | perms::owner_write | perms::group_read | perms::group_write);
  provider_ = ProviderWithPassword(throughServer_ ? Utf8ToWide(Environment("LX_TEST_PASSWORD")) : L"");
  sql_ = std::make_unique<CatalogSql>(*provider_);
}

TestCatalog::~TestCatalog() {
  if (pool_ != nullptr) lxDeleteProviderPool(pool_);
  provider_.reset();
  if (throughServer_) {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
}

LxDataProvider* TestCatalog::Attached() {
  if (attached_ != nullptr) return attached_;
  static std::atomic<int> pools{0};
  const std::wstring name = L"TestCatalog" + std::to_wstring(getpid()) + L"-" + std::to_wstring(pools++);
  pool_ = lxAddLibraryProviderPool(name.c_str(), L"/lib/test-catalog.ulb");
  attached_ = pool_AddProvider(pool_, provider_->GetServerName().c_str(), path_.c_str(),
                               provider_->GetUserName().c_str(), provider_->GetPassword().c_str());
  return attached_;
}

std::unique_ptr<CDataProvider> TestCatalog::ProviderWithPassword(const std::wstring& password) const {
  const std::string user = throughServer_ ? Environment("LX_TEST_USER") : "";
  return std::make_unique<CDataProvider>(throughServer_ ? Utf8ToWide(Environment("LX_TEST_SERVER")) : L"", path_,
                                         user.empty() ? L"SYSDBA" : Utf8ToWide(user), password);
}

}  // namespace lxtest
