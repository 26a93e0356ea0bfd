// The mixed work of a load client, over the library's C interface only, as
// an application would do it: packet loads (a provider reload, then a
// packet read again), searches, integer value writes, sizes added and
// deleted, model files read.
//
// LoadClient is one client's pool and provider, shared by its threads; each
// thread has a MixedWork of its own. Like any client with several threads,
// LoadClient keeps its own order around calls that kill handles: a reload
// and a folder's deletion hold `Handles()` exclusively, every other
// operation shares it. The
// library's frame lock already makes the calls themselves exclusive.
#pragma once

#include <array>
#include <cstdint>
#include <fstream>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <shared_mutex>
#include <string>
#include <vector>

#include "Journal.h"
#include "LxDataAccess.h"

namespace lxtest {

struct Connection {
  std::wstring server;  // empty: embedded
  std::wstring database;
  std::wstring user;
  std::wstring password;
};

// A size of the generated catalog, found again by names after any reload.
struct SizePlace {
  std::wstring packet;
  std::wstring folder;
  std::wstring identifier;
  std::int32_t id = 0;
};

class LoadClient {
 public:
  // Attaches a pool of its own, notes the catalog's layout and opens the
  // journal file; throws std::runtime_error when either fails.
  LoadClient(const Connection& connection, int number, const std::string& journalPath);
  // Deletes the pool, and with it the provider's temporary files.
  ~LoadClient();
  LoadClient(const LoadClient&) = delete;
  LoadClient& operator=(const LoadClient&) = delete;

  std::shared_mutex& Handles() { return handles_; }
  // What is wrong with the temporary folder: it must hold exactly the files
  // the provider handed out since its last reload. Empty when all is well.
  // The caller holds Handles() exclusively.
  std::string TempFolderProblem();
  std::size_t TempFileCount();
  // Each entry goes to the file at once rather than into a list: a list
  // grows with every write, and the samples of a long run would take that
  // growth for the library's.
  void Record(const JournalEntry& entry);
  // Flushes the journal; false when any of it could not be written.
  bool JournalWritten();

 private:
  friend class MixedWork;

  // Notes the packet's generated sizes; false when its load failed.
  bool NoteLayout(LxPacket* packet);
  void NoteFile(const std::wstring& path);

  Connection connection_;
  int number_;
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;
  std::vector<std::wstring> packets_;
  // Sorted by id, so that every client has the same hot cells first.
  std::vector<SizePlace> sizes_;
  std::shared_mutex handles_;
  std::mutex filesMutex_;
  std::set<std::wstring> files_;
  std::mutex journalMutex_;
  std::ofstream journal_;
};

class MixedWork {
 public:
  MixedWork(LoadClient& client, int thread, std::uint64_t seed);

  // One operation, drawn by weight.
  void RunOne();
  // Every kind of work once and every model read, uncounted, so that a first
  // sample of memory finds the caches of library, engine and allocator
  // filled. Alone: no other thread may work meanwhile.
  void WarmUp();

  const std::array<std::int64_t, kOperations>& Done() const { return done_; }
  const std::array<std::int64_t, kOperations>& Failed() const { return failed_; }
  // Failures that the library reported by no message, counted by reason;
  // reasons that begin with "FAULT" are faults of the library.
  const std::map<std::string, std::int64_t>& Notes() const { return notes_; }

 private:
  bool Run(Operation operation);
  // Whether this thread's folder is to be deleted by the next size deletion.
  bool FolderDue() const;
  bool LoadPacket();
  bool Search();
  bool WriteValue();
  bool AddSize();
  bool DeleteSize();
  bool DeleteFolder();
  bool ReadModel();
  bool ReadModel(const SizePlace& place);

  // Handles found by names, null when a packet's load failed.
  LxFolder* Root(const std::wstring& packet);
  LxFolder* Child(LxFolder* parent, const std::wstring& name);
  LxFolderTable* Table(const std::wstring& packet, const std::wstring& folder);
  LxStdSize* Size(const SizePlace& place, LxFolderTable** table = nullptr);
  const std::wstring& AnyPacket();
  bool Note(const char* reason);

  LoadClient& client_;
  int thread_;
  std::mt19937_64 random_;
  std::int64_t sequence_ = 0;
  // This thread's folder for added sizes (none while the name is empty),
  // the adds tried in it, and the sizes added there and not deleted yet.
  std::wstring scratchPacket_;
  std::wstring scratchFolder_;
  int scratchAdds_ = 0;
  std::vector<SizePlace> ownSizes_;
  std::array<std::int64_t, kOperations> done_{};
  std::array<std::int64_t, kOperations> failed_{};
  std::map<std::string, std::int64_t> notes_;
};

}  // namespace lxtest
