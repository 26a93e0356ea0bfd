// CatalogGenerator: writes a synthetic catalog of a given shape into an
// existing catalog database, directly in SQL: packets, folder trees,
// templates, attributes, sizes and values, as the library's load expects
// them. For tests and benchmarks that need catalogs larger or stranger than
// the interface can make quickly.
//
// A generation is one transaction: the catalog gets all the rows or none.
// Around it the folder bound trigger is switched off (the bounds are written
// precomputed) and back on, each in a committed transaction of its own, and
// so are the file's forced writes. Ids
// are reserved on the catalog's generators, so the library's own inserts
// afterwards take ids behind the generated ones. An existing catalog keeps
// its rows; the new packets come beside them.
//
// The same shape and seed give the same rows in a new catalog. Not
// thread-safe; the catalog must not be written by others meanwhile.
//
//   CatalogShape shape;
//   shape.packets = 1000;
//   shape.totalFolders = 20000;
//   CatalogCounts written = CatalogGenerator(shape).Generate(L"", path, L"SYSDBA", L"");
#pragma once

#include <string>

#include "tools/CatalogGenerator/CatalogCounts.h"
#include "tools/CatalogGenerator/CatalogPlan.h"
#include "tools/CatalogGenerator/CatalogShape.h"
#include "tools/CatalogGenerator/CatalogWriter.h"

class CDataProvider;

class CatalogGenerator {
 public:
  // std::invalid_argument when the shape can't be generated (ShapeProblem,
  // or totals beyond 32-bit ids).
  explicit CatalogGenerator(const CatalogShape& shape);

  // What a generation writes, before it runs; the dictionary counts are 0.
  const CatalogCounts& Planned() const { return plan_.Totals(); }

  // Writes into the catalog that the provider's connection strings name
  // (only those are used). Database failures are IBPP::Exceptions; the
  // catalog then has none of the rows.
  CatalogCounts Generate(CDataProvider& provider, GenerationProgress progress = {}) const;
  // The same for a catalog given by server (empty: embedded), path, user and
  // password.
  CatalogCounts Generate(const std::wstring& server, const std::wstring& path, const std::wstring& user,
                         const std::wstring& password, GenerationProgress progress = {}) const;

 private:
  CatalogPlan plan_;
};
