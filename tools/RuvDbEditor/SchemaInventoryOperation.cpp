#include "SchemaInventoryOperation.h"

#include <array>
#include <string_view>

namespace {

struct ObjectQuery {
  SchemaObjectKind kind;
  const char* sql;
};

// System objects share these tables; their names (RDB$...) never clash with
// the script's, so they need no filter.
constexpr std::array<ObjectQuery, 7> kObjectQueries{{
    {SchemaObjectKind::kGenerator, "SELECT RDB$GENERATOR_NAME FROM RDB$GENERATORS"},
    {SchemaObjectKind::kException, "SELECT RDB$EXCEPTION_NAME FROM RDB$EXCEPTIONS"},
    {SchemaObjectKind::kTable, "SELECT RDB$RELATION_NAME FROM RDB$RELATIONS"},
    {SchemaObjectKind::kIndex, "SELECT RDB$INDEX_NAME FROM RDB$INDICES"},
    {SchemaObjectKind::kConstraint, "SELECT RDB$CONSTRAINT_NAME FROM RDB$RELATION_CONSTRAINTS"},
    {SchemaObjectKind::kTrigger, "SELECT RDB$TRIGGER_NAME FROM RDB$TRIGGERS"},
    {SchemaObjectKind::kProcedure, "SELECT RDB$PROCEDURE_NAME FROM RDB$PROCEDURES"},
}};

// System table names are fixed-length CHAR columns, padded with blanks.
std::string Name(const IBPP::Statement& statement, int column) {
  std::string name;
  statement.Get(column, name);
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

}  // namespace

SchemaInventory SchemaInventoryOperation::Read(CDataProvider* database) {
  SchemaInventoryOperation operation(database);
  SchemaInventory inventory;
  operation.ReadObjects(inventory);
  operation.ReadColumns(inventory);
  operation.ReadConstraintNameCounter(inventory);
  return inventory;
}

void SchemaInventoryOperation::ReadObjects(SchemaInventory& inventory) {
  IBPP::Statement statement = NewStatement();
  for (const ObjectQuery& query : kObjectQueries) {
    statement.Execute(query.sql);
    while (statement.Fetch()) inventory.Add(query.kind, Name(statement, 1));
  }
}

void SchemaInventoryOperation::ReadColumns(SchemaInventory& inventory) {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT RDB$RELATION_NAME, RDB$FIELD_NAME FROM RDB$RELATION_FIELDS");
  while (statement.Fetch()) inventory.AddColumn(Name(statement, 1), Name(statement, 2));
}

void SchemaInventoryOperation::ReadConstraintNameCounter(SchemaInventory& inventory) {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT GEN_ID(RDB$CONSTRAINT_NAME, 0) FROM RDB$DATABASE");
  double counter = 0;
  if (statement.Fetch()) statement.Get(1, counter);
  inventory.SetConstraintNameCounter(static_cast<std::int64_t>(counter));
}
