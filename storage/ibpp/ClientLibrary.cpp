#include "storage/ibpp/ClientLibrary.h"

#include <mutex>
#include <utility>

namespace IBPP {
namespace {

std::mutex& DirectoryLock() {
  static std::mutex lock;
  return lock;
}

std::string& Directory() {
  static std::string directory;
  return directory;
}

}  // namespace

void SetClientLibrarySearchPath(std::string directory) {
  std::lock_guard guard(DirectoryLock());
  Directory() = std::move(directory);
}

std::string ClientLibrarySearchPath() {
  std::lock_guard guard(DirectoryLock());
  return Directory();
}

}  // namespace IBPP
