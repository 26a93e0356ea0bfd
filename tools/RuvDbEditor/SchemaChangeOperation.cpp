#include "SchemaChangeOperation.h"

#include <string>

#include "ScriptText.h"
#include "storage/CommitGuard.h"

namespace {

constexpr const char* kReserveTable = "RUVDBEDITOR_NAME_RESERVE";

std::string Sql(const SchemaChange& change) {
  switch (change.kind) {
    case SchemaChange::Kind::kScriptStatement:
      return change.text;
    case SchemaChange::Kind::kAddColumn:
    case SchemaChange::Kind::kAddConstraint:
      // The element is written as in CREATE TABLE, which ADD takes as it is.
      return "ALTER TABLE " + change.table + " ADD " + change.text;
  }
  return change.text;
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

void SchemaChangeOperation::Apply(CDataProvider* database, const std::vector<SchemaChange>& changes) {
  SchemaChangeOperation operation(database);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  for (const SchemaChange& change : changes) {
    const std::string sql = Sql(change);
    try {
      statement.Execute(ToDatabaseText(sql));
    } catch (const IBPP::Exception& failure) {
      throw IBPP::Exception(FirstLine(sql) + ": " + failure.what());
    }
  }
  guard.Commit();
}

void SchemaChangeOperation::ReserveConstraintNames(CDataProvider* database, std::int64_t count) {
  if (count <= 0) return;
  std::string sql = std::string("CREATE TABLE ") + kReserveTable + " (";
  for (std::int64_t column = 1; column <= count; ++column) {
    if (column > 1) sql += ", ";
    sql += "C" + std::to_string(column) + " INTEGER NOT NULL";
  }
  sql += ")";
  SchemaChangeOperation operation(database);
  IBPP::Statement statement = operation.NewStatement();
  // Never committed: the end of the operation rolls the table back.
  statement.Execute(sql);
}
