// Placed objects: opening a drawing loads every part placed in it, tens of
// thousands of them. One generated packet of 20,000 sizes in 100 folders and,
// for comparison, one of 2,000 sizes in 10 folders, loaded before anything is
// timed: the cost of an object must not grow with the folders and sizes of
// its packet.
//
// 100,000 objects on sizes drawn at random (fixed seed) over the packet, each
// with five own values (integer, double and text on columns of its table) and
// one binary value of 64 bytes, are
//   - saved, each into a buffer of exactly its length (selector 1);
//   - loaded from those buffers, in batches of all 100,000, with the deletes
//     of a batch outside the timing; every loaded object is checked to sit on
//     the size it was made from (outside the timing; a mismatch aborts);
//   - deleted, timed on their own.
// Each reports µs per object; the load also reports the bytes that a loaded
// object keeps (the allocator's bytes in use before and after a batch).
//
// Embedded, in a temporary folder removed at the end.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "GeneratedCatalog.h"
#include "LxDataAccess.h"

namespace {

constexpr std::int32_t kObjects = 100000;
constexpr std::int32_t kSizesPerFolder = 200;
constexpr std::int32_t kBinaryBytes = 64;
constexpr std::uint32_t kSeed = 20190222;
// Columns 21 to 30 of every template; the first five get own values, of the
// kinds the generator gives them (21 integer, 22 double, 23 text, ...).
constexpr std::int32_t kColumns = 10;
constexpr std::int32_t kOwnValues = 5;

// The five columns with own values, of one folder table.
using OwnColumns = std::array<LxAttribute*, kOwnValues>;

// One packet size: its catalog and pool, the objects made on it with the
// sizes they were made from, and their saved buffers end to end.
struct PlacedParts {
  std::unique_ptr<lxtest::GeneratedCatalog> catalog;
  std::wstring library;
  LxProviderPool* pool = nullptr;
  std::vector<LxStdSize*> sizes;
  std::vector<LxObject*> objects;
  std::vector<LxStdSize*> placedOn;
  std::vector<unsigned char> buffers;
  std::vector<std::size_t> offsets;  // offsets[i] to offsets[i + 1] is object i's buffer
};

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "object benchmark: %s\n", what);
  std::abort();
}

// Every size of the packet, folder by folder; reading every table loads the
// whole packet.
void CollectSizes(LxFolder* folder, std::vector<LxStdSize*>& sizes) {
  LxFolderTable* table = folder_GetTable(folder);
  for (std::int32_t i = 0; table != nullptr && i < table_GetStdSizeCount(table); ++i)
    sizes.push_back(table_GetStdSize(table, i));
  for (std::int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i)
    CollectSizes(folder_GetChildFolder(folder, i), sizes);
}

OwnColumns ColumnsOf(LxStdSize* size, std::map<LxFolderTable*, OwnColumns>& known) {
  LxFolderTable* table = stdsize_GetTable(size);
  auto [entry, added] = known.try_emplace(table);
  if (added) {
    for (std::int32_t k = 0; k < kOwnValues; ++k) {
      const std::wstring name = L"Параметр " + std::to_wstring(21 + k);
      entry->second[k] = table_FindAttribute(table, name.c_str());
      if (entry->second[k] == nullptr) Fail("a generated column is missing");
    }
  }
  return entry->second;
}

LxObject* PlacedPart(PlacedParts& parts, LxStdSize* size, std::int32_t n, const OwnColumns& columns) {
  LxObject* object = pool_CreateObject(parts.pool, size, parts.library.c_str());
  const std::wstring mark = L"деталь " + std::to_wstring(n);
  std::array<unsigned char, kBinaryBytes> geometry;
  for (std::int32_t b = 0; b < kBinaryBytes; ++b) geometry[b] = static_cast<unsigned char>(n + b);
  if (object == nullptr || !object_SetValueI(object, columns[0], n) ||
      !object_SetValueD(object, columns[1], n * 0.25) || !object_SetValueS(object, columns[2], mark.c_str()) ||
      !object_SetValueI(object, columns[3], -n) || !object_SetValueD(object, columns[4], 1e6 / (n + 1)) ||
      !object_SetBufValue(object, L"geometry", geometry.data(), kBinaryBytes))
    Fail("placing a part failed");
  return object;
}

// Saves every object once into a scratch buffer to lay the buffers out end
// to end, each exactly its length.
void SaveAll(PlacedParts& parts) {
  std::vector<unsigned char> scratch(1 << 16);
  parts.offsets.assign(1, 0);
  for (LxObject* object : parts.objects) {
    std::uint32_t written = 0;
    if (!object_Save(object, scratch.data(), static_cast<std::int32_t>(scratch.size()), &written, 1))
      Fail("a save failed");
    parts.buffers.insert(parts.buffers.end(), scratch.begin(), scratch.begin() + written);
    parts.offsets.push_back(parts.buffers.size());
  }
}

PlacedParts& Parts(std::int32_t sizes) {
  static std::map<std::int32_t, PlacedParts> made;
  PlacedParts& parts = made[sizes];
  if (parts.catalog) return parts;
  CatalogShape shape;
  const std::int32_t folders = sizes / kSizesPerFolder;
  shape.totalFolders = folders + 1;  // the root holds the folders, the folders the sizes
  shape.fanOut = folders;
  shape.templatesPerFolder = 2;
  shape.sizesPerTemplate = kSizesPerFolder / 2;
  shape.attributes = kColumns;
  shape.idSpecification = false;
  parts.catalog = std::make_unique<lxtest::GeneratedCatalog>("bench-object", shape);
  parts.library = L"bench-object-" + std::to_wstring(sizes);
  parts.pool = lxAddLibraryProviderPool(parts.library.c_str(), L"");
  LxDataProvider* provider = pool_AddProvider(parts.pool, L"", parts.catalog->Path().c_str(), L"SYSDBA", L"");
  if (provider == nullptr) Fail("attach failed");
  CollectSizes(packet_GetRootFolder(provider_GetPacket(provider, 0)), parts.sizes);
  if (static_cast<std::int32_t>(parts.sizes.size()) != sizes) Fail("the packet has not the sizes generated");

  std::mt19937 random(kSeed);
  std::uniform_int_distribution<std::size_t> pick(0, parts.sizes.size() - 1);
  std::map<LxFolderTable*, OwnColumns> columns;
  for (std::int32_t n = 0; n < kObjects; ++n) {
    LxStdSize* size = parts.sizes[pick(random)];
    parts.placedOn.push_back(size);
    parts.objects.push_back(PlacedPart(parts, size, n, ColumnsOf(size, columns)));
  }
  SaveAll(parts);
  return parts;
}

void ReportPerObject(benchmark::State& state, const PlacedParts& parts) {
  state.counters["us_per_object"] = benchmark::Counter(
      kObjects * 1e-6, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["buffer_bytes"] = static_cast<double>(parts.buffers.size()) / kObjects;
  state.counters["folders"] = static_cast<double>(parts.sizes.size()) / kSizesPerFolder;
}

// Loads every buffer into `loaded`, untimed checks aside.
void LoadAll(PlacedParts& parts, std::vector<LxObject*>& loaded) {
  unsigned char* buffers = parts.buffers.data();
  for (std::int32_t n = 0; n < kObjects; ++n) {
    const std::size_t offset = parts.offsets[n];
    loaded[n] = object_Load(parts.pool, buffers + offset, static_cast<std::int32_t>(parts.offsets[n + 1] - offset),
                            false);
  }
}

void CheckPlacement(const PlacedParts& parts, const std::vector<LxObject*>& loaded) {
  for (std::int32_t n = 0; n < kObjects; ++n) {
    if (loaded[n] == nullptr) Fail("a saved object did not load");
    if (object_GetStdSize(loaded[n]) != parts.placedOn[n]) Fail("a loaded object sits on another size");
  }
}

void DeleteAll(std::vector<LxObject*>& loaded) {
  for (LxObject*& object : loaded) {
    object_Delete(object);
    object = nullptr;
  }
}

long AllocatedBytes() { return static_cast<long>(mallinfo2().uordblks); }

void BM_ObjectSave(benchmark::State& state) {
  PlacedParts& parts = Parts(static_cast<std::int32_t>(state.range(0)));
  std::vector<unsigned char> buffers(parts.buffers.size());
  for (auto _ : state) {
    for (std::int32_t n = 0; n < kObjects; ++n) {
      const std::size_t offset = parts.offsets[n];
      const auto capacity = static_cast<std::int32_t>(parts.offsets[n + 1] - offset);
      std::uint32_t written = 0;
      object_Save(parts.objects[n], buffers.data() + offset, capacity, &written, 1);
    }
    benchmark::DoNotOptimize(buffers.data());
  }
  // Each buffer was exactly the length of the first save: the same bytes
  // again, or something was left out.
  if (buffers != parts.buffers) Fail("a save differs from the first save of the same object");
  ReportPerObject(state, parts);
}
BENCHMARK(BM_ObjectSave)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_ObjectLoad(benchmark::State& state) {
  PlacedParts& parts = Parts(static_cast<std::int32_t>(state.range(0)));
  std::vector<LxObject*> loaded(kObjects, nullptr);
  long keptBytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const long before = AllocatedBytes();
    state.ResumeTiming();
    LoadAll(parts, loaded);
    state.PauseTiming();
    keptBytes = AllocatedBytes() - before;
    CheckPlacement(parts, loaded);
    DeleteAll(loaded);
    state.ResumeTiming();
  }
  ReportPerObject(state, parts);
  state.counters["bytes_per_object"] = static_cast<double>(keptBytes) / kObjects;
}
BENCHMARK(BM_ObjectLoad)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_ObjectDelete(benchmark::State& state) {
  PlacedParts& parts = Parts(static_cast<std::int32_t>(state.range(0)));
  std::vector<LxObject*> loaded(kObjects, nullptr);
  for (auto _ : state) {
    state.PauseTiming();
    LoadAll(parts, loaded);
    CheckPlacement(parts, loaded);
    state.ResumeTiming();
    DeleteAll(loaded);
  }
  ReportPerObject(state, parts);
}
BENCHMARK(BM_ObjectDelete)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
