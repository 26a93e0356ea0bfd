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

// One packet whose root holds 20 templates sharing `sizes` sizes, each with
// `columns` numbered attributes and no attribute 11: the flat packet that
// load times are measured on.
CatalogShape FlatPacket(std::int32_t sizes, std::int32_t columns);

// The catalog of `shape` made on the first call under `name` and kept to the
// end of the run, so that each argument of a benchmark generates its catalog
// once; `name` must tell the shapes of one program apart.
const GeneratedCatalog& GeneratedOnce(const std::string& name, const CatalogShape& shape);

}  // namespace lxtest
