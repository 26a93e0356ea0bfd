#include "MixedWork.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace lxtest {
namespace {

constexpr const wchar_t* kGeneratedPrefix = L"ТР-";
// The integer attribute of every generated template; the only one written.
constexpr const wchar_t* kWrittenAttribute = L"Параметр 21";
constexpr std::int32_t kWrittenNumber = 21;
constexpr const wchar_t* kCondition = L"Параметр 21>=0";
// Half the value writes go to these first cells, so that clients meet there.
constexpr std::size_t kHotCells = 4;
constexpr int kLayoutAttempts = 200;
constexpr int kAddsPerFolder = 6;

// Percent of draws below each bound, in Operation order.
constexpr std::array<int, kOperations> kWeightBounds{4, 19, 54, 69, 81, 100};

std::wstring Widened(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }
std::string Narrowed(const std::wstring& ascii) {
  std::string text;
  for (wchar_t ch : ascii) text += static_cast<char>(ch);
  return text;
}

std::filesystem::path TempFolder() {
  const char* tmp = std::getenv("TMP");
  return tmp != nullptr && *tmp != '\0' ? tmp : "/tmp";
}

}  // namespace

LoadClient::LoadClient(const Connection& connection, int number, const std::string& journalPath)
    : connection_(connection), number_(number), journal_(journalPath) {
  if (!journal_) throw std::runtime_error("the journal file could not be opened");
  const std::wstring name = L"load-client-" + std::to_wstring(number);
  pool_ = lxAddLibraryProviderPool(name.c_str(), L"");
  // The first load of a provider fails at once, too, when it meets another
  // client's uncommitted write.
  for (int attempt = 1; (provider_ = pool_AddProvider(pool_, connection.server.c_str(), connection.database.c_str(),
                                                      connection.user.c_str(), connection.password.c_str())) == nullptr;
       ++attempt) {
    if (attempt == kLayoutAttempts) throw std::runtime_error("the catalog could not be attached");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  const int packets = provider_GetPacketCount(provider_);
  for (int p = 0; p < packets; ++p) {
    // A load fails at once when it meets another client's uncommitted
    // write, and for good when another client's new folder holds templates
    // (the folder tree in memory lacks it) until the provider is reloaded.
    for (int attempt = 1; !NoteLayout(provider_GetPacket(provider_, p)); ++attempt) {
      if (attempt == kLayoutAttempts) throw std::runtime_error("a packet could not be loaded");
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      lxReloadProvider(connection.server.c_str(), connection.database.c_str());
    }
  }
  if (sizes_.empty()) throw std::runtime_error("the catalog has no generated sizes");
  std::sort(sizes_.begin(), sizes_.end(), [](const SizePlace& a, const SizePlace& b) { return a.id < b.id; });
}

bool LoadClient::NoteLayout(LxPacket* packet) {
  // A reload whose own load failed leaves packets missing or without folders.
  LxFolder* root = packet != nullptr ? packet_GetRootFolder(packet) : nullptr;
  if (root == nullptr) return false;
  const std::wstring packetName = packet_GetName(packet);
  std::vector<SizePlace> sizes;
  for (int f = 0; f < folder_GetChildFolderCount(root); ++f) {
    LxFolder* folder = folder_GetChildFolder(root, f);
    const std::wstring folderName = folder_GetName(folder);
    LxFolderTable* table = folder_GetTable(folder);
    for (int s = 0; s < table_GetStdSizeCount(table); ++s) {
      const std::wstring identifier = stdsize_GetID(table_GetStdSize(table, s));
      if (!identifier.starts_with(kGeneratedPrefix)) continue;
      sizes.push_back(
          {packetName, folderName, identifier, std::stoi(identifier.substr(std::wcslen(kGeneratedPrefix)))});
    }
  }
  if (sizes.empty()) return false;
  packets_.push_back(packetName);
  sizes_.insert(sizes_.end(), sizes.begin(), sizes.end());
  return true;
}

LoadClient::~LoadClient() { lxDeleteProviderPool(pool_); }

void LoadClient::Record(const JournalEntry& entry) {
  std::lock_guard lock(journalMutex_);
  journal_ << FormatEntry(entry) << '\n';
}

bool LoadClient::JournalWritten() {
  std::lock_guard lock(journalMutex_);
  journal_.flush();
  return journal_.good();
}

void LoadClient::NoteFile(const std::wstring& path) {
  std::lock_guard lock(filesMutex_);
  files_.insert(path);
}

std::size_t LoadClient::TempFileCount() {
  std::lock_guard lock(filesMutex_);
  return files_.size();
}

std::string LoadClient::TempFolderProblem() {
  std::lock_guard lock(filesMutex_);
  std::set<std::filesystem::path> expected(files_.begin(), files_.end());
  std::string problem;
  for (const auto& entry : std::filesystem::directory_iterator(TempFolder())) {
    if (expected.erase(entry.path()) == 0) problem += "unexpected " + entry.path().string() + "; ";
  }
  for (const auto& missing : expected) problem += "missing " + missing.string() + "; ";
  return problem;
}

MixedWork::MixedWork(LoadClient& client, int thread, std::uint64_t seed)
    : client_(client), thread_(thread), random_(seed) {}

void MixedWork::WarmUp() {
  LoadPacket();
  for (const SizePlace& place : client_.sizes_) ReadModel(place);
  for (std::size_t i = 0; i < client_.packets_.size(); ++i) Search();
  for (int i = 0; i < kAddsPerFolder; ++i) {
    AddSize();
    WriteValue();
  }
  DeleteFolder();
}

void MixedWork::RunOne() {
  const int draw = static_cast<int>(random_() % 100);
  const int index =
      static_cast<int>(std::upper_bound(kWeightBounds.begin(), kWeightBounds.end(), draw) - kWeightBounds.begin());
  const auto operation = static_cast<Operation>(index);
  // A reload and a folder's deletion kill handles that other threads may hold.
  const bool killsHandles = operation == Operation::PacketLoad || (operation == Operation::SizeDelete && FolderDue());
  std::shared_lock shared(client_.Handles(), std::defer_lock);
  std::unique_lock exclusive(client_.Handles(), std::defer_lock);
  killsHandles ? exclusive.lock() : shared.lock();
  ++done_[index];
  if (!Run(operation)) ++failed_[index];
}

bool MixedWork::Run(Operation operation) {
  static constexpr std::array<bool (MixedWork::*)(), kOperations> kRuns{&MixedWork::LoadPacket, &MixedWork::Search,
                                                                        &MixedWork::WriteValue, &MixedWork::AddSize,
                                                                        &MixedWork::DeleteSize, &MixedWork::ReadModel};
  return (this->*kRuns[static_cast<int>(operation)])();
}

bool MixedWork::FolderDue() const { return scratchAdds_ > 0 && (scratchAdds_ >= kAddsPerFolder || ownSizes_.empty()); }

// The reload deletes the provider's files and every handle below it; the
// first table reached afterwards reads the whole packet again. A load that
// failed half-way must leave nothing twice for the next try.
bool MixedWork::LoadPacket() {
  const bool reloaded = lxReloadProvider(client_.connection_.server.c_str(), client_.connection_.database.c_str());
  {
    std::lock_guard lock(client_.filesMutex_);
    client_.files_.clear();
  }
  LxFolder* root = Root(AnyPacket());
  if (!reloaded || root == nullptr) return Note("packet missing after reload");
  if (folder_GetTable(root) == nullptr) return false;
  std::set<std::wstring> identifiers;
  for (int f = 0; f < folder_GetChildFolderCount(root); ++f) {
    LxFolderTable* table = folder_GetTable(folder_GetChildFolder(root, f));
    for (int s = 0; s < table_GetStdSizeCount(table); ++s) {
      if (!identifiers.insert(stdsize_GetID(table_GetStdSize(table, s))).second) {
        return Note("FAULT a size stands twice in a loaded packet");
      }
    }
  }
  return true;
}

bool MixedWork::Search() {
  LxSearchResult* result = pool_GetSearchResult(client_.pool_, AnyPacket().c_str(), kCondition);
  if (result == nullptr) return false;
  const bool found = search_GetCount(result) > 0;
  pool_DeleteSearchResult(client_.pool_, result);
  return found || Note("search found nothing");
}

bool MixedWork::WriteValue() {
  const std::vector<SizePlace>& sizes = client_.sizes_;
  const std::size_t hot = std::min(kHotCells, sizes.size());
  const SizePlace& place = random_() % 2 == 0 ? sizes[random_() % hot] : sizes[random_() % sizes.size()];
  LxFolderTable* table = nullptr;
  LxStdSize* size = Size(place, &table);
  LxAttribute* attribute = table != nullptr ? table_FindAttribute(table, kWrittenAttribute) : nullptr;
  if (size == nullptr || attribute == nullptr) return Note("generated size or attribute not found");
  // Unique over all clients and threads, and far above the generated values.
  const std::int64_t value = client_.number_ * 100'000'000LL + thread_ * 10'000'000LL + ++sequence_ % 10'000'000;
  JournalEntry entry{'V', std::to_string(place.id) + ":" + std::to_string(kWrittenNumber), value, MonotonicNs()};
  entry.succeeded = stdsize_SetValueI(size, attribute, static_cast<std::int32_t>(value));
  entry.endNs = MonotonicNs();
  client_.Record(entry);
  return entry.succeeded;
}

// Sizes are added to a folder of this thread's own, which goes as a whole
// after a few: a template stays when its last size is deleted, so only
// deleting the folder keeps the catalog from growing over a long run.
bool MixedWork::AddSize() {
  const std::string prefix = std::to_string(client_.number_) + "." + std::to_string(thread_) + ".";
  if (scratchFolder_.empty()) {
    const std::wstring packet = AnyPacket();
    const std::wstring name = Widened("S" + prefix + std::to_string(++sequence_));
    LxFolder* root = Root(packet);
    if (root == nullptr || folder_AddChildFolder(root, name.c_str()) == nullptr) return false;
    scratchPacket_ = packet;
    scratchFolder_ = name;
  }
  SizePlace place{scratchPacket_, scratchFolder_, Widened("L" + prefix + std::to_string(++sequence_))};
  LxFolderTable* table = Table(place.packet, place.folder);
  if (table == nullptr) return Note("own folder not found");
  JournalEntry entry{'A', Narrowed(place.identifier), 0, MonotonicNs()};
  LxStdSize* size = table_AddStdSize(table, place.identifier.c_str());
  entry.endNs = MonotonicNs();
  entry.succeeded = size != nullptr;
  client_.Record(entry);
  ++scratchAdds_;
  if (size == nullptr) return false;
  if (place.identifier != stdsize_GetID(size)) return Note("FAULT added size renamed");
  ownSizes_.push_back(std::move(place));
  return true;
}

bool MixedWork::DeleteSize() {
  if (scratchAdds_ == 0) return AddSize();
  if (FolderDue()) return DeleteFolder();
  const std::size_t index = random_() % ownSizes_.size();
  const SizePlace place = ownSizes_[index];
  LxFolderTable* table = nullptr;
  LxStdSize* size = Size(place, &table);
  // Not in memory when its packet's load failed; it stays to be tried again.
  if (size == nullptr) return Note("added size not found");
  JournalEntry entry{'D', Narrowed(place.identifier), 0, MonotonicNs()};
  entry.succeeded = table_DeleteStdSize(table, size);
  entry.endNs = MonotonicNs();
  client_.Record(entry);
  if (entry.succeeded) ownSizes_.erase(ownSizes_.begin() + static_cast<std::ptrdiff_t>(index));
  return entry.succeeded;
}

bool MixedWork::DeleteFolder() {
  LxFolder* root = Root(scratchPacket_);
  LxFolder* folder = Child(root, scratchFolder_);
  if (folder == nullptr) return Note("own folder not found");
  const std::int64_t start = MonotonicNs();
  const bool deleted = folder_DeleteChildFolder(root, folder);
  for (const SizePlace& place : ownSizes_) {
    client_.Record({'D', Narrowed(place.identifier), 0, start, MonotonicNs(), deleted});
  }
  if (!deleted) return false;
  ownSizes_.clear();
  scratchFolder_.clear();
  scratchAdds_ = 0;
  return true;
}

bool MixedWork::ReadModel() { return ReadModel(client_.sizes_[random_() % client_.sizes_.size()]); }

bool MixedWork::ReadModel(const SizePlace& place) {
  LxStdSize* size = Size(place);
  LxModel* model = size != nullptr ? stdsize_GetModel(size) : nullptr;
  const wchar_t* file = model != nullptr ? model_GetModelFile(model) : nullptr;
  if (file == nullptr) return false;
  std::error_code error;
  if (std::filesystem::file_size(std::filesystem::path(file), error) == 0 || error) {
    return Note("FAULT model file empty or missing");
  }
  client_.NoteFile(file);
  return true;
}

LxFolder* MixedWork::Root(const std::wstring& packetName) {
  LxPacket* packet = provider_GetPacketByName(client_.provider_, packetName.c_str());
  return packet != nullptr ? packet_GetRootFolder(packet) : nullptr;
}

LxFolder* MixedWork::Child(LxFolder* parent, const std::wstring& name) {
  for (int f = 0; parent != nullptr && f < folder_GetChildFolderCount(parent); ++f) {
    LxFolder* folder = folder_GetChildFolder(parent, f);
    const wchar_t* folderName = folder != nullptr ? folder_GetName(folder) : nullptr;
    if (folderName != nullptr && name == folderName) return folder;
  }
  return nullptr;
}

LxFolderTable* MixedWork::Table(const std::wstring& packetName, const std::wstring& folderName) {
  LxFolder* folder = Child(Root(packetName), folderName);
  return folder != nullptr ? folder_GetTable(folder) : nullptr;
}

LxStdSize* MixedWork::Size(const SizePlace& place, LxFolderTable** tableOut) {
  LxFolderTable* table = Table(place.packet, place.folder);
  if (tableOut != nullptr) *tableOut = table;
  return table != nullptr ? table_FindStdSize(table, place.identifier.c_str()) : nullptr;
}

const std::wstring& MixedWork::AnyPacket() { return client_.packets_[random_() % client_.packets_.size()]; }

bool MixedWork::Note(const char* reason) {
  ++notes_[reason];
  return false;
}

}  // namespace lxtest
