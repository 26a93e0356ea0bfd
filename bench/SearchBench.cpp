// Search while drawing: a generated packet of 100 or 400 folders of 500 sizes
// with 10 values each (50,000 and 200,000 sizes), a two-clause condition over
// a number and a text. The search through its export (folders split over the
// machine's cores) is measured against a plain single-threaded loop that
// checks the same sizes, in the same order, with one compiled condition
// through search2_Check's own path (no export, no frame). Both report
// ns per size checked. A third case times a search whose packet is not
// loaded yet, load included.
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <vector>

#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "api/Handles.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CTemplate.h"
#include "search/CSearchHelper.h"
#include "search/CSearchResult2.h"

namespace {

constexpr std::int32_t kSizesPerFolder = 500;
// A21 is an integer in [-1000, 1000], A23 a material and a number.
constexpr const wchar_t* kCondition = L"Параметр 21>=100 && Параметр 23==\"сталь*\"";

struct LoadedCatalog {
  std::unique_ptr<lxtest::GeneratedCatalog> file;
  LxProviderPool* pool = nullptr;
  LxPacket* packet = nullptr;
  std::int32_t sizes = 0;
};

LoadedCatalog& Catalog(std::int32_t folders) {
  static std::map<std::int32_t, LoadedCatalog> catalogs;
  LoadedCatalog& catalog = catalogs[folders];
  if (!catalog.file) {
    CatalogShape shape;
    shape.totalFolders = folders + 1;  // the root holds the folders, the folders the sizes
    shape.fanOut = folders;
    shape.sizesPerTemplate = kSizesPerFolder;
    shape.attributes = 10;
    catalog.file = std::make_unique<lxtest::GeneratedCatalog>("bench-search", shape);
    const std::wstring name = L"bench-search-" + std::to_wstring(folders);
    catalog.pool = lxAddLibraryProviderPool(name.c_str(), L"");
    LxDataProvider* provider = pool_AddProvider(catalog.pool, L"", catalog.file->Path().c_str(), L"SYSDBA", L"");
    catalog.packet = provider_GetPacket(provider, 0);
    catalog.sizes = folders * kSizesPerFolder;
  }
  return catalog;
}

// The sizes in the order the search meets them: folders level by level,
// templates in table order, sizes in template order.
std::vector<CStandartSize*> SizesInSearchOrder(LxPacket* packet) {
  std::vector<CStandartSize*> sizes;
  for (CFolder* folder : CSearchHelper::FolderList(Obj(packet)->GetRootFolder())) {
    const CFolderTable& table = *folder->_GetTable();
    for (std::size_t t = 0; t < table.TemplateCount(); ++t) {
      for (std::size_t s = 0; s < table.Template(t)->SizeCount(); ++s) sizes.push_back(table.Template(t)->Size(s));
    }
  }
  return sizes;
}

void ReportPerSize(benchmark::State& state, std::int32_t sizes, std::int64_t found) {
  state.counters["sizes"] = sizes;
  state.counters["found"] = static_cast<double>(found);
  state.counters["ns_per_size"] = benchmark::Counter(static_cast<double>(sizes) * 1e-9,
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

void BM_SearchExport(benchmark::State& state) {
  LoadedCatalog& catalog = Catalog(static_cast<std::int32_t>(state.range(0)));
  folder_GetTable(packet_GetRootFolder(catalog.packet));  // loaded before timing
  std::int64_t found = 0;
  for (auto _ : state) {
    LxSearchResult* result = pool_GetSearchResult(catalog.pool, packet_GetName(catalog.packet), kCondition);
    found = search_GetCount(result);
    pool_DeleteSearchResult(catalog.pool, result);
  }
  ReportPerSize(state, catalog.sizes, found);
}

void BM_CheckLoop(benchmark::State& state) {
  LoadedCatalog& catalog = Catalog(static_cast<std::int32_t>(state.range(0)));
  const std::vector<CStandartSize*> sizes = SizesInSearchOrder(catalog.packet);
  const std::unique_ptr<CSearchResult2> condition = CSearchResult2::_CreateSearchResult2(kCondition);
  std::int64_t found = 0;
  for (auto _ : state) {
    std::vector<CStandartSize*> matches;
    for (CStandartSize* size : sizes) {
      if (condition->Check(*size)) matches.push_back(size);
    }
    found = static_cast<std::int64_t>(matches.size());
    benchmark::DoNotOptimize(matches.data());
  }
  ReportPerSize(state, catalog.sizes, found);
}

void BM_SearchUnloaded(benchmark::State& state) {
  LoadedCatalog& catalog = Catalog(static_cast<std::int32_t>(state.range(0)));
  std::int64_t found = 0;
  for (auto _ : state) {
    state.PauseTiming();
    lxReloadProvider(L"", catalog.file->Path().c_str());
    catalog.packet = provider_GetPacket(pool_GetProvider(catalog.pool, 0), 0);
    state.ResumeTiming();
    LxSearchResult* result = pool_GetSearchResult(catalog.pool, packet_GetName(catalog.packet), kCondition);
    found = search_GetCount(result);
    pool_DeleteSearchResult(catalog.pool, result);
  }
  ReportPerSize(state, catalog.sizes, found);
}

}  // namespace

BENCHMARK(BM_SearchExport)->Arg(100)->Arg(400)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CheckLoop)->Arg(100)->Arg(400)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_SearchUnloaded)->Arg(400)->Iterations(2)->Unit(benchmark::kMillisecond)->UseRealTime();
