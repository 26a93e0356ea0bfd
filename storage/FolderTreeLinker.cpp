#include "storage/FolderTreeLinker.h"

#include "catalog/CFolder.h"
#include "catalog/CPacket.h"

FolderTreeLinker::FolderTreeLinker() = default;
FolderTreeLinker::~FolderTreeLinker() = default;

void FolderTreeLinker::AddPacket(std::int32_t rootFolderId, CPacket* packet) {
  packetByRootId_[rootFolderId] = packet;
}

void FolderTreeLinker::AddFolder(std::unique_ptr<CFolder> folder, std::optional<std::int32_t> parentId) {
  rowById_[folder->GetId()] = rows_.size();
  rows_.push_back(Row{std::move(folder), parentId});
}

void FolderTreeLinker::PlaceSubtree(std::size_t root,
                                    const std::unordered_map<std::int32_t, std::vector<std::size_t>>& children) {
  // Explicit stack: a catalog's tree may be deeper than the call stack allows.
  std::vector<CFolder*> pending{rows_[root].folder.get()};
  while (!pending.empty()) {
    CFolder* parent = pending.back();
    pending.pop_back();
    const auto found = children.find(parent->GetId());
    if (found == children.end()) continue;
    for (std::size_t row : found->second) {
      pending.push_back(parent->AppendChild(std::move(rows_[row].folder)));
    }
  }
}

std::optional<std::wstring> FolderTreeLinker::Link() {
  std::unordered_map<std::int32_t, std::vector<std::size_t>> children;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].parentId) children[*rows_[row].parentId].push_back(row);
  }
  for (const auto& [rootId, packet] : packetByRootId_) {
    const auto found = rowById_.find(rootId);
    if (found == rowById_.end() || rows_[found->second].parentId || !rows_[found->second].folder) continue;
    PlaceSubtree(found->second, children);
    packet->SetRootFolder(std::move(rows_[found->second].folder));
  }
  for (const Row& row : rows_) {
    if (row.folder) return row.folder->GetName();
  }
  return std::nullopt;
}
