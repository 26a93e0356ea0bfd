// SQL written in tests, on a test's catalog: for the shapes the interface
// cannot make, for reading back what a write left in the database, and for
// the catalog's schema as a whole. Text literals go to the database in code
// page 1251 and text comes back from it widened, as the library does it.
//
// SqlScope is one operation scope (one attachment, one transaction) of the
// library's own kind, so tests of the access layer drive BaseOperation,
// CommitGuard, DbText and BlobTransfer exactly as the library's operations
// do. Nothing in it commits unless asked: a test can try changes out and
// have the end of the scope roll them back. CatalogSql is the short form:
// every call a scope of its own, committed.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"

namespace lxtest {

class SqlScope : public BaseOperation {
 public:
  explicit SqlScope(CDataProvider* provider) : BaseOperation(provider) {}
  using BaseOperation::NewBlob;
  using BaseOperation::NewStatement;

  // Runs one statement, and gives the first column of its row: the first
  // row of a SELECT, the one row of a RETURNING clause or a procedure. 0
  // when there is none or it is null.
  std::int32_t Int(const std::wstring& sql);
  void Run(const std::wstring& sql) { Int(sql); }
  // The first column of every row of a query, as text.
  std::vector<std::wstring> Texts(const std::wstring& query);
  // The blob in the first column of the first row, whole.
  std::vector<unsigned char> Blob(const std::wstring& query);
  // Commits the work so far; the scope goes on in a new transaction.
  void Commit();
};

class CatalogSql {
 public:
  CatalogSql(std::wstring server, std::wstring database, std::wstring user, std::wstring password);
  // The catalog of a provider, with its connection.
  explicit CatalogSql(const CDataProvider& catalog);

  // Runs the statements in one committed transaction.
  void Execute(std::initializer_list<std::wstring> statements);
  void Execute(const std::wstring& statement) { Execute({statement}); }
  // As SqlScope's, each in a committed scope of its own, so an INSERT ...
  // RETURNING or a procedure that writes stays.
  std::int32_t Int(const std::wstring& sql);
  std::vector<std::wstring> Texts(const std::wstring& query);
  // The catalog's whole schema, one sorted line per fact: a table, a column
  // with type, nullability and default, a key with its fields, a foreign key
  // with its rules, a check, an index, a trigger or procedure with its
  // source, a procedure parameter, a generator, an exception with its
  // message. Names the engine makes up (NOT NULL constraints, the indexes
  // behind unnamed keys) are left out; what they stand for is in the column
  // and key lines. Two catalogs compare with one equality.
  std::vector<std::string> Schema();

 private:
  CDataProvider provider_;
};

}  // namespace lxtest
