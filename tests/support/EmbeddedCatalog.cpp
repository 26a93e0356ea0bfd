#include "EmbeddedCatalog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>

#include "platform/TextCodec.h"

namespace lxtest {

EmbeddedCatalog::EmbeddedCatalog(const std::string& subfolder) {
  const std::filesystem::path file = (subfolder.empty() ? folder_.path() : folder_.path() / subfolder) / "catalog.fdb";
  path_ = Utf8ToWide(file.string());
  if (!lxCreateEmptyFDB(path_.c_str())) ADD_FAILURE() << "lxCreateEmptyFDB failed for " << file;
  sql_ = std::make_unique<CatalogSql>(L"", path_, L"SYSDBA", L"");
}

EmbeddedCatalog::~EmbeddedCatalog() {
  if (pool_ != nullptr) lxDeleteProviderPool(pool_);
}

std::filesystem::path EmbeddedCatalog::File() const { return WideToUtf8(path_); }

LxDataProvider* EmbeddedCatalog::Provider() {
  if (provider_ != nullptr) return provider_;
  static std::atomic<int> pools{0};
  const std::wstring name = L"MaintenanceTest" + std::to_wstring(getpid()) + L"-" + std::to_wstring(pools++);
  pool_ = lxAddLibraryProviderPool(name.c_str(), L"/lib/maintenance-test.ulb");
  provider_ = pool_AddProvider(pool_, L"", path_.c_str(), L"SYSDBA", L"");
  return provider_;
}

}  // namespace lxtest
