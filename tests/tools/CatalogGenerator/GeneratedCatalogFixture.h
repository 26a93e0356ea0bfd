// A test with a catalog of its own (CatalogFixture) into which the catalog
// generator writes, and the questions the tests ask of the result in SQL.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"

namespace lxtest {

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
