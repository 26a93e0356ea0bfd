// ForcedWritesPause: turns the catalog's forced writes off for a bulk
// generation and back on after it. With forced writes every page that leaves
// the engine's cache is written synchronously, and a generation of a few
// hundred thousand rows pushes thousands of pages through a cache of a
// couple of thousand: measured, it ran three times slower (20,000 against
// 60,000 rows/s, embedded).
//
// Forced writes are a setting of the database file, changed by attaching
// with the isc_dpb_force_write item, which our storage layer doesn't offer;
// so this class talks to the client library directly, for that one setting,
// and runs no SQL. Construction reads the setting and switches it off if it
// was on; Resume() or, failing that, destruction puts back what was found.
//
// Lives on the stack of one generation; not thread-safe.
#pragma once

#include <string>

class CDataProvider;

class ForcedWritesPause {
 public:
  // IBPP::Exception if the catalog can't be attached or the setting read.
  explicit ForcedWritesPause(const CDataProvider& provider);
  // Resumes if Resume() was not called; a failure here is lost.
  ~ForcedWritesPause();

  ForcedWritesPause(const ForcedWritesPause&) = delete;
  ForcedWritesPause& operator=(const ForcedWritesPause&) = delete;

  // Puts the setting back as found; IBPP::Exception if that fails.
  void Resume();

  // The present setting of a catalog; for tests and for the constructor.
  static bool ForcedWrites(const CDataProvider& provider);

 private:
  const CDataProvider& provider_;
  bool wasForced_;
  bool resumed_ = false;
};
