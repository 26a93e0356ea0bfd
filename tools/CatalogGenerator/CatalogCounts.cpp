#include "tools/CatalogGenerator/CatalogCounts.h"

#include <utility>

std::string DescribeCounts(const CatalogCounts& counts) {
  const std::pair<const char*, std::int64_t> lines[] = {
      {"packets", counts.packets},
      {"folders", counts.folders},
      {"templates (OBJECT)", counts.templates},
      {"sizes (STANDARDSIZE)", counts.sizes},
      {"template attributes (OBJECTATTRIBUTE)", counts.templateAttributes},
      {"values (CONCRETEVALUE)", counts.values},
      {"size values (ATTRIBUTEVALUE)", counts.sizeValues},
      {"new attribute names", counts.newAttributeNames},
      {"new attribute descriptions", counts.newAttributeDescriptions},
      {"folders that split", counts.splitFolders},
      {"virtual folders expected", counts.virtualFolders},
      {"models (MODEL)", counts.models},
      {"fragments (FRAGMENT)", counts.fragments},
      {"projections (OBJECTPROJECTION)", counts.projections},
  };
  std::string text;
  for (const auto& [name, count] : lines) text += std::string(name) + ": " + std::to_string(count) + "\n";
  return text;
}
