// Attaching a provider to a large catalog: a catalog of 1,000 packets and
// 20,000 folders, made once per run by the catalog generator, attached with
// pool_AddProvider (attach and the basic load: packets, folder tree, the two
// attribute dictionaries) in a fresh pool each time, and reloaded with
// lxReloadProvider. Against them, the two SELECTs of the basic load with
// every row fetched and every column read: through our storage layer
// (operation scope, IBPP statement, code page 1251 text), and directly on the
// Firebird client's ISC API with nothing around it. Each variant opens its
// own attachment and transaction, as the library does.
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>
#include <locale.h>
#include <stdlib.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "DirectClient.h"
#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/DbText.h"
#include "storage/EmptyCatalogImage.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"

namespace {

constexpr std::int32_t kPackets = 1000;
constexpr std::int32_t kFolders = 20000;
constexpr const wchar_t* kUser = L"SYSDBA";
constexpr const wchar_t* kPassword = L"masterkey";

// The two queries of the basic load, and their reading through the storage
// layer in one operation scope.
class AttachBenchOperation : public BaseOperation {
 public:
  static constexpr const char* kPacketQuery = "SELECT ID, PACKETID, FOLDERID FROM PACKET";
  static constexpr const char* kFolderQuery = "SELECT ID, NAME, ID_PARENT FROM FOLDER";

  explicit AttachBenchOperation(CDataProvider* provider) : BaseOperation(provider) {}

  // Rows of both queries.
  std::int64_t ReadPacketsAndFolders() {
    std::int64_t rows = 0;
    std::int32_t id = 0;
    std::int32_t reference = 0;
    std::wstring name;
    {
      IBPP::Statement statement = NewStatement();
      statement.Execute(kPacketQuery);
      while (statement.Fetch()) {
        statement.Get(1, id);
        GetDbText(statement, 2, name);
        statement.Get(3, reference);
        benchmark::DoNotOptimize(id + reference + name.size());
        ++rows;
      }
    }
    IBPP::Statement statement = NewStatement();
    statement.Execute(kFolderQuery);
    while (statement.Fetch()) {
      statement.Get(1, id);
      GetDbText(statement, 2, name);
      const bool root = statement.Get(3, reference);
      benchmark::DoNotOptimize(id + reference + name.size() + root);
      ++rows;
    }
    return rows;
  }
};

// The generated catalog, made at first use and removed with its folder when
// the run ends.
const lxtest::GeneratedCatalog& LargeCatalog() {
  static const lxtest::GeneratedCatalog catalog("bench-catalog-attach", [] {
    CatalogShape shape;
    shape.packets = kPackets;
    shape.totalFolders = kFolders;
    shape.fanOut = 4;
    shape.templatesPerFolder = 0;
    return shape;
  }());
  return catalog;
}

void CountRows(benchmark::State& state, std::int64_t rowsPerIteration) {
  state.counters["rows"] = static_cast<double>(rowsPerIteration);
}

void BM_PoolAddProvider(benchmark::State& state) {
  const lxtest::GeneratedCatalog& catalog = LargeCatalog();
  for (auto _ : state) {
    LxProviderPool* pool = lxAddLibraryProviderPool(L"CatalogAttachBench", L"/bench/catalog-attach.ulb");
    LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.Path().c_str(), kUser, kPassword);
    state.PauseTiming();
    if (provider == nullptr || provider_GetPacketCount(provider) != kPackets) state.SkipWithError("attach failed");
    lxDeleteProviderPool(pool);
    state.ResumeTiming();
  }
  CountRows(state, catalog.Written().packets + catalog.Written().folders);
}
BENCHMARK(BM_PoolAddProvider)->Unit(benchmark::kMillisecond);

void BM_ReloadProvider(benchmark::State& state) {
  const lxtest::GeneratedCatalog& catalog = LargeCatalog();
  LxProviderPool* pool = lxAddLibraryProviderPool(L"CatalogReloadBench", L"/bench/catalog-reload.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.Path().c_str(), kUser, kPassword);
  if (provider == nullptr) state.SkipWithError("attach failed");
  for (auto _ : state) {
    if (!lxReloadProvider(L"", catalog.Path().c_str())) state.SkipWithError("reload failed");
  }
  lxDeleteProviderPool(pool);
  CountRows(state, catalog.Written().packets + catalog.Written().folders);
}
BENCHMARK(BM_ReloadProvider)->Unit(benchmark::kMillisecond);

void BM_StorageLayerSelects(benchmark::State& state) {
  const lxtest::GeneratedCatalog& catalog = LargeCatalog();
  CDataProvider provider(L"", catalog.Path(), kUser, kPassword);
  std::int64_t rows = 0;
  for (auto _ : state) rows = AttachBenchOperation(&provider).ReadPacketsAndFolders();
  CountRows(state, rows);
}
BENCHMARK(BM_StorageLayerSelects)->Unit(benchmark::kMillisecond);

// The same two queries on the bare ISC API, text left in the bytes the
// database holds.
void BM_ClientSelects(benchmark::State& state) {
  const std::string path = WideToUtf8(LargeCatalog().Path());
  std::int64_t rows = 0;
  for (auto _ : state) {
    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
    rows = lxtest::ClientQuery(attachment, transaction, AttachBenchOperation::kPacketQuery).Run() +
           lxtest::ClientQuery(attachment, transaction, AttachBenchOperation::kFolderQuery).Run();
  }
  CountRows(state, rows);
}
BENCHMARK(BM_ClientSelects)->Unit(benchmark::kMillisecond);

// What every variant above pays before its first row: attach, start a
// transaction, roll back, detach.
void BM_ClientAttachOnly(benchmark::State& state) {
  const std::string path = WideToUtf8(LargeCatalog().Path());
  for (auto _ : state) {
    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
  }
}
BENCHMARK(BM_ClientAttachOnly)->Unit(benchmark::kMillisecond);

}  // namespace
