#include "TestCatalog.h"

#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace lxtest {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

std::filesystem::path NewCatalogPath(const TempDir& folder) {
  if (!TestCatalog::ThroughServer()) return folder.path() / "catalog.fdb";
  const std::string shared = Environment("LX_TEST_DB_DIR");
  if (shared.empty()) throw std::runtime_error("LX_TEST_SERVER needs LX_TEST_DB_DIR");
  static std::atomic<int> counter{0};
  return std::filesystem::path(shared) /
         ("catalog-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".fdb");
}

void WriteImage(const std::filesystem::path& file) {
  const auto image = EmptyCatalogImage();
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
  out.close();
  if (!out) throw std::runtime_error("cannot write " + file.string());
  // The server runs as its own user; the folder's group lets it in.
  using std::filesystem::perms;
  if (TestCatalog::ThroughServer())
    std::filesystem::permissions(file, perms::owner_read | perms::owner_write | perms::group_read | perms::group_write);
}

}  // namespace

bool TestCatalog::ThroughServer() { return !Environment("LX_TEST_SERVER").empty(); }

TestCatalog::TestCatalog() : file_(NewCatalogPath(folder_)) {
  WriteImage(file_);
  provider_ = ProviderWithPassword(Utf8ToWide(Environment("LX_TEST_PASSWORD")));
}

TestCatalog::~TestCatalog() {
  provider_.reset();
  if (ThroughServer()) {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
}

std::unique_ptr<CDataProvider> TestCatalog::ProviderWithPassword(const std::wstring& password) const {
  const std::string user = Environment("LX_TEST_USER");
  return std::make_unique<CDataProvider>(Utf8ToWide(Environment("LX_TEST_SERVER")),
                                         Utf8ToWide(file_.string()),
                                         user.empty() ? L"SYSDBA" : Utf8ToWide(user), password);
}

}  // namespace lxtest
