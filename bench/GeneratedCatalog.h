// A catalog file of one benchmark run: a private temporary folder, the
// library's empty catalog written into it, filled by the catalog generator
// to the given shape. The folder goes when the object does.
#pragma once

#include <filesystem>
#include <string>

#include "tools/CatalogGenerator/CatalogGenerator.h"

namespace lxtest {

class GeneratedCatalog {
 public:
  GeneratedCatalog(const std::string& name, const CatalogShape& shape);
  ~GeneratedCatalog();
  GeneratedCatalog(const GeneratedCatalog&) = delete;
  GeneratedCatalog& operator=(const GeneratedCatalog&) = delete;

  const std::wstring& Path() const { return path_; }
  const CatalogCounts& Written() const { return written_; }

 private:
  std::filesystem::path folder_;
  std::wstring path_;
  CatalogCounts written_;
};

}  // namespace lxtest
