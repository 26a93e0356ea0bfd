// The packet load, the library's heaviest database work: one packet of
// 20,000 and one of 100,000 sizes with 20 values each, made once per run by
// the catalog generator. The library's load (the first folder_GetTable after
// a reload) is measured against the same rows read directly on the client
// API with the load's four whole-packet queries on one attachment. The
// memory the loaded packet holds is reported per size. Then the lookup of a
// size by identifier in a loaded packet of 2,000 and of 20,000 sizes, next
// to the walk over the tables it replaced.
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <random>
#include <string>
#include <vector>

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
  return lxtest::GeneratedOnce("bench-packet-load-" + std::to_string(sizes), lxtest::FlatPacket(sizes, kAttributes));
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

namespace {

// A packet spread over 21 folders (a root, four children, sixteen leaves
// holding the templates), few columns: the lookups need sizes, not values.
const lxtest::GeneratedCatalog& LookupCatalog(std::int32_t sizes) {
  CatalogShape shape;
  shape.packets = 1;
  shape.depth = 2;
  shape.fanOut = 4;
  shape.templatesPerFolder = 10;
  shape.sizesPerPacket = sizes;
  shape.attributes = 3;
  shape.idSpecification = false;
  return lxtest::GeneratedOnce("bench-packet-lookup-" + std::to_string(sizes), shape);
}

void CollectIdentifiers(LxFolder* folder, std::vector<std::wstring>& identifiers) {
  LxFolderTable* table = folder_GetTable(folder);
  for (int32_t i = 0; i < table_GetStdSizeCount(table); ++i) identifiers.emplace_back(stdsize_GetID(table_GetStdSize(table, i)));
  for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) CollectIdentifiers(folder_GetChildFolder(folder, i), identifiers);
}

// The packet loaded, its index built, and 4,096 of its identifiers in random
// order, so that the lookups do not walk the table in memory order.
struct LoadedPacket {
  LxProviderPool* pool = nullptr;
  LxPacket* packet = nullptr;
  std::vector<std::wstring> shuffled;

  explicit LoadedPacket(std::int32_t sizes) {
    const lxtest::GeneratedCatalog& catalog = LookupCatalog(sizes);
    pool = lxAddLibraryProviderPool(L"PacketLookupBench", L"/bench/packet-lookup.ulb");
    LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.Path().c_str(), kUser, kPassword);
    packet = provider != nullptr ? provider_GetPacket(provider, 0) : nullptr;
    if (packet == nullptr) return;
    std::vector<std::wstring> identifiers;
    CollectIdentifiers(packet_GetRootFolder(packet), identifiers);
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> pick(0, identifiers.empty() ? 0 : identifiers.size() - 1);
    for (int i = 0; i < 4096 && !identifiers.empty(); ++i) shuffled.push_back(identifiers[pick(random)]);
    packet_FindStdSize(packet, shuffled.empty() ? L"" : shuffled[0].c_str());
  }
  ~LoadedPacket() { lxDeleteProviderPool(pool); }
};

// One packet_FindStdSize of a present identifier, through the export with
// its frame; the time should not depend on the packet's size.
void BM_PacketFindStdSize(benchmark::State& state) {
  const auto sizes = static_cast<std::int32_t>(state.range(0));
  LoadedPacket loaded(sizes);
  if (loaded.shuffled.size() != 4096) {
    state.SkipWithError("packet did not load");
    return;
  }
  std::size_t next = 0;
  std::int64_t misses = 0;
  for (auto _ : state) {
    LxStdSize* size = packet_FindStdSize(loaded.packet, loaded.shuffled[next].c_str());
    misses += size == nullptr;
    benchmark::DoNotOptimize(size);
    next = (next + 1) & 4095;
  }
  if (misses != 0) state.SkipWithError("an identifier was not found");
  state.counters["sizes"] = sizes;
}
BENCHMARK(BM_PacketFindStdSize)->Arg(2000)->Arg(20000);

// For comparison: the same lookups as a walk over every table with
// table_FindStdSize, in the packet's order, which is what each lookup cost
// before the packet kept an index.
LxStdSize* Walked(LxFolder* folder, const wchar_t* identifier) {
  if (LxStdSize* size = table_FindStdSize(folder_GetTable(folder), identifier)) return size;
  for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
    if (LxStdSize* size = Walked(folder_GetChildFolder(folder, i), identifier)) return size;
  }
  return nullptr;
}

void BM_WalkFindStdSize(benchmark::State& state) {
  const auto sizes = static_cast<std::int32_t>(state.range(0));
  LoadedPacket loaded(sizes);
  if (loaded.shuffled.size() != 4096) {
    state.SkipWithError("packet did not load");
    return;
  }
  LxFolder* root = packet_GetRootFolder(loaded.packet);
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Walked(root, loaded.shuffled[next].c_str()));
    next = (next + 1) & 4095;
  }
  state.counters["sizes"] = sizes;
}
BENCHMARK(BM_WalkFindStdSize)->Arg(2000)->Arg(20000);

}  // namespace
