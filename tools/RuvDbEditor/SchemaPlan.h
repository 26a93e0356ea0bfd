// SchemaPlan: what a catalog database lacks compared with the schema
// script, as the work that adds it. An object is missing when no object of
// its kind has its name; a table that exists is given the columns and named
// constraints of its definition that it lacks. Objects that exist are left
// as they are, whatever their definition: the update adds, it never alters
// or drops. Running the plan twice adds nothing the second time.
//
// First rows and generator start values are not planned against the
// inventory: FirstRowsOperation decides on them from the rows themselves.
//
// A plain value; Make is pure and thread-safe.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "SchemaInventory.h"
#include "SchemaStatement.h"

// One piece of DDL: a statement of the script as it stands, or one element
// of a CREATE TABLE to add to the existing table.
struct SchemaChange {
  enum class Kind { kScriptStatement, kAddColumn, kAddConstraint };
  Kind kind;
  // The table of kAddColumn and kAddConstraint.
  std::string table;
  // The whole statement, or the element's definition.
  std::string text;
};

// The first rows of one table, in script order.
struct FirstRows {
  std::string table;
  std::vector<std::string> inserts;
};

struct GeneratorStart {
  std::string generator;
  std::int64_t value;
};

class SchemaPlan {
 public:
  static SchemaPlan Make(const std::vector<SchemaStatement>& script, const SchemaInventory& existing);

  // In script order, so that everything an object refers to comes first.
  const std::vector<SchemaChange>& Changes() const { return changes_; }
  const std::vector<FirstRows>& Rows() const { return rows_; }
  const std::vector<GeneratorStart>& GeneratorStarts() const { return generatorStarts_; }

  // How far the engine's counter of constraint names must move before the
  // changes run, 0 for not at all. The script names some constraints
  // INTEG_<n>, the engine's own form; a NOT NULL column made by the changes
  // would otherwise take such a name first and make the later constraint
  // fail on a duplicate name.
  std::int64_t ConstraintNamesToReserve() const { return constraintNamesToReserve_; }

 private:
  void PlanObject(const SchemaStatement& statement, const SchemaInventory& existing);
  void PlanTableElements(const SchemaStatement& table, const SchemaInventory& existing);
  void PlanConstraintNames(const SchemaInventory& existing);
  void AddFirstRow(const std::string& table, const std::string& insert);

  std::vector<SchemaChange> changes_;
  std::vector<FirstRows> rows_;
  std::vector<GeneratorStart> generatorStarts_;
  // Bookkeeping for the counter of constraint names.
  bool makesUnnamedNotNull_ = false;
  std::int64_t highestNamedInteg_ = 0;
  std::int64_t constraintNamesToReserve_ = 0;
};
