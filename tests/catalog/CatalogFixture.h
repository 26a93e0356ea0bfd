// A test with a catalog of its own: a new file written by lxCreateEmptyFDB,
// a pool of its own, and a provider attached through pool_AddProvider.
//
// Embedded by default (a private folder, one file per test, since only one
// process may open a file embedded). With LX_TEST_SERVER set (see
// tests/storage/with-server.sh) the file goes to LX_TEST_DB_DIR and is opened
// through that server as LX_TEST_USER with LX_TEST_PASSWORD.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "CatalogSql.h"
#include "LxDataAccess.h"
#include "TempDir.h"

namespace lxtest {

// A wide path as the file system's path.
std::filesystem::path Path(const std::wstring& path);

struct Connection {
  std::wstring server;
  std::wstring user;
  std::wstring password;
  static Connection FromEnvironment();
};

class CatalogFixture : public ::testing::Test {
 protected:
  CatalogFixture();
  ~CatalogFixture() override;

  // Writes a new empty catalog file and returns its path.
  std::wstring NewCatalogFile(const std::string& name);
  // Attaches the file as a provider of this test's pool (null on failure).
  LxDataProvider* Attach(const std::wstring& file);
  // SQL on this test's catalog.
  CatalogSql& Sql() { return *sql_; }
  // Reloads this test's catalog.
  bool Reload() { return lxReloadProvider(connection_.server.c_str(), database_.c_str()); }

  Connection connection_;
  std::wstring database_;
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;

 private:
  TempDir folder_;
  std::unique_ptr<CatalogSql> sql_;
};

}  // namespace lxtest
