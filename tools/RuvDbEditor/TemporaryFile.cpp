#include "TemporaryFile.h"

#include <unistd.h>

#include <atomic>
#include <system_error>

TemporaryFile::TemporaryFile(const std::filesystem::path& folder, const std::string& stem,
                             const std::string& extension) {
  static std::atomic<unsigned> counter{0};
  path_ = folder / ("." + stem + "." + std::to_string(getpid()) + "." + std::to_string(counter++) + extension);
}

TemporaryFile::~TemporaryFile() {
  if (kept_) return;
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}
