// SchemaInventoryOperation: the queries of the system tables that tell what
// a catalog database already has (SchemaInventory). Reads only, in one
// operation scope; it works on a read-only database too.
#pragma once

#include "SchemaInventory.h"
#include "storage/BaseOperation.h"

class CDataProvider;

class SchemaInventoryOperation : public BaseOperation {
 public:
  // IBPP::Exception when the database cannot be read.
  static SchemaInventory Read(CDataProvider* database);

 private:
  explicit SchemaInventoryOperation(CDataProvider* database) : BaseOperation(database) {}
  void ReadObjects(SchemaInventory& inventory);
  void ReadColumns(SchemaInventory& inventory);
  void ReadConstraintNameCounter(SchemaInventory& inventory);
};
