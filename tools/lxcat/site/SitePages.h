// The HTML of the site's pages, as text. Every link is relative and points
// at a page of the same site or an image below it; style and script are
// inline (PageAssets.h), so the pages open from a plain folder. Catalog texts
// are escaped (HtmlText.h). Pure functions; thread-safe.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "tools/lxcat/FolderTable.h"
#include "tools/lxcat/site/SiteImages.h"
#include "tools/lxcat/site/SiteTree.h"

namespace lxcat {

inline constexpr char kIndexPage[] = "index.html";

// The packets and their folder trees as nested lists, each folder a link to
// its page.
std::string IndexPage(const std::vector<SiteFolder>& folders);

// The page of folders[index]: the way up from the index, the children, and
// the folder's table with one row per size. `thumbnails` has one entry per
// row of `table` (it may be empty when no size has a picture).
std::string FolderPage(const std::vector<SiteFolder>& folders, size_t index, const TableData& table,
                       const std::vector<std::vector<Thumbnail>>& thumbnails);

}  // namespace lxcat
