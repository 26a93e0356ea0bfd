// The library's process-wide state: the registry of provider pools, the frame
// lock, the progress record and the module record (the pending messages of
// the current call live below, in platform/PendingList.h, since every layer
// reports). Everything is built when the library is loaded, before any export
// can run, and torn down at unload in a fixed order: the pools first (with
// their providers and temporary files), then the pending list, then the
// registry's table.
//
// Only the frame lock is safe to touch without holding the frame lock.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "LxDataAccess.h"
#include "platform/PendingList.h"

class CProviderPool;

// Library name to pool. Holds the entry "" -> null from the start.
using PoolTable = std::unordered_map<std::wstring, std::unique_ptr<CProviderPool>>;

// A copy of the client's progress record. Nothing reads it.
struct ProgressRecord {
  LxProgressControl record{};
  bool set = false;
};

// What the library learned about its own file when it was loaded.
struct ModuleRecord {
  std::wstring libraryDirectory;  // empty when the path could not be read
};

PoolTable& Registry();
std::recursive_mutex& FrameLock();
ProgressRecord& Progress();
const ModuleRecord& Module();

