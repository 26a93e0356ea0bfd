// libFuzzer target of placed-object buffers: object_getPacketInfo and
// object_Load over any bytes, against a small catalog made once per process
// in a private temporary folder. The first byte of an input is not part of
// the buffer: its lowest bit is keepIfMissing.
//
// A loaded object is saved again into a buffer of the input's size and into
// one large enough for everything, with both selectors, its values are read,
// and it is deleted. Every buffer handed to the library is a heap block of
// exactly its size, so that the address checker sees a byte read or written
// past its end.
//
// Beyond the sanitizers, the target aborts when
//   - the load's answer disagrees with the buffer's version, read here
//     independently: an unknown version must give null, an accepted one with
//     keepIfMissing must give an object, and one without it an object with
//     a size or null;
//   - the loaded object's packet, size and library texts differ from what
//     object_getPacketInfo read from the same bytes;
//   - a save reports more bytes than it was given room for, or a result
//     that disagrees with the count;
//   - a second round (load of the full save, save again) does not give the
//     same bytes: after one load everything is in the form a save writes.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "LxDataAccess.h"
#include "platform/TextCodec.h"
#include "tests/support/CatalogSql.h"

namespace {

constexpr const wchar_t* kLibrary = L"object-fuzz";
// A second registered pool without providers: a buffer naming it is looked
// up there, and its size is never found.
constexpr const wchar_t* kEmptyLibrary = L"object-fuzz-empty";
constexpr const wchar_t* kRenamedPacket = L"Отводы круглого сечения ВСН 353-86";
// Attribute names whose values every loaded object is asked for: plain
// columns of each kind, the columns with a formula, and one that no table
// has.
constexpr const wchar_t* kReadNames[] = {L"Длина", L"Шаг", L"Марка", L"elevation", L"Масса", L"Обозначение",
                                         L"USS_LAST_CHANGE_DATE", L"Нет"};

constexpr std::int32_t kAcceptedVersions[] = {20110124, 20110202, 20110725, 20111128, 20160204, 20190222};

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "object fuzz set-up failed: %s\n", what);
  std::abort();
}

void Check(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "object fuzz invariant broken: %s\n", what);
  std::abort();
}

LxAttribute* Column(LxFolderTable* table, const wchar_t* name, const wchar_t* description, std::int32_t type,
                    std::int32_t oldNumber) {
  LxAttribute* column = table_AddAttribute(table, name, description, type);
  Require(column != nullptr, "attribute");
  if (oldNumber != 0) Require(attribute_SetOldNumber(column, oldNumber), "old number");
  return column;
}

// Packet "P": the root's table has a column of each kind with old numbers
// 1 to 3, `elevation`, a change date, two formulas and a layer, and the sizes
// "1" and "2"; the child "F" has its own "Длина" under old number 7 and the
// sizes "A" and "B". Size "1" has two projections. The packet whose sizes
// were renamed once has "DT#080#030#15".
void Fill(LxDataProvider* provider, const std::wstring& path) {
  LxPacket* packet = provider_AddPacket(provider, L"P");
  Require(packet != nullptr, "packet");
  LxFolder* root = packet_GetRootFolder(packet);
  LxFolderTable* table = folder_GetTable(root);
  LxAttribute* length = Column(table, L"Длина", L"Длина болта", 1, 1);
  LxAttribute* pitch = Column(table, L"Шаг", L"Шаг резьбы", 2, 2);
  LxAttribute* grade = Column(table, L"Марка", L"Марка стали", 3, 3);
  Column(table, L"elevation", L"Отметка", 2, 4);
  LxAttribute* changed = Column(table, L"USS_LAST_CHANGE_DATE", L"Дата изменения", 3, 0);
  Require(attribute_SetFormula(Column(table, L"Масса", L"Масса", 2, 5), L"{A21*2+1}"), "formula");
  Require(attribute_SetFormula(Column(table, L"Обозначение", L"Обозначение", 3, 0), L"Болт М{A21}x{A22}"),
          "formula");
  Require(attribute_SetVarName(Column(table, L"Слой", L"Слой чертежа", 1, 0), L"LAYER2"), "layer");
  for (const auto& [id, number] : {std::pair{L"1", 10}, {L"2", 12}}) {
    LxStdSize* size = table_AddStdSize(table, id);
    Require(size != nullptr, "size");
    Require(stdsize_SetValueI(size, length, number) && stdsize_SetValueD(size, pitch, number / 8.0) &&
                stdsize_SetValueS(size, grade, L"Ст3") && stdsize_SetValueS(size, changed, L"2024-01-01"),
            "size values");
  }
  const std::int32_t withViews = stdsize_GetTemplateID(table_FindStdSize(table, L"1"));

  LxFolder* child = folder_AddChildFolder(root, L"F");
  Require(child != nullptr, "folder");
  LxFolderTable* childTable = folder_GetTable(child);
  LxAttribute* childLength = Column(childTable, L"Длина", L"Длина шпильки", 1, 7);
  for (const auto& id : {L"A", L"B"}) {
    LxStdSize* size = table_AddStdSize(childTable, id);
    Require(size != nullptr && stdsize_SetValueI(size, childLength, 40), "child size");
  }

  LxPacket* renamed = provider_AddPacket(provider, kRenamedPacket);
  Require(renamed != nullptr, "renamed packet");
  LxFolderTable* bends = folder_GetTable(packet_GetRootFolder(renamed));
  LxAttribute* angle = Column(bends, L"Угол", L"Угол отвода", 2, 1);
  LxStdSize* bend = table_AddStdSize(bends, L"DT#080#030#15");
  Require(bend != nullptr && stdsize_SetValueD(bend, angle, 90.0), "bend");

  lxtest::CatalogSql sql(L"", path, L"SYSDBA", L"");
  const std::wstring owner = std::to_wstring(withViews);
  sql.Execute({L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (400, x'00', x'00', 'f400')",
               L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (401, x'00', x'00', 'f401')",
               L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (1, 400, " +
                   owner + L", 0)",
               L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (2, 401, " +
                   owner + L", 2)"});
}

// The catalog's folder, removed when the process ends normally; the engine
// may still hold the file open then, which the file system allows.
char catalogFolder[] = "/tmp/lx-object-fuzz-XXXXXX";

void RemoveFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(catalogFolder, ignored);
}

// The pool that loads use, with its catalog filled and reloaded, so the
// projections written in SQL are seen.
LxProviderPool* ThePool() {
  static LxProviderPool* pool = [] {
    Require(mkdtemp(catalogFolder) != nullptr, "mkdtemp");
    std::atexit(RemoveFolder);
    const std::wstring path = Utf8ToWide(std::string(catalogFolder) + "/catalog.fdb");
    Require(lxCreateEmptyFDB(path.c_str()), "lxCreateEmptyFDB");
    LxProviderPool* made = lxAddLibraryProviderPool(kLibrary, L"/object-fuzz.ulb");
    Require(made != nullptr, "pool");
    Require(lxAddLibraryProviderPool(kEmptyLibrary, L"/object-fuzz-empty.ulb") != nullptr, "empty pool");
    LxDataProvider* provider = pool_AddProvider(made, L"", path.c_str(), L"SYSDBA", L"");
    Require(provider != nullptr, "provider");
    Fill(provider, path);
    Require(lxReloadProvider(L"", path.c_str()), "reload");
    return made;
  }();
  return pool;
}

// A heap block of exactly `size` bytes, so any access past it is caught.
struct Block {
  explicit Block(std::size_t size) : bytes(new unsigned char[size == 0 ? 1 : size]), size(size) {}
  Block(const unsigned char* from, std::size_t size) : Block(size) {
    if (size != 0) std::memcpy(bytes.get(), from, size);
  }
  std::unique_ptr<unsigned char[]> bytes;
  std::size_t size;
};

// The version as the format defines it: the integer behind a leading tag 1,
// when there is room for it; else 0.
std::int32_t VersionOf(const Block& buffer) {
  if (buffer.size <= 4 || buffer.bytes[0] != 1) return 0;
  std::int32_t version;
  std::memcpy(&version, buffer.bytes.get() + 1, 4);
  return version;
}

bool Accepted(std::int32_t version) {
  for (std::int32_t accepted : kAcceptedVersions) {
    if (version == accepted) return true;
  }
  return false;
}

std::wstring Text(const wchar_t* text) { return text == nullptr ? L"<null>" : std::wstring(text); }

struct PacketInfo {
  std::wstring packet, size, library;
};

PacketInfo InfoOf(Block& buffer) {
  const wchar_t* packet = nullptr;
  const wchar_t* size = nullptr;
  const wchar_t* library = nullptr;
  Check(object_getPacketInfo(buffer.size == 0 ? nullptr : buffer.bytes.get(), static_cast<std::int32_t>(buffer.size),
                             &packet, &size, &library),
        "object_getPacketInfo answered false");
  return {Text(packet), Text(size), Text(library)};
}

// Saves into a block of `capacity` bytes; gives the bytes written.
Block Saved(LxObject* object, std::size_t capacity, std::int32_t selector) {
  Block buffer(capacity);
  std::uint32_t written = 0xDEADBEEF;
  const bool saved = object_Save(object, buffer.bytes.get(), static_cast<std::int32_t>(capacity), &written, selector);
  Check(written <= capacity, "object_Save wrote more than its capacity");
  Check(saved == (written != 0), "object_Save's result disagrees with its count");
  return Block(buffer.bytes.get(), written);
}

// Touches every byte a view hands out, so the address checker sees a view
// that points at freed or foreign memory.
void Read(const ValueView& view) {
  volatile wchar_t sink = 0;
  if (view.index == LX_VALUE_STRING && view.payload.text != nullptr) {
    for (std::uint64_t i = 0; i <= view.length; ++i) sink = view.payload.text[i];
  }
  (void)sink;
}

void ReadValues(LxObject* object) {
  const NumberFormat format{true, 3};
  for (const wchar_t* name : kReadNames) {
    ValueView view{};
    if (object_GetValueByName(object, name, &format, &view)) Read(view);
  }
  LxLayers* layers = object_GetLayers(object);
  if (layers != nullptr) {
    for (std::int32_t i = 0; i < layers_GetCount(layers); ++i) Text(layer_GetName(layers_GetLayer(layers, i)));
  }
  object_GetProjection(object);
}

void CheckAgainstInfo(LxObject* object, const PacketInfo& info) {
  Check(Text(object_getPacketName(object)) == info.packet, "packet name differs from object_getPacketInfo");
  Check(Text(object_getStdSizeId(object)) == info.size, "size id differs from object_getPacketInfo");
  if (!info.library.empty())
    Check(Text(object_GetLibraryId(object)) == info.library, "library id differs from object_getPacketInfo");
}

// A save that leaves nothing out can be loaded into an object that saves to
// the same bytes.
void CheckSecondRound(const Block& full) {
  Block again(full.bytes.get(), full.size);
  LxObject* reloaded = object_Load(ThePool(), again.bytes.get(), static_cast<std::int32_t>(again.size), true);
  Check(reloaded != nullptr, "a saved buffer did not load");
  const Block resaved = Saved(reloaded, full.size * 2 + 64, 1);
  Check(resaved.size == full.size && std::memcmp(resaved.bytes.get(), full.bytes.get(), full.size) == 0,
        "a second round of load and save changed the bytes");
  object_Delete(reloaded);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  LxProviderPool* pool = ThePool();
  const bool keepIfMissing = (data[0] & 1) != 0;
  Block buffer(data + 1, size - 1);
  const PacketInfo info = InfoOf(buffer);

  LxObject* object = object_Load(pool, buffer.size == 0 ? nullptr : buffer.bytes.get(),
                                 static_cast<std::int32_t>(buffer.size), keepIfMissing);
  const bool accepted = Accepted(VersionOf(buffer));
  if (!accepted) Check(object == nullptr, "a buffer of an unknown version loaded");
  if (accepted && keepIfMissing) Check(object != nullptr, "a buffer of an accepted version did not load");
  if (object == nullptr) return 0;
  if (!keepIfMissing) Check(object_GetStdSize(object) != nullptr, "an object without size though none was kept");
  CheckAgainstInfo(object, info);

  for (std::int32_t selector : {0, 1}) Saved(object, buffer.size, selector);
  const std::size_t generous = buffer.size * 3 + 4096;
  Saved(object, generous, 0);
  const Block full = Saved(object, generous, 1);
  ReadValues(object);
  CheckSecondRound(full);
  object_Delete(object);
  return 0;
}
