// SchemaFingerprintOperation: a catalog's whole schema as a sorted list of
// lines, one per fact (a table, a column with its type, nullability and
// default, a key with its fields, a foreign key with its rules, a check, an
// index, a trigger or procedure with its source, a procedure parameter, a
// generator, an exception with its message), so that two catalogs can be
// compared with one equality and a readable difference.
//
// Names the engine makes up (NOT NULL constraints, the indexes behind keys
// without a name of their own) are left out; what they stand for is in the
// column and key lines. Read-only.
#pragma once

#include <string>
#include <vector>

#include "storage/BaseOperation.h"

class SchemaFingerprintOperation : public BaseOperation {
 public:
  static std::vector<std::string> Of(CDataProvider* catalog);

 private:
  explicit SchemaFingerprintOperation(CDataProvider* catalog) : BaseOperation(catalog) {}
  void Collect(const char* sql, std::vector<std::string>& lines);
};
