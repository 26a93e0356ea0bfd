// SchemaChangeOperation: the DDL of a schema update. All changes of a plan
// run in one transaction, committed once at the end, so a catalog gets all
// of them or none: a failing statement rolls back everything before it.
//
// The engine allows this: a table, generator or procedure made earlier in
// the transaction can already be referred to by a later foreign key, index,
// trigger or procedure. What it does not allow is a row in a table of the
// same transaction ("Table unknown" until commit), which is why first rows
// are FirstRowsOperation's, after this commit.
#pragma once

#include <cstdint>
#include <vector>

#include "SchemaPlan.h"
#include "storage/BaseOperation.h"

class CDataProvider;

class SchemaChangeOperation : public BaseOperation {
 public:
  // IBPP::Exception naming the failing change; nothing is then committed.
  static void Apply(CDataProvider* database, const std::vector<SchemaChange>& changes);

  // Moves the engine's counter of constraint names on by `count`. The
  // counter cannot be set directly (it is a system generator); every NOT
  // NULL constraint the engine names draws from it, also in a transaction
  // that is rolled back, so a scratch table with `count` such columns, never
  // committed, moves it and leaves nothing else behind.
  static void ReserveConstraintNames(CDataProvider* database, std::int64_t count);

 private:
  explicit SchemaChangeOperation(CDataProvider* database) : BaseOperation(database) {}
};
