// ModuleCheck: the tool's answer to --update-ulb. An application library's
// module has no format the catalog library knows, so there is nothing to
// convert: the module is only confirmed to be a file this process can read.
// Nothing is written.
//
// Stateless; thread-safe.
#pragma once

#include <string>

class ModuleCheck {
 public:
  // Throws std::runtime_error, with the reason, when the module is missing,
  // is not a regular file, or cannot be opened for reading.
  static void Run(const std::string& modulePath);
};
