// AccessModeChange: the tool's answer to --set-database-readonly. The
// read-only state is a property of the database (its header page), set
// through the service manager, the same way for both directions.
//
// Stateless.
#pragma once

#include <string>

class AccessModeChange {
 public:
  // An IBPP::Exception with the engine's text when the change fails (no
  // database, the file in use elsewhere, a file the process may not write).
  static void Run(const std::string& databasePath, bool readOnly);
};
