#include "StructureUpdate.h"

#include "DatabaseRebuild.h"
#include "DatabaseStructure.h"
#include "EngineStructure.h"

bool StructureUpdate::Run(const std::string& databasePath) {
  const OdsVersion found = DatabaseStructure::Read(databasePath).Ods();
  if (found >= EngineStructure::Current()) return false;
  DatabaseRebuild::Run(databasePath);
  return true;
}
