// Attaching a provider to a large catalog: generated catalogs of 20,000 and
// 200,000 folders (one packet per 20 folders), each made once per run by the
// catalog generator. Every round of BM_AttachByTurns runs, in an order that
// rotates from round to round:
//   - library:  pool_AddProvider in a fresh pool (attach and the basic load:
//               packets, folder tree, the two attribute dictionaries);
//   - reload:   lxReloadProvider of that provider;
//   - storage:  the four SELECTs of the basic load with every row fetched and
//               every column read through our storage layer (operation
//               scope, IBPP statement, code page 1251 text);
//   - client:   the same attach and the same four SELECTs on the Firebird
//               client's bare ISC API, text left in the bytes the database
//               holds.
// Taking turns puts the variants under the same load of a shared machine;
// the figures are medians of the per-round times and of the per-round
// ratios to the client. The benchmark's own time is the library's.
//
// Memory: the heap bytes that deleting the pool gives back, which is what
// the provider keeps for its packets and folder trees, per folder.
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "DirectClient.h"
#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/DbText.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"

namespace {

constexpr std::int32_t kFoldersPerPacket = 20;
constexpr const wchar_t* kUser = L"SYSDBA";
constexpr const wchar_t* kPassword = L"masterkey";

constexpr const char* kPacketQuery = "SELECT ID, PACKETID, FOLDERID FROM PACKET";
constexpr const char* kFolderQuery = "SELECT ID, NAME, ID_PARENT FROM FOLDER";
constexpr const char* kAttributeNameQuery = "SELECT ID, NAME FROM ATTRIBUTENAME";
constexpr const char* kAttributeDescriptionQuery = "SELECT ID, DESCRIPTION FROM ATTRIBUTEDESCRIPTION";

// The four queries of the basic load, read through the storage layer in one
// operation scope.
class AttachBenchOperation : public BaseOperation {
 public:
  explicit AttachBenchOperation(CDataProvider* provider) : BaseOperation(provider) {}

  // Rows of all four queries.
  std::int64_t ReadBasicLoadRows() {
    return ReadRows(kPacketQuery, 3) + ReadRows(kFolderQuery, 3) + ReadRows(kAttributeNameQuery, 2) +
           ReadRows(kAttributeDescriptionQuery, 2);
  }

 private:
  // Column 1 an integer, column 2 text, column 3 (if any) an integer.
  std::int64_t ReadRows(const char* sql, int columns) {
    std::int64_t rows = 0;
    std::int32_t id = 0;
    std::int32_t reference = 0;
    std::wstring text;
    IBPP::Statement statement = NewStatement();
    statement.Execute(sql);
    while (statement.Fetch()) {
      statement.Get(1, id);
      GetDbText(statement, 2, text);
      const bool null = columns > 2 && statement.Get(3, reference);
      benchmark::DoNotOptimize(id + reference + text.size() + null);
      ++rows;
    }
    return rows;
  }
};

// A generated catalog of this many folders, made at first use and removed
// with its folder when the run ends.
const lxtest::GeneratedCatalog& LargeCatalog(std::int32_t folders) {
  CatalogShape shape;
  shape.packets = folders / kFoldersPerPacket;
  shape.totalFolders = folders;
  shape.fanOut = 4;
  shape.templatesPerFolder = 0;
  return lxtest::GeneratedOnce("bench-catalog-attach-" + std::to_string(folders), shape);
}

// Heap bytes in use, mapped blocks included.
std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

double Seconds(const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// One round's timings, in seconds. The reload runs in the library's turn,
// on its provider; the turns are the library's, the storage layer's and the
// client's.
enum Variant { kLibrary, kReload, kStorage, kClient, kVariants };
constexpr std::size_t kTurns = 3;

void BM_AttachByTurns(benchmark::State& state) {
  const std::int32_t folders = static_cast<std::int32_t>(state.range(0));
  const lxtest::GeneratedCatalog& catalog = LargeCatalog(folders);
  const std::wstring& path = catalog.Path();
  const std::string narrowPath = WideToUtf8(path);
  const std::int32_t packets = catalog.Written().packets;

  std::array<double, kVariants> seconds{};
  std::size_t retainedBytes = 0;
  bool failed = false;
  const std::array<std::function<void()>, kTurns> turns{
      [&] {
        LxProviderPool* pool = lxAddLibraryProviderPool(L"CatalogAttachBench", L"/bench/catalog-attach.ulb");
        LxDataProvider* provider = nullptr;
        seconds[kLibrary] = Seconds([&] { provider = pool_AddProvider(pool, L"", path.c_str(), kUser, kPassword); });
        failed |= provider == nullptr || provider_GetPacketCount(provider) != packets;
        seconds[kReload] = Seconds([&] { failed |= !lxReloadProvider(L"", path.c_str()); });
        const std::size_t held = HeapInUse();
        lxDeleteProviderPool(pool);
        retainedBytes = held - std::min(held, HeapInUse());
      },
      [&] {
        CDataProvider provider(L"", path, kUser, kPassword);
        seconds[kStorage] = Seconds([&] { benchmark::DoNotOptimize(AttachBenchOperation(&provider).ReadBasicLoadRows()); });
      },
      [&] {
        seconds[kClient] = Seconds([&] {
          lxtest::ClientAttachment attachment(narrowPath);
          lxtest::ClientTransaction transaction(attachment);
          std::int64_t rows = 0;
          for (const char* sql : {kPacketQuery, kFolderQuery, kAttributeNameQuery, kAttributeDescriptionQuery}) {
            rows += lxtest::ClientQuery(attachment, transaction, sql).Run();
          }
          benchmark::DoNotOptimize(rows);
        });
      },
  };

  std::array<std::vector<double>, kVariants> times;
  std::vector<double> libraryRatios;
  std::vector<double> reloadRatios;
  std::vector<double> storageRatios;
  std::size_t round = 0;
  for (auto _ : state) {
    for (std::size_t turn = 0; turn < kTurns; ++turn) turns[(round + turn) % kTurns]();
    ++round;
    if (failed) {
      state.SkipWithError("attach failed");
      break;
    }
    state.SetIterationTime(seconds[kLibrary]);
    for (std::size_t v = 0; v < kVariants; ++v) times[v].push_back(seconds[v]);
    libraryRatios.push_back(seconds[kLibrary] / seconds[kClient]);
    reloadRatios.push_back(seconds[kReload] / seconds[kClient]);
    storageRatios.push_back(seconds[kStorage] / seconds[kClient]);
  }
  const double rows = catalog.Written().packets + catalog.Written().folders;
  state.counters["rows"] = rows;
  // What a row costs beyond the client's read of it: constant when the
  // library's cost is linear in the catalog.
  state.counters["extra_us/row"] = (Median(times[kLibrary]) - Median(times[kClient])) * 1e6 / rows;
  state.counters["library_ms"] = Median(times[kLibrary]) * 1e3;
  state.counters["reload_ms"] = Median(times[kReload]) * 1e3;
  state.counters["storage_ms"] = Median(times[kStorage]) * 1e3;
  state.counters["client_ms"] = Median(times[kClient]) * 1e3;
  state.counters["library/client"] = Median(libraryRatios);
  state.counters["reload/client"] = Median(reloadRatios);
  state.counters["storage/client"] = Median(storageRatios);
  state.counters["bytes/folder"] = static_cast<double>(retainedBytes) / catalog.Written().folders;
}
BENCHMARK(BM_AttachByTurns)->Arg(20000)->Iterations(31)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AttachByTurns)->Arg(200000)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

// What every variant above pays before its first row: attach, start a
// transaction, roll back, detach.
void BM_ClientAttachOnly(benchmark::State& state) {
  const std::string path = WideToUtf8(LargeCatalog(20000).Path());
  for (auto _ : state) {
    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
  }
}
BENCHMARK(BM_ClientAttachOnly)->Unit(benchmark::kMillisecond);

}  // namespace
