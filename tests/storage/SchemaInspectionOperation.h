// SchemaInspectionOperation: reads the definition of a catalog back from the
// engine's system tables, in the words the schema is written in ("int",
// "text 1024", "blob"), so that a test can set it against the expected
// schema object by object. Read-only.
#pragma once

#include "storage/BaseOperation.h"

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

class SchemaInspectionOperation : public BaseOperation {
 public:
  explicit SchemaInspectionOperation(CDataProvider* provider) : BaseOperation(provider) {}

  struct DatabaseFacts {
    std::int32_t pageSize = 0;
    std::int32_t odsMajor = 0;
    std::int32_t odsMinor = 0;
    std::int32_t dialect = 0;
    std::string characterSet;
  };
  DatabaseFacts Facts();

  std::vector<std::string> Tables();

  struct Column {
    std::string name;
    std::string type;  // "int", "small", "double", "text <n>", "blob"
    bool notNull = false;
    std::string defaultSource;  // e.g. "DEFAULT 0", empty when none
    bool operator==(const Column&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Column& c) {
      return out << c.name << " " << c.type << (c.notNull ? " NN" : "") << " [" << c.defaultSource << "]";
    }
  };
  std::vector<Column> Columns(const std::string& table);

  struct Key {
    std::string type;  // "PRIMARY KEY" or "UNIQUE"
    std::string table;
    std::string fields;  // comma-separated, in key order
    bool operator==(const Key&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Key& k) {
      return out << k.type << " " << k.table << "(" << k.fields << ")";
    }
  };
  std::map<std::string, Key> Keys();

  struct ForeignKey {
    std::string table;
    std::string field;
    std::string target;
    std::string onUpdate;
    std::string onDelete;
    bool operator==(const ForeignKey&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const ForeignKey& k) {
      return out << k.table << "." << k.field << " -> " << k.target << " " << k.onUpdate << "/" << k.onDelete;
    }
  };
  std::map<std::string, ForeignKey> ForeignKeys();

  // Check constraint name -> "TABLE: source".
  std::map<std::string, std::string> Checks();
  // Plain index name -> "TABLE.FIELD".
  std::map<std::string, std::string> PlainIndexes();

  std::vector<std::string> Generators();
  std::int64_t GeneratorValue(const std::string& generator);

  struct Trigger {
    std::string table;
    std::int32_t type = 0;  // the engine's code: 1 before insert
    bool active = false;
    bool operator==(const Trigger&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Trigger& t) {
      return out << t.table << " type " << t.type << (t.active ? " active" : " inactive");
    }
  };
  std::map<std::string, Trigger> Triggers();

  // Exception name -> message as stored (code page 1251 bytes).
  std::map<std::string, std::string> Exceptions();

  std::vector<std::string> Procedures();
  // "in NAME text 128", "out ID int", in declaration order.
  std::vector<std::string> ProcedureParameters(const std::string& procedure);
};
