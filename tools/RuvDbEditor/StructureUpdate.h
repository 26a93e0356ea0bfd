// StructureUpdate: the tool's answer to --update-ods. A database whose
// on-disk structure is older than the one the engine writes is rebuilt
// (DatabaseRebuild), which raises it; a database that is already current is
// left alone, since a rebuild would rewrite every page for nothing.
//
// Stateless.
#pragma once

#include <string>

class StructureUpdate {
 public:
  // True when the database was rebuilt, false when it was current already.
  // Throws what DatabaseRebuild throws, or IBPP::Exception when the file is
  // no database the engine can open.
  static bool Run(const std::string& databasePath);
};
