// SchemaInventory: the named objects a database has, as its system tables
// list them, for comparison with the schema script: generators, exceptions,
// tables with their columns, indexes, constraints of every kind (NOT NULL
// included), triggers and procedures; and the engine's counter for the
// names it gives unnamed constraints (INTEG_<n>).
//
// A plain value filled by SchemaInventoryOperation; names upper case, as the
// system tables hold them. Not shared between threads while filled.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "SchemaObjectKind.h"

class SchemaInventory {
 public:
  void Add(SchemaObjectKind kind, std::string name) { objects_.emplace(kind, std::move(name)); }
  void AddColumn(std::string table, std::string column) { columns_.emplace(std::move(table), std::move(column)); }
  void SetConstraintNameCounter(std::int64_t value) { constraintNameCounter_ = value; }

  bool Has(SchemaObjectKind kind, const std::string& name) const { return objects_.count({kind, name}) != 0; }
  bool HasColumn(const std::string& table, const std::string& column) const {
    return columns_.count({table, column}) != 0;
  }
  // The number of the last INTEG_<n> name the engine gave out.
  std::int64_t ConstraintNameCounter() const { return constraintNameCounter_; }

 private:
  std::set<std::pair<SchemaObjectKind, std::string>> objects_;
  // (table, column)
  std::set<std::pair<std::string, std::string>> columns_;
  std::int64_t constraintNameCounter_ = 0;
};
