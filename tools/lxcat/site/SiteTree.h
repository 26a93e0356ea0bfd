// The folders of a site in page order: every packet of the provider, each
// tree walked depth first from its root, so that a packet's folders are
// neighbours (the writer caches one packet's thumbnails at a time) and the
// index lists them as the designers see the tree. Built once before the
// first page, so that the total is known for progress and every link can be
// written before the page it points at exists. Not thread-safe: it calls the
// library.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "LxDataAccess.h"

namespace lxcat {

inline constexpr size_t kNoFolder = static_cast<size_t>(-1);

struct SiteFolder {
  LxFolder* folder = nullptr;
  LxPacket* packet = nullptr;
  // UTF-8; a root folder is shown by its packet's name.
  std::string name;
  // 'Packet\Folder\Sub', UTF-8.
  std::string path;
  // File name of its page, relative to the site's folder.
  std::string page;
  size_t parent = kNoFolder;
  std::vector<size_t> children;
};

// Every folder of every packet; a packet without a root folder has none.
std::vector<SiteFolder> CollectSiteFolders(LxDataProvider* provider);

}  // namespace lxcat
