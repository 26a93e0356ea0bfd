#include "api/DatabaseMaintenance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <span>

#include "api/EditorTool.h"
#include "platform/Files.h"
#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"

namespace {

// Closes the descriptor on every path out.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd) : fd_(fd) {}
  ~FileDescriptor() {
    if (fd_ >= 0) close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int get() const { return fd_; }
  // Closes now, so that a failed close can fail the write it finishes.
  bool Close() {
    const int fd = fd_;
    fd_ = -1;
    return close(fd) == 0;
  }

 private:
  int fd_;
};

bool WriteAll(int fd, std::span<const unsigned char> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

bool DatabaseMaintenance::CreateEmptyDatabase(const std::wstring& path) {
  const std::span<const unsigned char> image = EmptyCatalogImage();
  if (image.empty()) return false;
  const std::filesystem::path target = FilePath(path);
  if (target.has_parent_path() && !std::filesystem::exists(target.parent_path())) {
    std::filesystem::create_directories(target.parent_path());
  }
  FileDescriptor file(open(target.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0660));
  if (file.get() < 0) return false;
  // The file is shared with nobody while it is written: a process that holds
  // a lock on it (a database engine with the file open) makes this fail
  // rather than have the file cut from under it.
  if (flock(file.get(), LOCK_EX | LOCK_NB) != 0) return false;
  if (ftruncate(file.get(), 0) != 0) return false;
  const bool written = WriteAll(file.get(), image);
  return file.Close() && written;
}

bool DatabaseMaintenance::UpdateDatabase(const std::wstring& path) {
  if (!std::filesystem::exists(FilePath(path))) return false;
  if (!EditorTool::Run(L"--update-ods", path)) return false;
  return EditorTool::Run(L"--update-schema", path);
}

bool DatabaseMaintenance::UpdateUlb(const std::wstring& path) {
  if (!std::filesystem::exists(FilePath(path))) return false;
  return EditorTool::Run(L"--update-ulb", path);
}

bool DatabaseMaintenance::SetDatabaseReadonly(const std::wstring& path, bool readOnly) {
  if (!std::filesystem::exists(FilePath(path))) return false;
  return EditorTool::Run(L"--set-database-readonly", path, readOnly ? L"true" : L"false");
}
