// EngineStructure: the on-disk structure that the engine this tool runs
// with writes today. The engine does not state it as a number one could ask
// for without a database, so the tool makes a scratch database, reads its
// version and removes it again.
//
// Stateless; each call makes its own scratch file.
#pragma once

#include "DatabaseStructure.h"

class EngineStructure {
 public:
  // An IBPP::Exception if the scratch database cannot be made.
  static OdsVersion Current();
};
