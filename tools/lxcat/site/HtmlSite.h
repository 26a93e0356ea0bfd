#pragma once
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "LxDataAccess.h"

namespace lxcat {

// Told after each folder page is written; total is known before the first.
using SiteProgress = std::function<void(size_t done, size_t total)>;

// Writes a static site of every packet of the provider into outDir: an index,
// one page per folder with its table, thumbnails of the images stored as
// models and projections, and a search box over the page. It needs no server
// and loads nothing from outside outDir. False with one line in `error` when
// the site could not be written.
bool WriteHtmlSite(LxDataProvider* provider, const std::filesystem::path& outDir, const SiteProgress& progress,
                   std::string& error);

}  // namespace lxcat
