#include "GeneratedCatalog.h"

#include <stdlib.h>

#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>

#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"

namespace lxtest {

GeneratedCatalog::GeneratedCatalog(const std::string& name, const CatalogShape& shape) {
  std::string pattern = (std::filesystem::temp_directory_path() / (name + "-XXXXXX")).string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  folder_ = pattern;
  const std::filesystem::path file = folder_ / "catalog.fdb";
  const auto image = EmptyCatalogImage();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
  path_ = Utf8ToWide(file.string());
  written_ = CatalogGenerator(shape).Generate(L"", path_, L"SYSDBA", L"masterkey");
}

GeneratedCatalog::~GeneratedCatalog() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

CatalogShape FlatPacket(std::int32_t sizes, std::int32_t columns) {
  CatalogShape shape;
  shape.packets = 1;
  shape.depth = 0;
  shape.templatesPerFolder = 20;
  shape.sizesPerPacket = sizes;
  shape.attributes = columns;
  shape.idSpecification = false;
  return shape;
}

const GeneratedCatalog& GeneratedOnce(const std::string& name, const CatalogShape& shape) {
  static std::map<std::string, std::unique_ptr<GeneratedCatalog>> catalogs;
  std::unique_ptr<GeneratedCatalog>& catalog = catalogs[name];
  if (!catalog) catalog = std::make_unique<GeneratedCatalog>(name, shape);
  return *catalog;
}

}  // namespace lxtest
