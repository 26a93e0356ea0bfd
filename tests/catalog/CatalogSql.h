// CatalogSql: raw SQL on a test's catalog, for the shapes the interface
// cannot make and for reading back what a write left in the database. Each
// call is an operation scope of its own, like the library's own operations.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"

namespace lxtest {

class CatalogSql {
 public:
  CatalogSql(std::wstring server, std::wstring database, std::wstring user, std::wstring password);

  // Runs the statements in one committed transaction; text literals in them
  // are sent as code page 1251.
  void Execute(std::initializer_list<std::wstring> statements);
  void Execute(const std::wstring& statement) { Execute({statement}); }
  // The first column of the first row as an integer (0 for none or null).
  std::int32_t Int(const std::wstring& query);
  // The first column of every row, as text.
  std::vector<std::wstring> Texts(const std::wstring& query);

 private:
  CDataProvider provider_;
};

}  // namespace lxtest
