// TemporaryFile: a path for a file the tool makes for a while (a backup, a
// database being restored, a scratch database), removed when the object
// goes away unless Keep() was called. The name is unique within this
// process and carries the process id, so two runs never share one.
//
// Owns the file at its path; not copyable; one thread at a time.
#pragma once

#include <filesystem>
#include <string>

class TemporaryFile {
 public:
  // <folder>/.<stem>.<pid>.<n><extension>; the file is not created here.
  TemporaryFile(const std::filesystem::path& folder, const std::string& stem, const std::string& extension);
  ~TemporaryFile();

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  // The file has moved on (renamed into place): nothing to remove.
  void Keep() { kept_ = true; }

 private:
  std::filesystem::path path_;
  bool kept_ = false;
};
