// CatalogCounts: how many rows of each kind a generation wrote, and how many
// virtual folders the library's load should make of them. A plain value
// type.
#pragma once

#include <cstdint>
#include <string>

struct CatalogCounts {
  std::int64_t packets = 0;
  std::int64_t folders = 0;
  std::int64_t templates = 0;
  std::int64_t sizes = 0;
  // OBJECTATTRIBUTE rows: one per template and attribute.
  std::int64_t templateAttributes = 0;
  // CONCRETEVALUE rows: the sizes' values and the templates' common values.
  std::int64_t values = 0;
  // ATTRIBUTEVALUE rows: one per size and attribute with a value per size.
  std::int64_t sizeValues = 0;
  // ATTRIBUTENAME and ATTRIBUTEDESCRIPTION rows that did not exist before.
  std::int64_t newAttributeNames = 0;
  std::int64_t newAttributeDescriptions = 0;
  // Folders whose templates form two or more groups, and the groups in them.
  std::int64_t splitFolders = 0;
  std::int64_t virtualFolders = 0;
  // MODEL and FRAGMENT rows, each a distinct content, and OBJECTPROJECTION
  // rows.
  std::int64_t models = 0;
  std::int64_t fragments = 0;
  std::int64_t projections = 0;

  bool operator==(const CatalogCounts&) const = default;
};

// One line per count, "name: number", for people.
std::string DescribeCounts(const CatalogCounts& counts);
