// Bulky content: one generated packet of 2,000 sizes, one per template,
// whose templates share 200 distinct models of 1 MiB, each with one
// projection on a fragment of its own (2,000 fragments of 64 KiB, thumbnails
// of 8 KiB). Generated once per run, embedded, in a temporary folder removed
// at the end.
//
// Two pieces of library work, each against the same database work done on
// the bare client with liblzo2's decompressor:
//   - packet_CacheData, all thumbnails of the packet into memory, against
//     the same query with each blob read and decompressed into a map;
//   - model_GetModelFile on 200 sizes with distinct models after a reload
//     (so nothing is cached), against reading the same 200 blobs,
//     decompressing them and writing the files.
// The library attaches for every operation, the direct side keeps one
// attachment; what an attachment costs is measured on its own.
#include <benchmark/benchmark.h>
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>
#include <malloc.h>
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DirectClient.h"
#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"

namespace {

constexpr const wchar_t* kUser = L"SYSDBA";
constexpr const wchar_t* kPassword = L"masterkey";
constexpr std::int32_t kSizes = 2000;
constexpr std::int32_t kModels = 200;
constexpr std::int32_t kModelBytes = 1 << 20;
constexpr std::int32_t kFragmentBytes = 64 << 10;
constexpr std::int32_t kThumbnailBytes = 8 << 10;

constexpr const char* kThumbnails =
    "SELECT DISTINCT f.ID, f.THUMBNAIL  FROM FRAGMENT f  JOIN OBJECTPROJECTION op ON f.ID = op.FRAGMENTID  JOIN "
    "OBJECT o ON o.ID = op.OBJECTID  JOIN PACKET p ON p.ID = o.PACKETID  WHERE p.ID = ? ";
constexpr const char* kModel = "SELECT MODEL, DIGEST, MODEL_VERSION, ORIENTATION FROM MODEL WHERE ID=?";
// One size of each model: its identifier and its model's id.
constexpr const char* kSizeOfEachModel =
    "SELECT S.IDENTIFIER, O.MODELID FROM STANDARDSIZE S JOIN OBJECT O ON O.ID = S.OBJECTID WHERE S.ID IN "
    "(SELECT MIN(S2.ID) FROM STANDARDSIZE S2 JOIN OBJECT O2 ON O2.ID = S2.OBJECTID GROUP BY O2.MODELID) AND O.PACKETID = ?";

// The catalog, the packet's id, a size of each model, and a folder for the
// files both sides write. TMP names it for the library, before its first
// model file fixes the temporary folder for the process.
struct ContentCatalog {
  std::unique_ptr<lxtest::GeneratedCatalog> catalog;
  std::string path;
  std::int32_t packetId = 0;
  std::vector<std::wstring> identifiers;
  std::vector<std::int32_t> modelIds;
  std::filesystem::path files;

  ContentCatalog() {
    CatalogShape shape;
    shape.templatesPerFolder = kSizes;
    shape.attributes = 1;
    shape.modelBytes = kModelBytes;
    shape.distinctModels = kModels;
    shape.projectionsPerTemplate = 1;
    shape.fragmentBytes = kFragmentBytes;
    shape.thumbnailBytes = kThumbnailBytes;
    catalog = std::make_unique<lxtest::GeneratedCatalog>("bench-content", shape);
    path = WideToUtf8(catalog->Path());
    files = std::filesystem::path(path).parent_path() / "files";
    std::filesystem::create_directory(files);
    setenv("TMP", files.c_str(), 1);

    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
    lxtest::ClientQuery packets(attachment, transaction, "SELECT ID FROM PACKET");
    packets.Execute(0);
    if (packets.Fetch()) packetId = packets.Int(1);
    lxtest::ClientQuery sizes(attachment, transaction, kSizeOfEachModel);
    sizes.Execute(packetId);
    while (sizes.Fetch()) {
      identifiers.push_back(Cp1251ToWide(sizes.Text(1)));
      modelIds.push_back(sizes.Int(2));
    }
  }
};

const ContentCatalog& Catalog() {
  static const ContentCatalog catalog;
  return catalog;
}

// Bytes the allocator has handed out and not got back.
long AllocatedBytes() { return static_cast<long>(mallinfo2().uordblks); }

// With range(0) set, a bare-client attachment keeps the database open for
// the benchmark's whole run, so the library's attachments are warm: what is
// left of the difference is not the engine opening the file.
std::unique_ptr<lxtest::ClientAttachment> KeepOpen(const benchmark::State& state) {
  return state.range(0) == 0 ? nullptr : std::make_unique<lxtest::ClientAttachment>(Catalog().path);
}

class Library {
 public:
  Library() {
    pool_ = lxAddLibraryProviderPool(L"ContentBench", L"/bench/content.ulb");
    provider_ = pool_AddProvider(pool_, L"", Catalog().catalog->Path().c_str(), kUser, kPassword);
  }
  ~Library() { lxDeleteProviderPool(pool_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  LxDataProvider* Provider() const { return provider_; }
  LxPacket* Packet() const { return provider_ == nullptr ? nullptr : provider_GetPacket(provider_, 0); }

 private:
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;
};

// The stored form as liblzo2 reads it: the length, little-endian, then the
// stream. Empty when the decompressor refuses.
std::vector<unsigned char> Decompressed(const std::vector<unsigned char>& stored) {
  if (stored.size() < 4) return {};
  const std::uint32_t length =
      stored[0] | stored[1] << 8 | stored[2] << 16 | static_cast<std::uint32_t>(stored[3]) << 24;
  std::vector<unsigned char> content(length);
  lzo_uint produced = length;
  if (lzo1y_decompress_safe(stored.data() + 4, stored.size() - 4, content.data(), &produced, nullptr) != LZO_E_OK)
    return {};
  return content;
}

// ---- thumbnails of a packet

void BM_LibraryCacheData(benchmark::State& state) {
  const auto holder = KeepOpen(state);
  Library library;
  LxPacket* packet = library.Packet();
  if (packet == nullptr) return state.SkipWithError("attach failed");
  for (auto _ : state) {
    if (!packet_CacheData(packet)) return state.SkipWithError("packet_CacheData failed");
  }
  // What the cache keeps: the difference between an empty and a full one.
  packet_ClearDataCache(packet);
  const long before = AllocatedBytes();
  packet_CacheData(packet);
  const long kept = AllocatedBytes() - before;
  state.counters["bytes_per_thumbnail"] = static_cast<double>(kept) / kSizes;
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSizes} * kThumbnailBytes);
}
BENCHMARK(BM_LibraryCacheData)->ArgName("warm")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// range(0) 1: an attachment per call, as packet_CacheData does (range(1) 1
// keeps the database open meanwhile).
void BM_DirectThumbnails(benchmark::State& state) {
  if (lzo_init() != LZO_E_OK) return state.SkipWithError("lzo_init failed");
  const bool attachEach = state.range(0) != 0;
  const auto holder = state.range(1) == 0 ? nullptr : std::make_unique<lxtest::ClientAttachment>(Catalog().path);
  std::unique_ptr<lxtest::ClientAttachment> shared;
  if (!attachEach) shared = std::make_unique<lxtest::ClientAttachment>(Catalog().path);
  std::map<std::int32_t, std::vector<unsigned char>> thumbnails;
  for (auto _ : state) {
    thumbnails.clear();
    std::unique_ptr<lxtest::ClientAttachment> own;
    if (attachEach) own = std::make_unique<lxtest::ClientAttachment>(Catalog().path);
    lxtest::ClientAttachment& attachment = attachEach ? *own : *shared;
    lxtest::ClientTransaction transaction(attachment);
    lxtest::ClientQuery query(attachment, transaction, kThumbnails);
    query.Execute(Catalog().packetId);
    while (query.Fetch()) {
      thumbnails.try_emplace(query.Int(1),
                             Decompressed(lxtest::ReadClientBlob(attachment, transaction, query.BlobId(2))));
    }
  }
  if (thumbnails.size() != kSizes || thumbnails.begin()->second.size() != kThumbnailBytes)
    state.SkipWithError("wrong thumbnails");
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSizes} * kThumbnailBytes);
}
BENCHMARK(BM_DirectThumbnails)
    ->ArgNames({"attach_each", "warm"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({1, 1})
    ->Unit(benchmark::kMillisecond);

// ---- 200 distinct models written to files

void BM_LibraryModelFiles(benchmark::State& state) {
  const ContentCatalog& catalog = Catalog();
  const auto holder = KeepOpen(state);
  Library library;
  if (library.Provider() == nullptr || catalog.identifiers.size() != kModels) return state.SkipWithError("setup");
  std::vector<LxModel*> models;
  for (auto _ : state) {
    state.PauseTiming();
    // The reload empties the model cache and deletes its files.
    lxReloadProvider(L"", catalog.catalog->Path().c_str());
    LxFolderTable* table = folder_GetTable(packet_GetRootFolder(library.Packet()));
    models.clear();
    for (const std::wstring& identifier : catalog.identifiers)
      models.push_back(stdsize_GetModel(table_FindStdSize(table, identifier.c_str())));
    state.ResumeTiming();
    for (LxModel* model : models) {
      if (model_GetModelFile(model) == nullptr) return state.SkipWithError("model_GetModelFile failed");
    }
  }
  if (std::filesystem::file_size(WideToUtf8(model_GetModelFile(models.back()))) != kModelBytes)
    state.SkipWithError("wrong model file");
  state.SetBytesProcessed(state.iterations() * std::int64_t{kModels} * kModelBytes);
}
BENCHMARK(BM_LibraryModelFiles)->ArgName("warm")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// One model row read, decompressed and written to `path`; false when
// anything is missing.
bool WriteModelFile(lxtest::ClientAttachment& attachment, lxtest::ClientTransaction& transaction,
                    lxtest::ClientQuery& query, std::int32_t id, const std::filesystem::path& path) {
  query.Execute(id);
  if (!query.Fetch()) return false;
  benchmark::DoNotOptimize(query.Text(2));
  benchmark::DoNotOptimize(query.Int(3));
  const std::vector<unsigned char> model =
      Decompressed(lxtest::ReadClientBlob(attachment, transaction, query.BlobId(1)));
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(model.data(), 1, model.size(), file) == model.size();
  return std::fclose(file) == 0 && written;
}

// range(0) 0: one attachment for all; 1: an attachment, a transaction and a
// prepared statement per model, as the library works (range(1) 1 keeps the
// database open meanwhile).
void BM_DirectModelFiles(benchmark::State& state) {
  const ContentCatalog& catalog = Catalog();
  if (lzo_init() != LZO_E_OK) return state.SkipWithError("lzo_init failed");
  const bool attachEach = state.range(0) != 0;
  const auto holder = state.range(1) == 0 ? nullptr : std::make_unique<lxtest::ClientAttachment>(catalog.path);
  std::unique_ptr<lxtest::ClientAttachment> shared;
  if (!attachEach) shared = std::make_unique<lxtest::ClientAttachment>(catalog.path);
  std::vector<std::filesystem::path> written;
  for (auto _ : state) {
    written.clear();
    std::unique_ptr<lxtest::ClientTransaction> transaction;
    std::unique_ptr<lxtest::ClientQuery> query;
    for (std::int32_t id : catalog.modelIds) {
      std::unique_ptr<lxtest::ClientAttachment> own;
      if (attachEach || !query) {
        query.reset();
        transaction.reset();
        if (attachEach) own = std::make_unique<lxtest::ClientAttachment>(catalog.path);
        lxtest::ClientAttachment& attachment = attachEach ? *own : *shared;
        transaction = std::make_unique<lxtest::ClientTransaction>(attachment);
        query = std::make_unique<lxtest::ClientQuery>(attachment, *transaction, kModel);
      }
      written.push_back(catalog.files / (std::to_string(id) + ".direct.qmx"));
      if (!WriteModelFile(attachEach ? *own : *shared, *transaction, *query, id, written.back()))
        return state.SkipWithError("model not written");
      if (attachEach) {
        query.reset();
        transaction.reset();
      }
    }
    state.PauseTiming();
    if (std::filesystem::file_size(written.back()) != kModelBytes) return state.SkipWithError("wrong model file");
    for (const auto& path : written) std::filesystem::remove(path);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{kModels} * kModelBytes);
}
BENCHMARK(BM_DirectModelFiles)
    ->ArgNames({"attach_each", "warm"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({1, 1})
    ->Unit(benchmark::kMillisecond);

// ---- what the library pays per operation: one attachment

// Cold: nothing else has the catalog open, as for the library's operations
// when no other client is attached.
void BM_ClientAttachDetachCold(benchmark::State& state) {
  for (auto _ : state) lxtest::ClientAttachment attachment(Catalog().path);
}
BENCHMARK(BM_ClientAttachDetachCold)->Unit(benchmark::kMicrosecond);

// Warm: another attachment keeps the database open.
void BM_ClientAttachDetachWarm(benchmark::State& state) {
  lxtest::ClientAttachment holder(Catalog().path);
  for (auto _ : state) lxtest::ClientAttachment attachment(Catalog().path);
}
BENCHMARK(BM_ClientAttachDetachWarm)->Unit(benchmark::kMicrosecond);

}  // namespace
