// CatalogPlan: the numbers that follow from a shape: how many folders each
// packet has, which of them hold templates, how many sizes each template
// gets, which split group a template is in, and the totals. The generator
// reserves ids from these totals before it writes a row, and walks the same
// plan while it writes, so the two agree by construction.
//
// Immutable after construction; any thread may read it.
#pragma once

#include <cstdint>
#include <vector>

#include "tools/CatalogGenerator/AttributeLayout.h"
#include "tools/CatalogGenerator/CatalogCounts.h"
#include "tools/CatalogGenerator/CatalogShape.h"

class CatalogPlan {
 public:
  // std::invalid_argument with the shape's problem, or when a total would
  // not fit the catalog's 32-bit ids.
  explicit CatalogPlan(const CatalogShape& shape);

  const CatalogShape& Shape() const { return shape_; }
  std::int32_t FoldersOf(std::int32_t packet) const;
  // Whether a folder at this position of a packet of `folders` folders holds
  // templates.
  bool HoldsTemplates(std::int32_t folders, std::int32_t folder) const;
  std::int32_t TemplateFoldersOf(std::int32_t packet) const;
  // Sizes of the `index`-th template of a packet, counting over all its
  // folders in write order.
  std::int32_t SizesOf(std::int32_t packet, std::int64_t index) const;
  // Split groups in a folder that holds templates, and the group of its
  // `index`-th template. Groups are runs of neighbours.
  std::int32_t GroupsPerFolder() const;
  std::int32_t GroupOf(std::int32_t index) const;
  const std::vector<AttributeDefinition>& AttributesOfGroup(std::int32_t group) const;
  // The model of the `place`-th template of the run and the fragment of its
  // `place`-th projection, as positions among the distinct ones written.
  std::int32_t ModelOf(std::int64_t place) const;
  std::int32_t FragmentOf(std::int64_t place) const;

  // Every count but the dictionaries', which depend on what the catalog
  // already holds.
  const CatalogCounts& Totals() const { return totals_; }

 private:
  void Count();
  std::int64_t FirstOfGroup(std::int32_t group) const;

  CatalogShape shape_;
  // The layouts of even and odd groups; they differ only with
  // SplitBy::AttributeSets.
  std::vector<AttributeDefinition> evenGroup_;
  std::vector<AttributeDefinition> oddGroup_;
  CatalogCounts totals_;
};
