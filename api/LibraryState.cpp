#include "api/LibraryState.h"

#include "platform/ModulePaths.h"
#include "storage/CProviderPool.h"

namespace {

// One object so that construction and destruction order are fixed (objects in
// one translation unit are built in declaration order, and members too).
class LibraryState {
 public:
  LibraryState() {
    Pending();  // built first, so it is torn down after the pools
    registry.emplace(std::wstring(), nullptr);
    module.libraryDirectory = DirectoryOf(LibraryFilePath());
  }

  // The unload routine: pools go first, while the pending list and the table
  // still exist, because destroying a provider may remove temporary files.
  ~LibraryState() {
    for (auto& entry : registry) entry.second.reset();
  }

  PoolTable registry;
  std::recursive_mutex frameLock;
  ProgressRecord progress;
  ModuleRecord module;
};

LibraryState state;

}  // namespace

PoolTable& Registry() { return state.registry; }
std::recursive_mutex& FrameLock() { return state.frameLock; }
ProgressRecord& Progress() { return state.progress; }
const ModuleRecord& Module() { return state.module; }

