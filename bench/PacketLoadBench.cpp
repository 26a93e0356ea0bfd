// The packet load, the library's heaviest database work: one packet of
// 20,000 and one of 100,000 sizes with 20 values each, made once per run by
// the catalog generator. The library's load (the first folder_GetTable after
// a reload) is measured against the same rows read directly on the client
// API with the load's four whole-packet queries on one attachment. The
// memory the loaded packet holds is reported per size.
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <string>

#include "DirectClient.h"
#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"

namespace {

constexpr const wchar_t* kUser = L"SYSDBA";
constexpr const wchar_t* kPassword = L"masterkey";
constexpr std::int32_t kAttributes = 20;

constexpr const char* kTemplates =
    "SELECT O.ID, O.NAME, O.FOLDERID, O.MODELID, OT.SVAL TYPE FROM OBJECT O JOIN OBJECTTYPE OT ON OT.ID = "
    "O.OBJECTTYPEID WHERE O.PACKETID = ?";
constexpr const char* kTemplateAttributes =
    "SELECT OA.OBJECTID, OA.NUMBER, OA.OLD_NUMBER, OA.ATTRTYPE, OA.ATTRIBUTENAMEID, OA.ATTRIBUTEDESCRIPTIONID, "
    "OA.MEASURE, OA.VARNAME, OA.FORMULA, OA.CONCRETEVALUEID, CV.INTVAL, CV.DOUBLEVAL, CV.STRVAL FROM OBJECT O JOIN "
    "OBJECTATTRIBUTE OA ON O.ID=OA.OBJECTID LEFT JOIN CONCRETEVALUE CV ON CV.ID = OA.CONCRETEVALUEID WHERE "
    "O.PACKETID = ? ";
constexpr const char* kSizes =
    "SELECT SS.OBJECTID, SS.ID, SS.IDENTIFIER FROM OBJECT O JOIN STANDARDSIZE SS ON O.ID = SS.OBJECTID WHERE "
    "O.PACKETID = ? ";
constexpr const char* kSizeValues =
    "SELECT AV.STANDARDSIZEID, OA.NUMBER, OA.ATTRTYPE, CV.DOUBLEVAL, CV.STRVAL, CV.INTVAL FROM OBJECT O JOIN "
    "OBJECTATTRIBUTE OA ON O.ID = OA.OBJECTID JOIN ATTRIBUTEVALUE AV ON OA.ID = AV.OBJECTATTRIBUTEID JOIN "
    "CONCRETEVALUE CV ON CV.ID = AV.CONCRETEVALUEID WHERE O.PACKETID = ?";

// One generated catalog per packet size, made at first use.
const lxtest::GeneratedCatalog& PacketCatalog(std::int32_t sizes) {
  static std::map<std::int32_t, std::unique_ptr<lxtest::GeneratedCatalog>> catalogs;
  auto& catalog = catalogs[sizes];
  if (!catalog) {
    CatalogShape shape;
    shape.packets = 1;
    shape.depth = 0;
    shape.templatesPerFolder = 20;
    shape.sizesPerPacket = sizes;
    shape.attributes = kAttributes;
    shape.idSpecification = false;
    catalog = std::make_unique<lxtest::GeneratedCatalog>("bench-packet-load", shape);
  }
  return *catalog;
}

// Bytes the allocator has handed out and not got back: what a load keeps.
long AllocatedBytes() { return static_cast<long>(mallinfo2().uordblks); }

void BM_LibraryPacketLoad(benchmark::State& state) {
  const auto sizes = static_cast<std::int32_t>(state.range(0));
  const lxtest::GeneratedCatalog& catalog = PacketCatalog(sizes);
  LxProviderPool* pool = lxAddLibraryProviderPool(L"PacketLoadBench", L"/bench/packet-load.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.Path().c_str(), kUser, kPassword);
  if (provider == nullptr) {
    state.SkipWithError("attach failed");
    return;
  }
  long loadedBytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    lxReloadProvider(L"", catalog.Path().c_str());
    LxFolder* root = packet_GetRootFolder(provider_GetPacket(provider, 0));
    const long before = AllocatedBytes();
    state.ResumeTiming();
    LxFolderTable* table = folder_GetTable(root);
    state.PauseTiming();
    loadedBytes = AllocatedBytes() - before;
    if (table == nullptr || table_GetStdSizeCount(table) != sizes) state.SkipWithError("load failed");
    state.ResumeTiming();
  }
  state.counters["values"] = static_cast<double>(sizes) * kAttributes;
  state.counters["bytes_per_size"] = static_cast<double>(loadedBytes) / sizes;
  lxDeleteProviderPool(pool);
}
BENCHMARK(BM_LibraryPacketLoad)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_DirectWholePacketQueries(benchmark::State& state) {
  const auto sizes = static_cast<std::int32_t>(state.range(0));
  const std::string path = WideToUtf8(PacketCatalog(sizes).Path());
  std::int64_t rows = 0;
  for (auto _ : state) {
    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
    rows = 0;
    for (const char* sql : {kTemplates, kTemplateAttributes, kSizes, kSizeValues}) {
      rows += lxtest::ClientQuery(attachment, transaction, sql).Run(1);
    }
  }
  state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(BM_DirectWholePacketQueries)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
