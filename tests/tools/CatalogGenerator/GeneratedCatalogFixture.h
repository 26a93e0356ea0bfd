// A test with a catalog of its own (CatalogFixture) into which the catalog
// generator writes, and the questions the tests ask of the result in SQL.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"

namespace lxtest {

// Two packets of 1 + 2 + 4 folders; 3 templates in each of the 4 leaves;
// 2 sizes each; attributes 21..25: two per size, 23 common, 24 and 25
// formulas; attribute 11 on top.
inline CatalogShape SmallTree() {
  CatalogShape shape;
  shape.seed = 17;
  shape.packets = 2;
  shape.depth = 2;
  shape.fanOut = 2;
  shape.templatesPerFolder = 3;
  shape.sizesPerTemplate = 2;
  shape.attributes = 5;
  shape.commonAttributes = 1;
  shape.formulaAttributes = 2;
  return shape;
}

class GeneratedCatalogFixture : public CatalogFixture {
 protected:
  // Into this test's catalog, or into another file of this test.
  CatalogCounts Generate(const CatalogShape& shape, GenerationProgress progress = {});
  CatalogCounts GenerateInto(const std::wstring& file, const CatalogShape& shape);

  std::int32_t Rows(const std::wstring& table) { return Sql().Int(L"SELECT COUNT(*) FROM " + table); }
  // Whether the folder bound trigger is on, read from the system tables.
  bool BoundTriggerActive();
  bool ForcedWrites();
  // Rows whose bounds break the nested set: a child outside its parent, a
  // subtree whose span isn't twice its folders, a bound used twice.
  std::int32_t BrokenBounds();
  // The first column of every row of a query on another file of this test.
  std::vector<std::wstring> TextsOf(const std::wstring& file, const std::wstring& query);
};

}  // namespace lxtest
