#include "DatabaseRebuild.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "DatabaseStructure.h"
#include "ServiceManager.h"
#include "ServiceRequest.h"
#include "TemporaryFile.h"
#include "storage/ibpp/StatusVector.h"

namespace {

std::runtime_error SystemError(const std::string& what, const std::filesystem::path& path) {
  return std::runtime_error(what + " " + path.string() + ": " + std::strerror(errno));
}

// An exclusive flock on a file for as long as the object lives. The engine
// takes one on every database it opens in this mode, so holding it proves
// that no process has the database open while the file is swapped.
class ExclusiveFileLock {
 public:
  explicit ExclusiveFileLock(const std::filesystem::path& path)
      : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) throw SystemError("cannot open", path);
    if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
      close(descriptor_);
      throw std::runtime_error("the database is in use by another process: " + path.string());
    }
  }
  ~ExclusiveFileLock() { close(descriptor_); }

  ExclusiveFileLock(const ExclusiveFileLock&) = delete;
  ExclusiveFileLock& operator=(const ExclusiveFileLock&) = delete;

  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

void Backup(ServiceManager& services, const std::string& database, const TemporaryFile& backup) {
  services.Run(ServiceRequest(isc_action_svc_backup)
                   .Text(isc_spb_dbname, database)
                   .Text(isc_spb_bkp_file, backup.Path().string())
                   .Flag(isc_spb_verbose));
  std::error_code error;
  if (std::filesystem::file_size(backup.Path(), error) == 0 || error) {
    throw std::runtime_error("the backup of " + database + " wrote nothing");
  }
}

void Restore(ServiceManager& services, const TemporaryFile& backup, const TemporaryFile& restored, bool readOnly) {
  services.Run(ServiceRequest(isc_action_svc_restore)
                   .Text(isc_spb_bkp_file, backup.Path().string())
                   .Text(isc_spb_dbname, restored.Path().string())
                   .Number(isc_spb_options, isc_spb_res_create)
                   .Byte(isc_spb_res_access_mode, readOnly ? isc_spb_res_am_readonly : isc_spb_res_am_readwrite)
                   .Flag(isc_spb_verbose));
}

// The new file is the engine's; the old one's mode and owner are what the
// people using the catalog arranged, so they carry over.
void TakeOverFileAttributes(int originalDescriptor, const std::filesystem::path& restored) {
  struct stat original {};
  if (fstat(originalDescriptor, &original) != 0) throw SystemError("cannot read the attributes of", restored);
  if (chown(restored.c_str(), original.st_uid, original.st_gid) != 0) throw SystemError("cannot set the owner of", restored);
  if (chmod(restored.c_str(), original.st_mode & 07777) != 0) throw SystemError("cannot set the mode of", restored);
}

}  // namespace

void DatabaseRebuild::Run(const std::string& databasePath) {
  const std::filesystem::path original = std::filesystem::absolute(databasePath);
  const bool readOnly = DatabaseStructure::Read(original.string()).ReadOnly();
  // Beside the original: the final rename must not cross file systems.
  const std::filesystem::path folder = original.parent_path();
  const std::string stem = original.filename().string();
  TemporaryFile backup(folder, stem, ".fbk");
  TemporaryFile restored(folder, stem, ".fdb");

  {
    ServiceManager services;
    Backup(services, original.string(), backup);
    Restore(services, backup, restored, readOnly);
  }
  // The restored file must open before it may replace anything.
  DatabaseStructure::Read(restored.Path().string());

  const ExclusiveFileLock inUse(original);
  TakeOverFileAttributes(inUse.Descriptor(), restored.Path());
  if (std::rename(restored.Path().c_str(), original.c_str()) != 0) throw SystemError("cannot replace", original);
  restored.Keep();
}
