#include "EngineStructure.h"

#include <filesystem>

#include "TemporaryFile.h"
#include "storage/ibpp/Database.h"

OdsVersion EngineStructure::Current() {
  const TemporaryFile scratch(std::filesystem::temp_directory_path(), "ruvdbeditor-ods", ".fdb");
  {
    IBPP::Database database("", scratch.Path().string(), "SYSDBA", "", "", "", "");
    database.Create();
    database.Disconnect();
  }
  return DatabaseStructure::Read(scratch.Path().string()).Ods();
}
