#include "FirstRowsOperation.h"

#include "ScriptText.h"
#include "storage/CommitGuard.h"

void FirstRowsOperation::Apply(CDataProvider* database, const std::vector<FirstRows>& rows,
                               const std::vector<GeneratorStart>& starts) {
  FirstRowsOperation operation(database);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  bool wrote = false;
  for (const FirstRows& table : rows) {
    if (!operation.IsEmpty(statement, table.table)) continue;
    for (const std::string& insert : table.inserts) statement.Execute(ToDatabaseText(insert));
    wrote = true;
  }
  for (const GeneratorStart& start : starts) wrote = operation.Raise(statement, start) || wrote;
  if (wrote) guard.Commit();
}

bool FirstRowsOperation::IsEmpty(IBPP::Statement& statement, const std::string& table) {
  statement.Execute("SELECT FIRST 1 1 FROM " + table);
  return !statement.Fetch();
}

bool FirstRowsOperation::Raise(IBPP::Statement& statement, const GeneratorStart& start) {
  statement.Execute("SELECT GEN_ID(" + start.generator + ", 0) FROM RDB$DATABASE");
  double current = 0;
  if (statement.Fetch()) statement.Get(1, current);
  const auto shortfall = start.value - static_cast<std::int64_t>(current);
  if (shortfall <= 0) return false;
  statement.Execute("SELECT GEN_ID(" + start.generator + ", " + std::to_string(shortfall) + ") FROM RDB$DATABASE");
  statement.Fetch();
  return true;
}
