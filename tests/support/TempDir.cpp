#include "TempDir.h"

#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace lxtest {

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "lxtest-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::wstring TempDir::File(const std::string& name) const { return (path_ / name).wstring(); }

}  // namespace lxtest
