#include "tools/lxcat/site/HtmlSite.h"

#include <system_error>
#include <vector>

#include "tools/lxcat/FolderTable.h"
#include "tools/lxcat/site/SiteFiles.h"
#include "tools/lxcat/site/SiteImages.h"
#include "tools/lxcat/site/SitePages.h"
#include "tools/lxcat/site/SiteTree.h"

namespace lxcat {
namespace {

constexpr char kImageFolder[] = "images";

// One vector per row, or none at all when no size has a picture, so that a
// folder without pictures gets no empty column.
bool ReadThumbnails(const TableData& data, SiteImages& images, std::vector<std::vector<Thumbnail>>& thumbnails,
                    std::string& error) {
  thumbnails.assign(data.rows.size(), {});
  bool any = false;
  for (size_t i = 0; i < data.rows.size(); ++i) {
    if (!images.AddThumbnails(data.rows[i].size, thumbnails[i], error)) return false;
    any = any || !thumbnails[i].empty();
  }
  if (!any) thumbnails.clear();
  return true;
}

bool WriteFolderPage(const std::filesystem::path& outDir, const std::vector<SiteFolder>& folders, size_t index,
                     SiteImages& images, std::string& error) {
  LxFolderTable* table = folder_GetTable(folders[index].folder);
  const TableData data = table ? ReadFolderTable(table) : TableData{};
  std::vector<std::vector<Thumbnail>> thumbnails;
  if (!ReadThumbnails(data, images, thumbnails, error)) return false;
  return WriteSiteFile(outDir / folders[index].page, FolderPage(folders, index, data, thumbnails), error);
}

// Projection icons come from one query per packet instead of one per
// fragment; only one packet's icons are held at a time.
class PacketIcons {
 public:
  ~PacketIcons() { Switch(nullptr); }
  void Switch(LxPacket* packet) {
    if (packet == cached_) return;
    if (cached_) packet_ClearDataCache(cached_);
    cached_ = packet;
    if (cached_) packet_CacheData(cached_);
  }

 private:
  LxPacket* cached_ = nullptr;
};

}  // namespace

bool WriteHtmlSite(LxDataProvider* provider, const std::filesystem::path& outDir, const SiteProgress& progress,
                   std::string& error) {
  if (!provider) {
    error = "no catalog to write a site of";
    return false;
  }
  std::error_code code;
  std::filesystem::create_directories(outDir / kImageFolder, code);
  if (code) {
    error = "cannot create " + (outDir / kImageFolder).string() + ": " + code.message();
    return false;
  }
  const std::vector<SiteFolder> folders = CollectSiteFolders(provider);
  if (!WriteSiteFile(outDir / kIndexPage, IndexPage(folders), error)) return false;
  SiteImages images(outDir, kImageFolder);
  PacketIcons icons;
  for (size_t i = 0; i < folders.size(); ++i) {
    icons.Switch(folders[i].packet);
    if (!WriteFolderPage(outDir, folders, i, images, error)) return false;
    if (progress) progress(i + 1, folders.size());
  }
  return true;
}

}  // namespace lxcat
