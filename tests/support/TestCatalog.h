// TestCatalog: a catalog database of one test, made by writing the library's
// empty catalog image to a file of its own, and a provider for it.
//
// By default the file is in a private temporary folder and opened embedded
// (one process per database file, so every test needs its own). When
// LX_TEST_SERVER is set (e.g. "127.0.0.1/3051", see with-server.sh), the
// file goes into LX_TEST_DB_DIR, a folder the server may write, and is
// opened through that server as LX_TEST_USER with LX_TEST_PASSWORD.
#pragma once

#include "TempDir.h"
#include "storage/CDataProvider.h"

#include <filesystem>
#include <memory>
#include <string>

namespace lxtest {

class TestCatalog {
 public:
  TestCatalog();
  ~TestCatalog();
  TestCatalog(const TestCatalog&) = delete;
  TestCatalog& operator=(const TestCatalog&) = delete;

  CDataProvider* Provider() { return provider_.get(); }
  const std::filesystem::path& File() const { return file_; }
  // A provider for the same file with another password.
  std::unique_ptr<CDataProvider> ProviderWithPassword(const std::wstring& password) const;

  static bool ThroughServer();

 private:
  TempDir folder_;
  std::filesystem::path file_;
  std::unique_ptr<CDataProvider> provider_;
};

}  // namespace lxtest
