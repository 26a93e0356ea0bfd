#include "tools/lxcat/site/SiteTree.h"

#include <utility>

#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

size_t AddFolder(std::vector<SiteFolder>& folders, LxFolder* folder, LxPacket* packet, size_t parent) {
  SiteFolder entry;
  entry.folder = folder;
  entry.packet = packet;
  entry.name = Text(parent == kNoFolder ? packet_GetName(packet) : folder_GetName(folder));
  // The parent's path is at hand: no walk up the tree for each folder.
  entry.path = parent == kNoFolder ? entry.name : folders[parent].path + "\\" + entry.name;
  entry.page = "folder-" + std::to_string(folders.size() + 1) + ".html";
  entry.parent = parent;
  folders.push_back(std::move(entry));
  const size_t index = folders.size() - 1;
  if (parent != kNoFolder) folders[parent].children.push_back(index);
  return index;
}

// Depth first with a stack of its own: a catalog's tree may be deeper than
// the call stack would like. Children are pushed last to first so that they
// come out in the library's order.
void AddTree(std::vector<SiteFolder>& folders, LxPacket* packet, LxFolder* root) {
  std::vector<std::pair<LxFolder*, size_t>> pending{{root, kNoFolder}};
  while (!pending.empty()) {
    const auto [folder, parent] = pending.back();
    pending.pop_back();
    const size_t index = AddFolder(folders, folder, packet, parent);
    for (int32_t i = folder_GetChildFolderCount(folder) - 1; i >= 0; --i) {
      if (LxFolder* child = folder_GetChildFolder(folder, i)) pending.emplace_back(child, index);
    }
  }
}

}  // namespace

std::vector<SiteFolder> CollectSiteFolders(LxDataProvider* provider) {
  std::vector<SiteFolder> folders;
  const int32_t packetCount = provider_GetPacketCount(provider);
  for (int32_t i = 0; i < packetCount; ++i) {
    LxPacket* packet = provider_GetPacket(provider, i);
    LxFolder* root = packet ? packet_GetRootFolder(packet) : nullptr;
    if (root) AddTree(folders, packet, root);
  }
  return folders;
}

}  // namespace lxcat
