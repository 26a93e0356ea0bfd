// Every export against bad arguments: null handles, null and empty strings,
// indexes below zero and at the count, negative sizes, null out-parameters.
// Each call must end in its failure result with exactly the message of the
// frame or of the class behind it, or in the silence the interface promises,
// and must not crash; the sanitizer build runs the same table. One row per
// export, so an export added to the header without a row fails here.
#include <climits>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "DeclaredExports.h"
#include "ObjectFixture.h"

namespace lxtest {
namespace {

constexpr const wchar_t* none = nullptr;

// The name an export's messages carry: eight carry their namespace.
std::string FrameName(const std::string& exportName) {
  static const std::set<std::string> namespaced{"lxGetLibraryProviderPool", "lxGetLibraryName",
                                                "lxGetLibraryProviderPoolForUlbPath", "lxAddLibraryProviderPool",
                                                "folder_IsVirtual", "object_GetLibraryId", "object_SetLibraryId",
                                                "object_getPacketInfo"};
  return namespaced.count(exportName) ? "lx_api::" + exportName : exportName;
}

// The frame's own messages for one export.
struct Frame {
  std::string name;
  std::string Null(const std::string& argument) const {
    return "Передан нулевой указатель на объект " + argument + " (fun: " + name + ")";
  }
  // Any exception but a database one, a missing body among them.
  std::string Unknown() const { return " (fun: " + name + ") Неизвестное исключение"; }
};

std::string Said(const std::string& text, const std::string& method) { return text + " [" + method + "]"; }

std::string Range(std::int64_t index, std::int32_t count, const std::string& method) {
  return Said("Индекс " + std::to_string(index) + " выходит за пределы диапазона [0, " + std::to_string(count) + ")",
              method);
}

// The indexes out of range of a list of `count`, each refused with the range
// message of `method`.
template <typename Get>
void ExpectOutOfRange(Get get, std::int32_t count, const std::string& method) {
  for (std::int32_t index : {INT_MIN, -1, count, INT_MAX}) EXPECT_FAILS(get(index), Range(index, count, method));
}

struct Row {
  std::string name;
  std::function<void(const Frame&)> check;
};

// A row of the table: the export's name, then the checks of its calls, with
// `f` the frame of that export.
#define ROW(name, ...) \
  Row { #name, [&](const Frame& f) { __VA_ARGS__; } }

class BadArguments : public ObjectFixture {
 protected:
  void SetUp() override {
    ObjectFixture::SetUp();
    if (HasFatalFailure()) return;
    // A file and a specification on S1, so that both have handles too.
    Sql().Execute({L"INSERT INTO FILES (ID, NAME, DIGEST, DATAFILE) VALUES (1, 'a.txt', 'd1', " +
                       StoredLiteral({1, 2, 3}) + L")",
                   L"INSERT INTO STANDARTSIZE_FILE (ID, STDSIZE_ID, FILES_ID) VALUES (1, 601, 1)"});
    Execute(SpecRows(11, 501, L"основная", 7, {L"{A21}"}));
    ReloadAndWalk();
    s1_ = Size(L"S1");
    attribute_ = Column(L"Длина");
    model_ = stdsize_GetModel(s1_);
    projections_ = stdsize_GetProjections(s1_);
    projection_ = projections_GetProjection(projections_, 0);
    files_ = stdsize_GetFiles(s1_);
    file_ = files_GetFile(files_, 0);
    spec_ = stdsize_GetSpecification(s1_, 0);
    object_ = Create(s1_);
    layers_ = object_GetLayers(object_);
    layer_ = layers_GetLayer(layers_, 0);
    search_ = pool_GetSearchResult(pool_, kPacket, L"Длина>0");
    search2_ = pool_GetSearchResult2(pool_, L"Длина>0");
    ASSERT_TRUE(s1_ && attribute_ && model_ && projection_ && file_ && spec_ && object_ && layer_ && search_ &&
                search2_);
  }
  void TearDown() override {
    pool_DeleteSearchResult(pool_, search_);
    pool_DeleteSearchResult2(pool_, search2_);
    ObjectFixture::TearDown();
  }

  std::vector<Row> Rows();

  LxAttribute* attribute_ = nullptr;
  LxModel* model_ = nullptr;
  LxProjections* projections_ = nullptr;
  LxProjection* projection_ = nullptr;
  LxFiles* files_ = nullptr;
  LxFile* file_ = nullptr;
  LxSpec* spec_ = nullptr;
  LxObject* object_ = nullptr;
  LxLayers* layers_ = nullptr;
  LxLayer* layer_ = nullptr;
  LxSearchResult* search_ = nullptr;
  LxSearchResult2* search2_ = nullptr;
  // Out-parameters and a buffer for the calls that are given them.
  ValueView view_{};
  unsigned char* data_ = nullptr;
  std::int32_t size_ = 0;
  std::uint32_t written_ = 0;
  unsigned char bytes_[64] = {1, 2, 3};
};

std::vector<Row> BadArguments::Rows() {
  return {
      // The registry and the progress record.
      ROW(lxGetLibraryProviderPool, EXPECT_FAILS(lxGetLibraryProviderPool(none), f.Unknown());
          EXPECT_FAILS(lxGetLibraryProviderPool(L""))),
      ROW(lxGetLibraryProviderPoolForUlbPath, EXPECT_FAILS(lxGetLibraryProviderPoolForUlbPath(none), f.Unknown());
          EXPECT_FAILS(lxGetLibraryProviderPoolForUlbPath(L""))),
      ROW(lxAddLibraryProviderPool, EXPECT_FAILS(lxAddLibraryProviderPool(none, L"/lib/x.ulb"), f.Unknown());
          EXPECT_FAILS(lxAddLibraryProviderPool(L"BadArguments", none), f.Unknown());
          EXPECT_FAILS(lxGetLibraryProviderPool(L"BadArguments")) << "no pool without a path";
          EXPECT_FAILS(lxAddLibraryProviderPool(L"", L"/lib/x.ulb"))),
      ROW(lxGetLibraryName, EXPECT_FAILS(lxGetLibraryName(nullptr), f.Null("pool"))),
      ROW(lxDeleteProviderPool, EXPECT_FAILS(lxDeleteProviderPool(nullptr), f.Null("pool"))),
      ROW(lxReloadProvider, EXPECT_FAILS(lxReloadProvider(none, L"x.fdb")); EXPECT_FAILS(lxReloadProvider(L"", none));
          EXPECT_EQ(Captured([] { return lxReloadProvider(L"", L""); }), Quietly(true)) << "nothing to reload"),
      ROW(lxSetProgressControl,
          EXPECT_EQ(Captured([] { lxSetProgressControl(nullptr); return 0; }), Quietly(0))),
      ROW(lxClearProgressControl,
          EXPECT_EQ(Captured([] { lxClearProgressControl(); return 0; }), Quietly(0))),
      // Maintenance: only the new database tests its path for null; no file
      // at the empty path is a quiet failure.
      ROW(lxCreateEmptyFDB, EXPECT_FAILS(lxCreateEmptyFDB(none)); EXPECT_FAILS(lxCreateEmptyFDB(L""))),
      ROW(lxUpdateDatabase, EXPECT_FAILS(lxUpdateDatabase(none), f.Unknown()); EXPECT_FAILS(lxUpdateDatabase(L""))),
      ROW(lxUpdateUlb, EXPECT_FAILS(lxUpdateUlb(none), f.Unknown()); EXPECT_FAILS(lxUpdateUlb(L""))),
      ROW(lxSetDatabaseReadonly, EXPECT_FAILS(lxSetDatabaseReadonly(none, true), f.Unknown());
          EXPECT_FAILS(lxSetDatabaseReadonly(L"", false))),
      // pool_
      ROW(pool_AddProvider, EXPECT_FAILS(pool_AddProvider(nullptr, L"", L"x.fdb", L"u", L"p"), f.Null("pool"));
          EXPECT_FAILS(pool_AddProvider(pool_, none, L"x.fdb", L"u", L"p"));
          EXPECT_FAILS(pool_AddProvider(pool_, L"", none, L"u", L"p"));
          EXPECT_FAILS(pool_AddProvider(pool_, L"", L"x.fdb", none, L"p"));
          EXPECT_FAILS(pool_AddProvider(pool_, L"", L"x.fdb", L"u", none))),
      ROW(pool_FindProvider, EXPECT_FAILS(pool_FindProvider(nullptr, L"", L"x.fdb", L"u"), f.Null("pool"));
          EXPECT_FAILS(pool_FindProvider(pool_, none, L"x.fdb", L"u"));
          EXPECT_FAILS(pool_FindProvider(pool_, L"", none, L"u"));
          EXPECT_FAILS(pool_FindProvider(pool_, L"", L"x.fdb", none));
          EXPECT_FAILS(pool_FindProvider(pool_, L"", L"", L""))),
      ROW(pool_GetProviderCount, EXPECT_FAILS(pool_GetProviderCount(nullptr), f.Null("pool"))),
      ROW(pool_GetProvider, EXPECT_FAILS(pool_GetProvider(nullptr, 0), f.Null("pool"));
          ExpectOutOfRange([&](std::int32_t i) { return pool_GetProvider(pool_, i); }, pool_GetProviderCount(pool_),
                           "CProviderPool::_GetProvider")),
      ROW(pool_DeleteProvider, EXPECT_FAILS(pool_DeleteProvider(nullptr, nullptr), f.Null("pool"));
          EXPECT_FAILS(pool_DeleteProvider(pool_, nullptr), f.Null("prov"))),
      ROW(pool_FindPacket, EXPECT_FAILS(pool_FindPacket(nullptr, L"P"), f.Null("pool"));
          EXPECT_FAILS(pool_FindPacket(pool_, none)); EXPECT_FAILS(pool_FindPacket(pool_, L""))),
      ROW(pool_GetUlbPath, EXPECT_FAILS(pool_GetUlbPath(nullptr), f.Null("pool"))),
      ROW(pool_CreateObject, EXPECT_FAILS(pool_CreateObject(nullptr, nullptr, L"Lib"), f.Null("pool"));
          EXPECT_FAILS(pool_CreateObject(pool_, nullptr, L"Lib"), f.Null("stdSize"));
          EXPECT_FAILS(pool_CreateObject(pool_, s1_, none), f.Unknown())),
      ROW(pool_CreateObject_OLD, EXPECT_FAILS(pool_CreateObject_OLD(nullptr, L"P", L"7", L"7", L"Lib"), f.Null("pool"));
          EXPECT_FAILS(pool_CreateObject_OLD(pool_, none, L"7", L"7", L"Lib"), f.Unknown());
          EXPECT_FAILS(pool_CreateObject_OLD(pool_, L"P", none, L"7", L"Lib"), f.Unknown());
          EXPECT_FAILS(pool_CreateObject_OLD(pool_, L"P", L"7", none, L"Lib"), f.Unknown());
          EXPECT_FAILS(pool_CreateObject_OLD(pool_, L"P", L"7", L"7", none), f.Unknown());
          EXPECT_FAILS(pool_CreateObject_OLD(pool_, L"", L"", L"", L""),
                       Said("Не найден пакет ", "CObjectHelper::_CreateObject_OLD"))),
      ROW(pool_GetSearchResult, EXPECT_FAILS(pool_GetSearchResult(nullptr, L"P", L"A>0"), f.Null("pool"));
          EXPECT_FAILS(pool_GetSearchResult(pool_, none, L"A>0"));
          EXPECT_FAILS(pool_GetSearchResult(pool_, L"P", none));
          EXPECT_FAILS(pool_GetSearchResult(pool_, L"", L"A>0"),
                       Said("Требуется передать не пустой список пакетов (и вложенных фолдеров через /). "
                            "Разделитель ';'",
                            "CSearchHelper::_Run"));
          EXPECT_FAILS(pool_GetSearchResult(pool_, L"P", L""),
                       Said("Требуется передать не пустой запрос", "CSearchHelper::_Run"))),
      ROW(pool_DeleteSearchResult, EXPECT_FAILS(pool_DeleteSearchResult(nullptr, nullptr), f.Null("pool"));
          EXPECT_FAILS(pool_DeleteSearchResult(pool_, nullptr), f.Null("searchResult"))),
      ROW(pool_GetSearchResult2, EXPECT_FAILS(pool_GetSearchResult2(nullptr, L"A>0"), f.Null("pool"));
          EXPECT_FAILS(pool_GetSearchResult2(pool_, none));
          EXPECT_FAILS(pool_GetSearchResult2(pool_, L""),
                       Said("Требуется передать не пустой запрос", "CSearchResult2::_CreateSearchResult2"))),
      ROW(pool_DeleteSearchResult2, EXPECT_FAILS(pool_DeleteSearchResult2(nullptr, nullptr), f.Null("pool"));
          EXPECT_FAILS(pool_DeleteSearchResult2(pool_, nullptr), f.Null("searchResult"))),
      // provider_
      ROW(provider_IsEditable, EXPECT_FAILS(provider_IsEditable(nullptr), f.Null("dataProvider"))),
      ROW(provider_GetServerName, EXPECT_FAILS(provider_GetServerName(nullptr), f.Null("dataProvider"))),
      ROW(provider_GetDatabaseName, EXPECT_FAILS(provider_GetDatabaseName(nullptr), f.Null("dataProvider"))),
      ROW(provider_GetUserName, EXPECT_FAILS(provider_GetUserName(nullptr), f.Null("dataProvider"))),
      ROW(provider_GetParam, EXPECT_FAILS(provider_GetParam(nullptr, L"n", L"t"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_GetParam(provider_, none, L"t"));
          EXPECT_FAILS(provider_GetParam(provider_, L"n", none))),
      ROW(provider_GetPacketCount, EXPECT_FAILS(provider_GetPacketCount(nullptr), f.Null("dataProvider"))),
      ROW(provider_GetPacket, EXPECT_FAILS(provider_GetPacket(nullptr, 0), f.Null("dataProvider"));
          ExpectOutOfRange([&](std::int32_t i) { return provider_GetPacket(provider_, i); },
                           provider_GetPacketCount(provider_), "CDataProvider::_GetPacket")),
      ROW(provider_GetPacketByName, EXPECT_FAILS(provider_GetPacketByName(nullptr, L"P"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_GetPacketByName(provider_, none));
          EXPECT_FAILS(provider_GetPacketByName(provider_, L""))),
      ROW(provider_ClearPacketCache, EXPECT_FAILS(provider_ClearPacketCache(nullptr, nullptr), f.Null("dataProvider"));
          EXPECT_FAILS(provider_ClearPacketCache(provider_, nullptr), f.Null("packet"))),
      ROW(provider_AddPacket, EXPECT_FAILS(provider_AddPacket(nullptr, L"Новый"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_AddPacket(provider_, none));
          EXPECT_FAILS(provider_AddPacket(provider_, L""),
                       Said("Нельзя создать пакет с пустым именем", "CDataProvider::_AddPacket"))),
      ROW(provider_DeletePacket, EXPECT_FAILS(provider_DeletePacket(nullptr, nullptr), f.Null("dataProvider"));
          EXPECT_FAILS(provider_DeletePacket(provider_, nullptr), f.Null("packet"));
          EXPECT_FAILS(provider_DeletePacket(provider_, packet_), f.Unknown())),
      ROW(provider_GetDescByAtrName, EXPECT_FAILS(provider_GetDescByAtrName(nullptr, L"A"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_GetDescByAtrName(provider_, none))),
      ROW(provider_GetAttrNameByDesc, EXPECT_FAILS(provider_GetAttrNameByDesc(nullptr, L"A"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_GetAttrNameByDesc(provider_, none))),
      ROW(provider_DeleteUnusedQmxandQfx,
          EXPECT_FAILS(provider_DeleteUnusedQmxandQfx(nullptr), f.Null("dataProvider"))),
      ROW(provider_RunCommand, EXPECT_FAILS(provider_RunCommand(nullptr, L"<commands/>"), f.Null("dataProvider"));
          EXPECT_FAILS(provider_RunCommand(provider_, none), f.Unknown());
          EXPECT_FAILS(provider_RunCommand(provider_, L"")) << "no document is no command"),
      // packet_
      ROW(packet_GetName, EXPECT_FAILS(packet_GetName(nullptr), f.Null("packet"))),
      ROW(packet_SetName, EXPECT_FAILS(packet_SetName(nullptr, L"Новый"), f.Null("packet"));
          EXPECT_FAILS(packet_SetName(packet_, none));
          EXPECT_FAILS(packet_SetName(packet_, L""),
                       Said("Имя пакета не может быть нулевым", "CDataProvider::_ReNamePacket"))),
      ROW(packet_GetAttributeUniqueValues,
          EXPECT_FAILS(packet_GetAttributeUniqueValues(nullptr, L"Длина", L';'), f.Null("packet"));
          EXPECT_FAILS(packet_GetAttributeUniqueValues(packet_, none, L';'), f.Unknown())),
      ROW(packet_FindStdSize, EXPECT_FAILS(packet_FindStdSize(nullptr, L"S1"), f.Null("packet"));
          EXPECT_FAILS(packet_FindStdSize(packet_, none), f.Unknown()); EXPECT_FAILS(packet_FindStdSize(packet_, L""))),
      ROW(packet_GetRootFolder, EXPECT_FAILS(packet_GetRootFolder(nullptr), f.Null("packet"))),
      ROW(packet_GetProvider, EXPECT_FAILS(packet_GetProvider(nullptr), f.Null("packet"))),
      ROW(packet_CacheData, EXPECT_FAILS(packet_CacheData(nullptr), f.Null("packet"))),
      ROW(packet_ClearDataCache, EXPECT_FAILS(packet_ClearDataCache(nullptr), f.Null("packet"))),
      // folder_
      ROW(folder_GetName, EXPECT_FAILS(folder_GetName(nullptr), f.Null("folder"))),
      ROW(folder_SetName, EXPECT_FAILS(folder_SetName(nullptr, L"Новый"), f.Null("folder"));
          EXPECT_FAILS(folder_SetName(folder_, none))),
      ROW(folder_AddChildFolder, EXPECT_FAILS(folder_AddChildFolder(nullptr, L"Новый"), f.Null("folder"));
          EXPECT_FAILS(folder_AddChildFolder(folder_, none));
          EXPECT_FAILS(folder_AddChildFolder(folder_, L""),
                       Said("Имя фолдера не может быть пустым", "CFolder::_AddChildFolder"))),
      ROW(folder_GetChildFolderCount, EXPECT_FAILS(folder_GetChildFolderCount(nullptr), f.Null("folder"))),
      ROW(folder_GetChildFolder, EXPECT_FAILS(folder_GetChildFolder(nullptr, 0), f.Null("folder"));
          ExpectOutOfRange([&](std::int32_t i) { return folder_GetChildFolder(root_, i); },
                           folder_GetChildFolderCount(root_), "CFolder::_GetChildFolder")),
      ROW(folder_DeleteChildFolder, EXPECT_FAILS(folder_DeleteChildFolder(nullptr, nullptr), f.Null("folder"));
          EXPECT_FAILS(folder_DeleteChildFolder(root_, nullptr), f.Null("childFolder"))),
      ROW(folder_IsVirtual, EXPECT_FAILS(folder_IsVirtual(nullptr), f.Null("folder"))),
      ROW(folder_GetTable, EXPECT_FAILS(folder_GetTable(nullptr), f.Null("folder"))),
      ROW(folder_GetParentFolder, EXPECT_FAILS(folder_GetParentFolder(nullptr), f.Null("folder"))),
      ROW(folder_GetPacket, EXPECT_FAILS(folder_GetPacket(nullptr), f.Null("folder"))),
      ROW(folder_MoveTo, EXPECT_FAILS(folder_MoveTo(nullptr, nullptr), f.Null("folder"));
          EXPECT_FAILS(folder_MoveTo(folder_, nullptr), f.Null("parentFolder"))),
      // table_
      ROW(table_IsEmpty, EXPECT_FAILS(table_IsEmpty(nullptr), f.Null("table"))),
      ROW(table_Clear, EXPECT_FAILS(table_Clear(nullptr), f.Null("table")); EXPECT_FAILS(table_Clear(table_))),
      ROW(table_AddAttribute, EXPECT_FAILS(table_AddAttribute(nullptr, L"n", L"d", 1), f.Null("table"));
          EXPECT_FAILS(table_AddAttribute(table_, none, L"d", 1));
          EXPECT_FAILS(table_AddAttribute(table_, L"n", none, 1));
          EXPECT_FAILS(table_AddAttribute(table_, L"", L"", 0),
                       Said("Для атрибута задается неверный тип", "CFolderTable::_AddAttribute"))),
      ROW(table_GetAttributeCount, EXPECT_FAILS(table_GetAttributeCount(nullptr), f.Null("table"))),
      ROW(table_GetAttribute, EXPECT_FAILS(table_GetAttribute(nullptr, 0), f.Null("table"));
          ExpectOutOfRange([&](std::int32_t i) { return table_GetAttribute(table_, i); },
                           table_GetAttributeCount(table_), "CFolderTable::_GetAttribute")),
      ROW(table_FindAttribute, EXPECT_FAILS(table_FindAttribute(nullptr, L"Длина"), f.Null("table"));
          EXPECT_FAILS(table_FindAttribute(table_, none)); EXPECT_FAILS(table_FindAttribute(table_, L""))),
      ROW(table_DeleteAttribute, EXPECT_FAILS(table_DeleteAttribute(nullptr, nullptr), f.Null("table"));
          EXPECT_FAILS(table_DeleteAttribute(table_, nullptr), f.Null("attribute"))),
      ROW(table_AddStdSize, EXPECT_FAILS(table_AddStdSize(nullptr, L"S9"), f.Null("table"));
          EXPECT_FAILS(table_AddStdSize(table_, none));
          EXPECT_FAILS(table_AddStdSize(table_, L""),
                       Said("Индентификатор типоразмера не может быть пустым", "CFolderTable::_AddStdSize"))),
      ROW(table_GetStdSizeCount, EXPECT_FAILS(table_GetStdSizeCount(nullptr), f.Null("table"))),
      ROW(table_GetStdSize, EXPECT_FAILS(table_GetStdSize(nullptr, 0), f.Null("table"));
          ExpectOutOfRange([&](std::int32_t i) { return table_GetStdSize(table_, i); }, table_GetStdSizeCount(table_),
                           "CFolderTable::_GetStdSize")),
      ROW(table_FindStdSize, EXPECT_FAILS(table_FindStdSize(nullptr, L"S1"), f.Null("table"));
          EXPECT_FAILS(table_FindStdSize(table_, none)); EXPECT_FAILS(table_FindStdSize(table_, L""))),
      ROW(table_DeleteStdSize, EXPECT_FAILS(table_DeleteStdSize(nullptr, nullptr), f.Null("table"));
          EXPECT_FAILS(table_DeleteStdSize(table_, nullptr), f.Null("stdSize"))),
      ROW(table_GetFolder, EXPECT_FAILS(table_GetFolder(nullptr), f.Null("table"))),
      // attribute_
      ROW(attribute_GetName, EXPECT_FAILS(attribute_GetName(nullptr), f.Null("attribute"))),
      ROW(attribute_GetDescription, EXPECT_FAILS(attribute_GetDescription(nullptr), f.Null("attribute"))),
      ROW(attribute_GetMeasure, EXPECT_FAILS(attribute_GetMeasure(nullptr), f.Null("attribute"))),
      ROW(attribute_GetVarName, EXPECT_FAILS(attribute_GetVarName(nullptr), f.Null("attribute"))),
      ROW(attribute_GetFormula, EXPECT_FAILS(attribute_GetFormula(nullptr), f.Null("attribute"))),
      ROW(attribute_GetType, EXPECT_FAILS(attribute_GetType(nullptr), f.Null("attribute"))),
      ROW(attribute_GetNumber, EXPECT_FAILS(attribute_GetNumber(nullptr), f.Null("attribute"))),
      ROW(attribute_GetOldNumber, EXPECT_FAILS(attribute_GetOldNumber(nullptr), f.Null("attribute"))),
      ROW(attribute_GetTable, EXPECT_FAILS(attribute_GetTable(nullptr), f.Null("attribute"))),
      ROW(attribute_SetName, EXPECT_FAILS(attribute_SetName(nullptr, L"Новое"), f.Null("attribute"));
          EXPECT_FAILS(attribute_SetName(attribute_, none));
          EXPECT_FAILS(attribute_SetName(attribute_, L""), Said("Имя не может быть пустым", "CAttribute::_SetName"))),
      ROW(attribute_SetDescription, EXPECT_FAILS(attribute_SetDescription(nullptr, L"Новое"), f.Null("attribute"));
          EXPECT_FAILS(attribute_SetDescription(attribute_, none));
          EXPECT_FAILS(attribute_SetDescription(attribute_, L""),
                       Said("Описание не может быть пустым", "CAttribute::_SetDescription"))),
      ROW(attribute_SetMeasure, EXPECT_FAILS(attribute_SetMeasure(nullptr, L"мм"), f.Null("attribute"));
          EXPECT_FAILS(attribute_SetMeasure(attribute_, none))),
      ROW(attribute_SetVarName, EXPECT_FAILS(attribute_SetVarName(nullptr, L"L"), f.Null("attribute"));
          EXPECT_FAILS(attribute_SetVarName(attribute_, none))),
      ROW(attribute_SetFormula, EXPECT_FAILS(attribute_SetFormula(nullptr, L"1"), f.Null("attribute"));
          EXPECT_FAILS(attribute_SetFormula(attribute_, none))),
      ROW(attribute_SetType, EXPECT_FAILS(attribute_SetType(nullptr, 1), f.Null("attribute"))),
      ROW(attribute_SetNumber, EXPECT_FAILS(attribute_SetNumber(nullptr, 40), f.Null("attribute"))),
      ROW(attribute_SetOldNumber, EXPECT_FAILS(attribute_SetOldNumber(nullptr, 40), f.Null("attribute"))),
      ROW(attribute_CanEditForumalaValue,
          EXPECT_FAILS(attribute_CanEditForumalaValue(nullptr), f.Null("attribute"))),
      // stdsize_
      ROW(stdsize_GetID, EXPECT_FAILS(stdsize_GetID(nullptr), f.Null("stdSize"))),
      ROW(stdsize_SetID, EXPECT_FAILS(stdsize_SetID(nullptr, L"S9"), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetID(s1_, none)); EXPECT_FAILS(stdsize_SetID(s1_, L"S9"), f.Unknown())),
      ROW(stdsize_GetValue, EXPECT_FAILS(stdsize_GetValue(nullptr, nullptr, nullptr, &view_), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_GetValue(s1_, nullptr, nullptr, &view_), f.Null("attribute"));
          EXPECT_FAILS(stdsize_GetValue(s1_, attribute_, nullptr, nullptr))),
      ROW(stdsize_GetValueByName,
          EXPECT_FAILS(stdsize_GetValueByName(nullptr, L"Длина", nullptr, &view_), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_GetValueByName(s1_, none, nullptr, &view_));
          EXPECT_FAILS(stdsize_GetValueByName(s1_, L"", nullptr, &view_));
          EXPECT_FAILS(stdsize_GetValueByName(s1_, L"Длина", nullptr, nullptr))),
      ROW(stdsize_SetValueI, EXPECT_FAILS(stdsize_SetValueI(nullptr, nullptr, 1), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetValueI(s1_, nullptr, 1), f.Null("attribute"))),
      ROW(stdsize_SetValueD, EXPECT_FAILS(stdsize_SetValueD(nullptr, nullptr, 1.5), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetValueD(s1_, nullptr, 1.5), f.Null("attribute"))),
      ROW(stdsize_SetValueS, EXPECT_FAILS(stdsize_SetValueS(nullptr, nullptr, L"1"), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetValueS(s1_, nullptr, L"1"), f.Null("attribute"));
          EXPECT_FAILS(stdsize_SetValueS(s1_, attribute_, none))),
      ROW(stdsize_RemoveValue, EXPECT_FAILS(stdsize_RemoveValue(nullptr, nullptr), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_RemoveValue(s1_, nullptr), f.Null("attribute"))),
      ROW(stdsize_GetModel, EXPECT_FAILS(stdsize_GetModel(nullptr), f.Null("stdSize"))),
      ROW(stdsize_GetProjections, EXPECT_FAILS(stdsize_GetProjections(nullptr), f.Null("stdSize"))),
      ROW(stdsize_GetFiles, EXPECT_FAILS(stdsize_GetFiles(nullptr), f.Null("stdSize"))),
      ROW(stdsize_GetTable, EXPECT_FAILS(stdsize_GetTable(nullptr), f.Null("stdSize"))),
      ROW(stdsize_GetRepresentationData,
          EXPECT_FAILS(stdsize_GetRepresentationData(nullptr, &data_, &size_), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_GetRepresentationData(s1_, nullptr, &size_));
          EXPECT_FAILS(stdsize_GetRepresentationData(s1_, &data_, nullptr))),
      ROW(stdsize_SetRepresentationData,
          EXPECT_FAILS(stdsize_SetRepresentationData(nullptr, bytes_, 3), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetRepresentationData(s1_, nullptr, 3));
          EXPECT_FAILS(stdsize_SetRepresentationData(s1_, bytes_, -1))),
      ROW(stdsize_GetSpecificationCount, EXPECT_FAILS(stdsize_GetSpecificationCount(nullptr), f.Null("stdSize"))),
      ROW(stdsize_GetSpecification, EXPECT_FAILS(stdsize_GetSpecification(nullptr, 0), f.Null("stdSize"));
          ExpectOutOfRange([&](std::int32_t i) { return stdsize_GetSpecification(s1_, i); },
                           stdsize_GetSpecificationCount(s1_), "CStandartSize::_GetSpecification")),
      ROW(stdsize_GetAttributeCount, EXPECT_FAILS(stdsize_GetAttributeCount(nullptr), f.Null("stdSize"))),
      // The one index that is not range-checked: the standard library's
      // out-of-range exception answers.
      ROW(stdsize_GetAttributeName, EXPECT_FAILS(stdsize_GetAttributeName(nullptr, 0), f.Null("stdSize"));
          for (std::int32_t index : {INT_MIN, -1, stdsize_GetAttributeCount(s1_), INT_MAX})
              EXPECT_FAILS(stdsize_GetAttributeName(s1_, index), f.Unknown())),
      ROW(stdsize_GetType, EXPECT_FAILS(stdsize_GetType(nullptr), f.Null("stdSize"))),
      ROW(stdsize_SetType, EXPECT_FAILS(stdsize_SetType(nullptr, L"Болт"), f.Null("stdSize"));
          EXPECT_FAILS(stdsize_SetType(s1_, none))),
      ROW(stdsize_GetTemplateID, EXPECT_FAILS(stdsize_GetTemplateID(nullptr), f.Null("stdSize"))),
      // model_: a null model is an empty one.
      ROW(model_IsEmpty, EXPECT_EQ(Captured([] { return model_IsEmpty(nullptr); }), Quietly(true))),
      ROW(model_Clear, EXPECT_FAILS(model_Clear(nullptr), f.Null("model"))),
      ROW(model_IsEqualModel, EXPECT_FAILS(model_IsEqualModel(nullptr, nullptr), f.Null("model"));
          EXPECT_FAILS(model_IsEqualModel(model_, nullptr), f.Null("otherModel"))),
      ROW(model_GetModelFile, EXPECT_FAILS(model_GetModelFile(nullptr), f.Null("model"))),
      ROW(model_GetDigest, EXPECT_FAILS(model_GetDigest(nullptr), f.Null("model"))),
      ROW(model_GetModelName, EXPECT_FAILS(model_GetModelName(nullptr), f.Null("model"))),
      ROW(model_SetName, EXPECT_FAILS(model_SetName(nullptr, L"m"), f.Null("model"));
          EXPECT_FAILS(model_SetName(model_, none)); EXPECT_FAILS(model_SetName(model_, L"m"), f.Unknown())),
      ROW(model_GetIconData, EXPECT_FAILS(model_GetIconData(nullptr, &data_, &size_), f.Null("model"));
          EXPECT_FAILS(model_GetIconData(model_, nullptr, &size_));
          EXPECT_FAILS(model_GetIconData(model_, &data_, nullptr))),
      ROW(model_GetVersion, EXPECT_FAILS(model_GetVersion(nullptr), f.Null("model"))),
      ROW(model_GetOrientation, EXPECT_FAILS(model_GetOrientation(nullptr), f.Null("model"))),
      ROW(model_SetModel, EXPECT_FAILS(model_SetModel(nullptr, nullptr), f.Null("model"));
          EXPECT_FAILS(model_SetModel(model_, nullptr), f.Null("otherModel"))),
      ROW(model_SetModelEx, EXPECT_FAILS(model_SetModelEx(nullptr, L"m.qmx", L"i.png", L"d", 1), f.Null("model"));
          EXPECT_FAILS(model_SetModelEx(model_, none, L"i.png", L"d", 1));
          EXPECT_FAILS(model_SetModelEx(model_, L"m.qmx", none, L"d", 1));
          EXPECT_FAILS(model_SetModelEx(model_, L"m.qmx", L"i.png", none, 1))),
      ROW(model_GetStdSize, EXPECT_FAILS(model_GetStdSize(nullptr), f.Null("model"))),
      // projections_, projection_
      ROW(projections_AddProjection, EXPECT_FAILS(projections_AddProjection(nullptr, nullptr), f.Null("projections"));
          EXPECT_FAILS(projections_AddProjection(projections_, nullptr), f.Null("projection"))),
      ROW(projections_AddProjectionEx,
          EXPECT_FAILS(projections_AddProjectionEx(nullptr, L"f.qfx", L"i.png", L"d", 1, L"n", 0),
                       f.Null("projections"));
          EXPECT_FAILS(projections_AddProjectionEx(projections_, none, L"i.png", L"d", 1, L"n", 0));
          EXPECT_FAILS(projections_AddProjectionEx(projections_, L"f.qfx", none, L"d", 1, L"n", 0));
          EXPECT_FAILS(projections_AddProjectionEx(projections_, L"f.qfx", L"i.png", none, 1, L"n", 0));
          EXPECT_FAILS(projections_AddProjectionEx(projections_, L"f.qfx", L"i.png", L"d", 1, none, 0))),
      ROW(projections_GetProjectioCount,
          EXPECT_FAILS(projections_GetProjectioCount(nullptr), f.Null("projections"))),
      ROW(projections_GetProjection, EXPECT_FAILS(projections_GetProjection(nullptr, 0), f.Null("projections"));
          ExpectOutOfRange([&](std::int32_t i) { return projections_GetProjection(projections_, i); },
                           projections_GetProjectioCount(projections_), "CStdProjs::_GetProjection")),
      ROW(projections_FindProjection,
          EXPECT_FAILS(projections_FindProjection(nullptr, L"сверху", 1, 0), f.Null("projections"));
          EXPECT_FAILS(projections_FindProjection(projections_, none, 1, 0));
          EXPECT_FAILS(projections_FindProjection(projections_, L"сверху", -1, -1),
                       Said("Оба параметра не могут быть пропущены", "CStdProjs::_FindProjection"))),
      ROW(projections_DeleteProjection,
          EXPECT_FAILS(projections_DeleteProjection(nullptr, nullptr), f.Null("projections"));
          EXPECT_FAILS(projections_DeleteProjection(projections_, nullptr), f.Null("projection"))),
      ROW(projections_GetStdSize, EXPECT_FAILS(projections_GetStdSize(nullptr), f.Null("projections"))),
      ROW(projection_GetName, EXPECT_FAILS(projection_GetName(nullptr), f.Null("projection"))),
      ROW(projection_GetDigest, EXPECT_FAILS(projection_GetDigest(nullptr), f.Null("projection"))),
      ROW(projection_GetType, EXPECT_FAILS(projection_GetType(nullptr), f.Null("projection"))),
      ROW(projection_SetType, EXPECT_FAILS(projection_SetType(nullptr, 1, L"сверху"), f.Null("projection"));
          EXPECT_FAILS(projection_SetType(projection_, 1, none))),
      ROW(projection_GetViewType, EXPECT_FAILS(projection_GetViewType(nullptr), f.Null("projection"))),
      ROW(projection_SetViewType, EXPECT_FAILS(projection_SetViewType(nullptr, 3), f.Null("projection"))),
      ROW(projection_GetIconData, EXPECT_FAILS(projection_GetIconData(nullptr, &data_, &size_), f.Null("projection"));
          EXPECT_FAILS(projection_GetIconData(projection_, nullptr, &size_));
          EXPECT_FAILS(projection_GetIconData(projection_, &data_, nullptr))),
      ROW(projection_GetFragmentFile, EXPECT_FAILS(projection_GetFragmentFile(nullptr), f.Null("projection"))),
      ROW(projection_IsEqualFragment, EXPECT_FAILS(projection_IsEqualFragment(nullptr, nullptr), f.Null("projection"));
          EXPECT_FAILS(projection_IsEqualFragment(projection_, nullptr), f.Null("otherProjection"))),
      ROW(projection_SetFragment, EXPECT_FAILS(projection_SetFragment(nullptr, nullptr), f.Null("projection"));
          EXPECT_FAILS(projection_SetFragment(projection_, nullptr), f.Null("otherProjection"))),
      ROW(projection_GetStdSize, EXPECT_FAILS(projection_GetStdSize(nullptr), f.Null("projection"))),
      // files_, file_: the writers have no body.
      ROW(files_GetFileCount, EXPECT_FAILS(files_GetFileCount(nullptr), f.Null("files"))),
      ROW(files_GetFile, EXPECT_FAILS(files_GetFile(nullptr, 0), f.Null("files"));
          ExpectOutOfRange([&](std::int32_t i) { return files_GetFile(files_, i); }, files_GetFileCount(files_),
                           "CStdFiles::_GetFile")),
      ROW(files_GetStdSize, EXPECT_FAILS(files_GetStdSize(nullptr), f.Null("files"))),
      ROW(files_AddFile, EXPECT_FAILS(files_AddFile(nullptr, nullptr), f.Null("files"));
          EXPECT_FAILS(files_AddFile(files_, nullptr), f.Null("file"));
          EXPECT_FAILS(files_AddFile(files_, file_), f.Unknown())),
      ROW(files_AddFileEx, EXPECT_FAILS(files_AddFileEx(nullptr, L"a.txt", L"a", L"d"), f.Null("files"));
          EXPECT_FAILS(files_AddFileEx(files_, none, L"a", L"d"));
          EXPECT_FAILS(files_AddFileEx(files_, L"a.txt", none, L"d"));
          EXPECT_FAILS(files_AddFileEx(files_, L"a.txt", L"a", none));
          EXPECT_FAILS(files_AddFileEx(files_, L"a.txt", L"a", L"d"), f.Unknown())),
      ROW(files_DeleteFile, EXPECT_FAILS(files_DeleteFile(nullptr, nullptr), f.Null("files"));
          EXPECT_FAILS(files_DeleteFile(files_, nullptr), f.Null("file"));
          EXPECT_FAILS(files_DeleteFile(files_, file_), f.Unknown())),
      ROW(file_GetName, EXPECT_FAILS(file_GetName(nullptr), f.Null("file"))),
      ROW(file_GetExt, EXPECT_FAILS(file_GetExt(nullptr), f.Null("file"))),
      ROW(file_GetFile, EXPECT_FAILS(file_GetFile(nullptr), f.Null("file"))),
      ROW(file_IsEqual, EXPECT_FAILS(file_IsEqual(nullptr, nullptr), f.Null("file"));
          EXPECT_FAILS(file_IsEqual(file_, nullptr), f.Null("otherFile"))),
      ROW(file_GetStdSize, EXPECT_FAILS(file_GetStdSize(nullptr), f.Null("file"))),
      // spec_
      ROW(spec_LibName, EXPECT_FAILS(spec_LibName(nullptr), f.Null("spec"))),
      ROW(spec_Style, EXPECT_FAILS(spec_Style(nullptr), f.Null("spec"))),
      ROW(spec_FirstPart, EXPECT_FAILS(spec_FirstPart(nullptr), f.Null("spec"))),
      ROW(spec_SecondPart, EXPECT_FAILS(spec_SecondPart(nullptr), f.Null("spec"))),
      ROW(spec_ColumnCount, EXPECT_FAILS(spec_ColumnCount(nullptr), f.Null("spec"))),
      ROW(spec_ColumnNumber, EXPECT_FAILS(spec_ColumnNumber(nullptr, 0), f.Null("spec"));
          ExpectOutOfRange([&](std::int32_t i) { return spec_ColumnNumber(spec_, i); }, spec_ColumnCount(spec_),
                           "CSpec::_ColumnNumber")),
      ROW(spec_ColumnFormula, EXPECT_FAILS(spec_ColumnFormula(nullptr, 0), f.Null("spec"));
          ExpectOutOfRange([&](std::int32_t i) { return spec_ColumnFormula(spec_, i); }, spec_ColumnCount(spec_),
                           "CSpec::_ColumnStrFormula")),
      // object_
      ROW(object_Initialize, EXPECT_FAILS(object_Initialize(nullptr, L"Lib", nullptr, true), f.Null("object"));
          EXPECT_FAILS(object_Initialize(object_, L"Lib", nullptr, true), f.Null("stdSize"));
          EXPECT_FAILS(object_Initialize(object_, none, s1_, false), f.Unknown())),
      ROW(object_InitializeByObject, EXPECT_FAILS(object_InitializeByObject(nullptr, nullptr), f.Null("object"));
          EXPECT_FAILS(object_InitializeByObject(object_, nullptr), f.Null("byObject"))),
      ROW(object_ChangeStdSize, EXPECT_FAILS(object_ChangeStdSize(nullptr, nullptr), f.Null("object"));
          EXPECT_FAILS(object_ChangeStdSize(object_, nullptr), f.Null("stdSize"))),
      ROW(object_GetStdSize, EXPECT_FAILS(object_GetStdSize(nullptr), f.Null("object"))),
      ROW(object_getStdSizeId, EXPECT_FAILS(object_getStdSizeId(nullptr), f.Null("object"))),
      ROW(object_getPacketName, EXPECT_FAILS(object_getPacketName(nullptr), f.Null("object"))),
      ROW(object_GetLibraryId, EXPECT_FAILS(object_GetLibraryId(nullptr), f.Null("object"))),
      ROW(object_SetLibraryId, EXPECT_FAILS(object_SetLibraryId(nullptr, L"Lib"), f.Null("object"));
          EXPECT_FAILS(object_SetLibraryId(object_, none), f.Unknown())),
      ROW(object_GetValue, EXPECT_FAILS(object_GetValue(nullptr, nullptr, nullptr, &view_), f.Null("object"));
          EXPECT_FAILS(object_GetValue(object_, nullptr, nullptr, &view_), f.Null("atr"));
          EXPECT_FAILS(object_GetValue(object_, attribute_, nullptr, nullptr))),
      ROW(object_GetValueByName,
          EXPECT_FAILS(object_GetValueByName(nullptr, L"Длина", nullptr, &view_), f.Null("object"));
          EXPECT_FAILS(object_GetValueByName(object_, none, nullptr, &view_));
          EXPECT_FAILS(object_GetValueByName(object_, L"", nullptr, &view_),
                       Said("Не найден атрибут по имени ", "CObject::_GetValue"));
          EXPECT_FAILS(object_GetValueByName(object_, L"Длина", nullptr, nullptr))),
      ROW(object_SetValueI, EXPECT_FAILS(object_SetValueI(nullptr, nullptr, 1), f.Null("object"));
          EXPECT_FAILS(object_SetValueI(object_, nullptr, 1), f.Null("atr"))),
      ROW(object_SetValueD, EXPECT_FAILS(object_SetValueD(nullptr, nullptr, 1.5), f.Null("object"));
          EXPECT_FAILS(object_SetValueD(object_, nullptr, 1.5), f.Null("atr"))),
      ROW(object_SetValueS, EXPECT_FAILS(object_SetValueS(nullptr, nullptr, L"1"), f.Null("object"));
          EXPECT_FAILS(object_SetValueS(object_, nullptr, L"1"), f.Null("atr"));
          EXPECT_FAILS(object_SetValueS(object_, attribute_, none), f.Unknown())),
      ROW(object_RestoreValue, EXPECT_FAILS(object_RestoreValue(nullptr, nullptr), f.Null("object"));
          EXPECT_FAILS(object_RestoreValue(object_, nullptr), f.Null("atr"))),
      ROW(object_RestoreAllValues, EXPECT_FAILS(object_RestoreAllValues(nullptr), f.Null("object"))),
      ROW(object_Clone, EXPECT_FAILS(object_Clone(nullptr), f.Null("object"))),
      ROW(object_GetSpecValue,
          EXPECT_FAILS(object_GetSpecValue(nullptr, nullptr, 1, nullptr, &view_), f.Null("object"));
          EXPECT_FAILS(object_GetSpecValue(object_, nullptr, 1, nullptr, &view_), f.Null("spec"));
          EXPECT_FAILS(object_GetSpecValue(object_, spec_, 1, nullptr, nullptr));
          EXPECT_FAILS(object_GetSpecValue(object_, spec_, -1, nullptr, &view_),
                       Said("Не найдена колонка -1 в спецификации 7", "CObject::_GetSpecValue"))),
      ROW(object_compareByValues, EXPECT_FAILS(object_compareByValues(nullptr, nullptr), f.Null("object"));
          EXPECT_FAILS(object_compareByValues(object_, nullptr), f.Null("otherObject"))),
      ROW(object_generateCacheId, EXPECT_FAILS(object_generateCacheId(nullptr), f.Null("object"))),
      ROW(object_Delete, EXPECT_FAILS(object_Delete(nullptr), f.Null("object"))),
      // The buffer and the count of a save are the caller's duty; a null one
      // is refused, and a negative capacity is no room.
      ROW(object_Save, EXPECT_FAILS(object_Save(nullptr, bytes_, 64, &written_, 1), f.Null("object"));
          EXPECT_FAILS(object_Save(object_, bytes_, 64, nullptr, 1));
          EXPECT_FAILS(object_Save(object_, nullptr, 64, &written_, 1));
          EXPECT_FAILS(object_Save(object_, bytes_, -1, &written_, 1)); EXPECT_EQ(written_, 0u)),
      ROW(object_Load, EXPECT_FAILS(object_Load(nullptr, bytes_, 3, false), f.Null("pool"));
          EXPECT_FAILS(object_Load(pool_, nullptr, 3, false),
                       Said("Передан нулевой указатель на буфер", "CObjectHelper::_LoadObject"));
          for (std::int32_t size : {0, -1, INT_MIN}) EXPECT_FAILS(object_Load(pool_, bytes_, size, true),
                       Said("Передан неверное значение размера", "CObjectHelper::_LoadObject"))),
      // No buffer gives three empty texts; every out-parameter may be null.
      ROW(object_getPacketInfo, const wchar_t* texts[3] = {L"x", L"x", L"x"};
          EXPECT_EQ(Captured([&] { return object_getPacketInfo(nullptr, 0, &texts[0], &texts[1], &texts[2]); }),
                    Quietly(true));
          EXPECT_EQ(std::wstring(texts[0]) + texts[1] + texts[2], L"");
          EXPECT_EQ(Captured([&] { return object_getPacketInfo(bytes_, 64, nullptr, nullptr, nullptr); }),
                    Quietly(true));
          EXPECT_FAILS(object_getPacketInfo(bytes_, -1, &texts[0], &texts[1], &texts[2]))),
      // A negative size stores nothing, as a null block does.
      ROW(object_SetBufValue, EXPECT_FAILS(object_SetBufValue(nullptr, L"b", bytes_, 3), f.Null("object"));
          EXPECT_FAILS(object_SetBufValue(object_, none, bytes_, 3));
          EXPECT_EQ(Captured([&] { return object_SetBufValue(object_, L"b", bytes_, -1); }), Quietly(true));
          EXPECT_FAILS(object_GetBufValue(object_, L"b", &data_, &size_))),
      ROW(object_GetBufValue, EXPECT_FAILS(object_GetBufValue(nullptr, L"b", &data_, &size_), f.Null("object"));
          EXPECT_FAILS(object_GetBufValue(object_, none, &data_, &size_));
          EXPECT_FAILS(object_GetBufValue(object_, L"b", nullptr, &size_));
          EXPECT_FAILS(object_GetBufValue(object_, L"b", &data_, nullptr))),
      ROW(object_GetProjection, EXPECT_FAILS(object_GetProjection(nullptr), f.Null("object"))),
      ROW(object_GetProjectionType, EXPECT_FAILS(object_GetProjectionType(nullptr), f.Null("object"))),
      ROW(object_GetProjectionViewType, EXPECT_FAILS(object_GetProjectionViewType(nullptr), f.Null("object"))),
      ROW(object_SetProjection, EXPECT_FAILS(object_SetProjection(nullptr, projection_), f.Null("object"))),
      ROW(object_GetLayers, EXPECT_FAILS(object_GetLayers(nullptr), f.Null("object"))),
      // layers_, layer_
      ROW(layers_GetCount, EXPECT_FAILS(layers_GetCount(nullptr), f.Null("layers"))),
      ROW(layers_GetLayer, EXPECT_FAILS(layers_GetLayer(nullptr, 0), f.Null("layers"));
          ExpectOutOfRange([&](std::int32_t i) { return layers_GetLayer(layers_, i); }, layers_GetCount(layers_),
                           "CLayers::_GetLayer")),
      ROW(layer_GetNumber, EXPECT_FAILS(layer_GetNumber(nullptr), f.Null("layer"))),
      ROW(layer_GetName, EXPECT_FAILS(layer_GetName(nullptr), f.Null("layer"))),
      ROW(layer_GetVisible, EXPECT_FAILS(layer_GetVisible(nullptr), f.Null("layer"))),
      ROW(layer_SetVisible, EXPECT_FAILS(layer_SetVisible(nullptr), f.Null("layer"));
          EXPECT_FAILS(layer_SetVisible(layer_), f.Unknown())),
      // search_, search2_
      ROW(search_GetCount, EXPECT_FAILS(search_GetCount(nullptr), f.Null("search"))),
      ROW(search_Get, EXPECT_FAILS(search_Get(nullptr, 0), f.Null("search"));
          ExpectOutOfRange([&](std::int32_t i) { return search_Get(search_, i); }, search_GetCount(search_),
                           "CSearchResult::_Get")),
      ROW(search2_Check, EXPECT_FAILS(search2_Check(nullptr, nullptr), f.Null("search"));
          EXPECT_FAILS(search2_Check(search2_, nullptr), f.Null("stdSize"))),
  };
}

TEST_F(BadArguments, EveryExportFailsAsItsFrameAndClassSayAndNoneCrashes) {
  std::set<std::string> covered;
  for (const Row& row : Rows()) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(covered.insert(row.name).second) << "a second row";
    row.check(Frame{FrameName(row.name)});
  }
  const std::set<std::string> declared = DeclaredExports(LX_HEADER_PATH);
  ASSERT_EQ(declared.size(), 199u);
  for (const std::string& name : declared) EXPECT_TRUE(covered.count(name)) << "no row for " << name;
  for (const std::string& name : covered) EXPECT_TRUE(declared.count(name)) << "a row for no export: " << name;
}

}  // namespace
}  // namespace lxtest
