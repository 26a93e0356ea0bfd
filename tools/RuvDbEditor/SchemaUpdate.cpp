#include "SchemaUpdate.h"

#include "FirstRowsOperation.h"
#include "SchemaChangeOperation.h"
#include "SchemaInventoryOperation.h"
#include "SchemaPlan.h"
#include "SchemaScript.h"
#include "platform/TextCodec.h"
#include "storage/CDataProvider.h"

std::size_t SchemaUpdate::Run(const std::string& databasePath) {
  // The tool's operations reach their database through a provider's
  // connection strings, as the library's do: embedded, as the owner.
  CDataProvider database(L"", Utf8ToWide(databasePath), L"SYSDBA", L"");
  const SchemaPlan plan = SchemaPlan::Make(SchemaScript::Statements(), SchemaInventoryOperation::Read(&database));
  if (!plan.Changes().empty()) {
    SchemaChangeOperation::ReserveConstraintNames(&database, plan.ConstraintNamesToReserve());
    SchemaChangeOperation::Apply(&database, plan.Changes());
  }
  FirstRowsOperation::Apply(&database, plan.Rows(), plan.GeneratorStarts());
  return plan.Changes().size();
}
