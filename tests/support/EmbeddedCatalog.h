// EmbeddedCatalog: a catalog file of one test, written by lxCreateEmptyFDB
// into a private folder and always opened embedded (the editor tool works
// embedded too, so these tests never go through a server), with raw SQL on
// it and, when asked for, a provider in a pool of its own.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "CatalogSql.h"
#include "LxDataAccess.h"
#include "TempDir.h"

namespace lxtest {

class EmbeddedCatalog {
 public:
  // The file is <private folder>/<subfolder>/catalog.fdb; the subfolder (it
  // may be empty) is made by lxCreateEmptyFDB.
  explicit EmbeddedCatalog(const std::string& subfolder = "");
  ~EmbeddedCatalog();
  EmbeddedCatalog(const EmbeddedCatalog&) = delete;
  EmbeddedCatalog& operator=(const EmbeddedCatalog&) = delete;

  const std::wstring& Path() const { return path_; }
  std::filesystem::path File() const;
  const std::filesystem::path& Folder() const { return folder_.path(); }
  CatalogSql& Sql() { return *sql_; }
  // A provider attached through pool_AddProvider on first use.
  LxDataProvider* Provider();

 private:
  TempDir folder_;
  std::wstring path_;
  std::unique_ptr<CatalogSql> sql_;
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;
};

}  // namespace lxtest
