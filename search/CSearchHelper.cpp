#include "search/CSearchHelper.h"

#include <future>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CTemplate.h"
#include "platform/Concurrency.h"
#include "platform/Report.h"
#include "search/SearchCondition.h"

namespace {

constexpr const char* kMethod = "CSearchHelper::_Run";
// Room that a typical search's finds take without growing.
constexpr std::size_t kTypicalFinds = 150;

// The pieces between separators; n separators give n + 1 pieces, empty ones
// included.
std::vector<std::wstring> Split(const std::wstring& text, wchar_t separator) {
  std::vector<std::wstring> pieces;
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != std::wstring::npos; end = text.find(separator, begin)) {
    pieces.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

// A folder whose packet failed to load was reported while the list was
// built, and its table may hold what the failed load left: it counts as
// empty.
bool Searchable(const CFolder& folder) { return folder.GetPacket() != nullptr && folder.GetPacket()->IsLoaded(); }

std::vector<CStandartSize*> MatchesInChunk(const std::vector<CFolder*>& folders, Chunk chunk,
                                           const CFormula& condition) {
  std::vector<CStandartSize*> found;
  for (std::size_t i = chunk.first; i < chunk.last; ++i) {
    if (!Searchable(*folders[i])) continue;
    const CFolderTable& table = *folders[i]->TableInMemory();
    for (std::size_t t = 0; t < table.TemplateCount(); ++t) {
      const CTemplate& owner = *table.Template(t);
      for (std::size_t s = 0; s < owner.SizeCount(); ++s) {
        if (SizeMatches(condition, *owner.Size(s))) found.push_back(owner.Size(s));
      }
    }
  }
  return found;
}

}  // namespace

std::unique_ptr<CSearchResult> CSearchHelper::_Run(const PacketLookup& findPacket, const std::wstring& packets,
                                                   const std::wstring& query) {
  if (packets.empty()) {
    Report(L"Требуется передать не пустой список пакетов (и вложенных фолдеров через /). Разделитель ';'", kMethod);
    return nullptr;
  }
  if (query.empty()) {
    Report(kEmptyQueryMessage, kMethod);
    return nullptr;
  }
  const std::vector<std::wstring> items = Split(packets, L';');
  const FormulaPtr condition = ParseSearchCondition(query);
  std::vector<CStandartSize*> found;
  found.reserve(kTypicalFinds);
  for (const std::wstring& item : items) {
    CFolder* top = FindItemFolder(findPacket, item);
    if (top == nullptr) return nullptr;
    SearchInFolders(FolderList(top), *condition, found);
  }
  return std::make_unique<CSearchResult>(std::move(found));
}

CFolder* CSearchHelper::FindItemFolder(const PacketLookup& findPacket, const std::wstring& item) {
  const std::vector<std::wstring> parts = Split(item, L'\\');
  CPacket* packet = findPacket(parts.front());
  if (packet == nullptr) {
    Report(L"Отсутствует пакет '" + parts.front() + L"'", kMethod);
    return nullptr;
  }
  CFolder* folder = packet->GetRootFolder();
  for (std::size_t i = 1; i < parts.size() && folder != nullptr; ++i) {
    folder->_GetTable();
    CFolder* child = folder->FindChild(parts[i]);
    if (child == nullptr) {
      Report(L"Отсутствует фолдер '" + parts[i] + L"'" + L" в дорожке '" + item + L"'", kMethod);
      return nullptr;
    }
    folder = child;
  }
  return folder;
}

std::vector<CFolder*> CSearchHelper::FolderList(CFolder* top) {
  std::vector<CFolder*> folders{top};
  for (std::size_t i = 0; i < folders.size(); ++i) {
    CFolder* folder = folders[i];
    folder->_GetTable();  // a failed load has reported; the folder then counts as empty
    for (std::size_t c = 0; c < folder->ChildCount(); ++c) folders.push_back(folder->Child(c));
  }
  return folders;
}

// A task's exception comes back out of get(); the futures of std::async join
// their tasks when they are destroyed, so none outlives this call, whichever
// way it is left.
void CSearchHelper::SearchInFolders(const std::vector<CFolder*>& folders, const CFormula& condition,
                                    std::vector<CStandartSize*>& found) {
  const std::vector<Chunk> chunks = SplitIntoChunks(folders.size(), HardwareThreads(), kFoldersPerChunk);
  if (chunks.empty()) return;
  std::vector<std::future<std::vector<CStandartSize*>>> tasks;
  tasks.reserve(chunks.size() - 1);
  for (std::size_t i = 1; i < chunks.size(); ++i) {
    tasks.push_back(std::async(std::launch::async, MatchesInChunk, std::cref(folders), chunks[i], std::cref(condition)));
  }
  const std::vector<CStandartSize*> first = MatchesInChunk(folders, chunks.front(), condition);
  found.insert(found.end(), first.begin(), first.end());
  for (auto& task : tasks) {
    const std::vector<CStandartSize*> more = task.get();
    found.insert(found.end(), more.begin(), more.end());
  }
}
