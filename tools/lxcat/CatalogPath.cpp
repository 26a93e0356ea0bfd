#include "tools/lxcat/CatalogPath.h"

#include <vector>

namespace lxcat {
namespace {

std::vector<std::wstring_view> Split(std::wstring_view path) {
  std::vector<std::wstring_view> parts;
  size_t start = 0;
  while (start <= path.size()) {
    const size_t end = path.find(L'\\', start);
    const size_t stop = end == std::wstring_view::npos ? path.size() : end;
    parts.push_back(path.substr(start, stop - start));
    start = stop + 1;
  }
  return parts;
}

LxFolder* FindChild(LxFolder* folder, std::wstring_view name) {
  const int32_t count = folder_GetChildFolderCount(folder);
  for (int32_t i = 0; i < count; ++i) {
    LxFolder* child = folder_GetChildFolder(folder, i);
    const wchar_t* childName = child ? folder_GetName(child) : nullptr;
    if (childName && name == childName) return child;
  }
  return nullptr;
}

}  // namespace

LxFolder* FindFolder(LxDataProvider* provider, std::wstring_view path) {
  const std::vector<std::wstring_view> parts = Split(path);
  if (parts.empty() || parts.front().empty()) return nullptr;
  LxPacket* packet = provider_GetPacketByName(provider, std::wstring(parts.front()).c_str());
  LxFolder* folder = packet ? packet_GetRootFolder(packet) : nullptr;
  for (size_t i = 1; folder && i < parts.size(); ++i) folder = FindChild(folder, parts[i]);
  return folder;
}

std::wstring FolderPath(LxFolder* folder) {
  std::vector<const wchar_t*> names;
  for (LxFolder* step = folder; step; step = folder_GetParentFolder(step)) {
    if (folder_GetParentFolder(step)) names.push_back(folder_GetName(step));
  }
  LxPacket* packet = folder ? folder_GetPacket(folder) : nullptr;
  const wchar_t* packetName = packet ? packet_GetName(packet) : nullptr;
  std::wstring path = packetName ? packetName : L"";
  for (auto it = names.rbegin(); it != names.rend(); ++it) path.append(L"\\").append(*it ? *it : L"");
  return path;
}

}  // namespace lxcat
