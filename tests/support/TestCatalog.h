// TestCatalog: a catalog database of one test, a new file written by
// lxCreateEmptyFDB, with a provider of the storage layer for it, SQL on it
// and, on first use, a provider attached through the C interface in a pool
// of its own.
//
// By default the file is in a private temporary folder and opened embedded
// (one process per database file, so every test needs its own). When
// LX_TEST_SERVER is set (e.g. "127.0.0.1/3051", see with-server.sh), the
// file goes into LX_TEST_DB_DIR, a folder the server may write, and is
// opened through that server as LX_TEST_USER with LX_TEST_PASSWORD.
// EmbeddedCatalog is always embedded, for tests that hand the file to the
// editor tool or another process, which work embedded.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "CatalogSql.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "storage/CDataProvider.h"

namespace lxtest {

class TestCatalog {
 public:
  TestCatalog() : TestCatalog(ThroughServer(), "") {}
  ~TestCatalog();
  TestCatalog(const TestCatalog&) = delete;
  TestCatalog& operator=(const TestCatalog&) = delete;

  CDataProvider* Provider() { return provider_.get(); }
  LxDataProvider* Attached();
  CatalogSql& Sql() { return *sql_; }
  const std::filesystem::path& File() const { return file_; }
  const std::wstring& Path() const { return path_; }
  // The test's private folder (the file is elsewhere through a server).
  const std::filesystem::path& Folder() const { return folder_.path(); }
  // A provider for the same file with another password.
  std::unique_ptr<CDataProvider> ProviderWithPassword(const std::wstring& password) const;

  static bool ThroughServer();

 protected:
  // The file is <private folder>/<subfolder>/catalog.fdb when embedded; the
  // subfolder (it may be empty) is made by lxCreateEmptyFDB.
  TestCatalog(bool throughServer, const std::string& subfolder);

 private:
  TempDir folder_;
  bool throughServer_;
  std::filesystem::path file_;
  std::wstring path_;
  std::unique_ptr<CDataProvider> provider_;
  std::unique_ptr<CatalogSql> sql_;
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* attached_ = nullptr;
};

class EmbeddedCatalog : public TestCatalog {
 public:
  explicit EmbeddedCatalog(const std::string& subfolder = "") : TestCatalog(false, subfolder) {}
};

}  // namespace lxtest
