// DatabaseRebuild: a database written anew by the engine, through the
// service manager: a backup to a file beside the database, a restore of that
// backup into a new database beside it, and only when both worked and the
// new file opens, the new file renamed into the old one's place. The restore
// writes the engine's current on-disk structure, which is what raises an
// older one; the content, the read-only state, the file's mode and owner
// stay as they were.
//
// On any failure the original file is left exactly as it was and the
// temporary files are removed.
//
// Stateless; one rebuild per call.
#pragma once

#include <string>

class DatabaseRebuild {
 public:
  // Throws IBPP::Exception (engine failures) or std::runtime_error.
  static void Run(const std::string& databasePath);
};
