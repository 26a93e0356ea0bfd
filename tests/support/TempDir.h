// A private folder below the temporary folder, removed with everything in it
// when the object goes away. Each test that touches files gets its own.
#pragma once

#include <filesystem>
#include <string>

namespace lxtest {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // A path inside the folder, as wide text for the library's interface.
  std::wstring File(const std::string& name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace lxtest
