// SchemaStatement: one statement of the catalog's schema script, with what
// the schema update needs to know of it: which object it makes (kind and
// name, and the table it belongs to), or that it is a first row, a
// generator's start value, or a statement of the script's own set-up.
//
// A CREATE TABLE is also taken apart into its elements (column definitions
// and named table constraints), so that a table that exists can be given
// just the columns and constraints it lacks.
//
// Names are upper case; the script's identifiers are plain (unquoted) ones.
// A plain value; Parse is pure and thread-safe.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "SchemaObjectKind.h"

// One element of a CREATE TABLE, as written there (comments dropped).
struct TableElement {
  enum class Kind { kColumn, kConstraint };
  Kind kind;
  std::string name;
  std::string definition;
};

class SchemaStatement {
 public:
  enum class Role { kObject, kFirstRow, kGeneratorStart, kSetUp };

  // Throws std::runtime_error naming the statement when it is of a kind the
  // update does not know, so that a new kind in the script is noticed at
  // once rather than skipped.
  static SchemaStatement Parse(std::string text);

  Role GetRole() const { return role_; }
  // kObject only.
  SchemaObjectKind Kind() const { return kind_; }
  // The object's name; the generator's for kGeneratorStart; the table's for
  // kFirstRow.
  const std::string& Name() const { return name_; }
  // The table of an index, a constraint or a trigger; empty otherwise.
  const std::string& Table() const { return table_; }
  // The statement as the script has it (UTF-8).
  const std::string& Text() const { return text_; }
  // kTable only.
  const std::vector<TableElement>& Elements() const { return elements_; }
  // kGeneratorStart only.
  std::int64_t StartValue() const { return startValue_; }

 private:
  explicit SchemaStatement(std::string text) : text_(std::move(text)) {}

  std::string text_;
  Role role_ = Role::kSetUp;
  SchemaObjectKind kind_ = SchemaObjectKind::kTable;
  std::string name_;
  std::string table_;
  std::vector<TableElement> elements_;
  std::int64_t startValue_ = 0;
};
