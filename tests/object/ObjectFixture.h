// ObjectFixture: the templates of ContentFixture with columns for placed
// objects, and two packets of their own, "P" (size "7", one column "A") and
// the bends packet whose sizes were renamed ("DT#080#030#15"). Template T
// has plain columns of the three kinds with old numbers, formulas that are
// and are not bare references, a cycle, the row-date and elevation columns
// and layer columns; its two projections are "сверху" (view type 0) and
// "спереди" (view type 1). Objects made through the fixture are deleted
// at the end of the test.
#pragma once

#include <string>
#include <vector>

#include "ContentFixture.h"
#include "ObjectBuffer.h"

namespace lxtest {

class ObjectFixture : public ContentFixture {
 protected:
  static constexpr const wchar_t* kBends = L"Отводы круглого сечения ВСН 353-86";
  static constexpr const wchar_t* kDate = L"01.02.2020";

  void SetUp() override {
    ContentFixture::SetUp();
    if (HasFatalFailure()) return;
    const std::wstring none = L"NULL, NULL, NULL";
    auto layer = [&](std::int32_t number, std::int32_t type, const wchar_t* name, const wchar_t* varName) {
      return AttributeRow{number, type, name, L"", none, L"", L"", varName};
    };
    const std::vector<AttributeRow> columns{{21, 1, L"Длина", L"", L"10, NULL, NULL", L"", L"", L"", 5},
                                            {22, 2, L"Масса", L"", L"NULL, 1.5, NULL", L"", L"", L"", 6},
                                            {23, 3, L"Марка", L"", L"NULL, NULL, 'Ст3'", L"", L"", L"", 7},
                                            {24, 1, L"Ссылка", L"", none, L"{A21}"},
                                            {25, 1, L"Сумма", L"", none, L"{A21}+1"},
                                            {26, 3, L"USS_LAST_CHANGE_DATE", L"", L"NULL, NULL, " + Quoted(kDate)},
                                            {27, 2, L"elevation", L"", L"NULL, 7.5, NULL"},
                                            {28, 1, L"Цикл1", L"", none, L"{A29}"},
                                            {29, 1, L"Цикл2", L"", none, L"{A28}"},
                                            {30, 1, L"Через", L"", none, L"{A24}"},
                                            layer(31, 2, L"Слой2", L"LAYER2"),
                                            layer(32, 3, L"Слой10", L"LAYER10"),
                                            layer(33, 1, L"Слой3", L"layer3"),
                                            layer(34, 1, L"СлойX1", L"XLAYER1"),
                                            layer(35, 1, L"Слой", L"LAYER"),
                                            layer(36, 1, L"Слойx", L"LAYERx")};
    // Both templates have the same records, so that they share one table.
    for (std::int32_t templateId : {501, 502})
      for (const AttributeRow& column : columns) Sql().Execute(AttributeRowSql(templateId, column));
    Sql().Execute(
        {SizeValueSql(21, 601, L"12, NULL, NULL"),
         L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (400, " + StoredLiteral({1}) + L", " +
             StoredLiteral({2}) + L", 'f400')",
         L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (1, 400, 501, 0)",
         L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (2, 400, 501, 1)",
         L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (4, 400, 502, 2)"});
    LayPacket(provider_, Sql(), L"P", 700, {L"7"}, {{21, 1, L"A", L""}});
    LayPacket(provider_, Sql(), kBends, 710, {L"DT#080#030#15"}, {{21, 1, L"Угол", L""}});
    ReloadAndWalk();
    s1_ = Size(L"S1");
    s2_ = Size(L"S2");
    u1_ = Size(L"U1");
    p7_ = packet_FindStdSize(provider_GetPacketByName(provider_, L"P"), L"7");
    ASSERT_TRUE(s1_ && s2_ && u1_ && p7_);
  }
  void TearDown() override {
    for (LxObject* object : objects_) object_Delete(object);
  }

  // A packet with one folder, one template and its sizes, laid out as SQL on
  // the provider's catalog; seen after its next reload.
  static void LayPacket(LxDataProvider* provider, CatalogSql& sql, const std::wstring& name, std::int32_t templateId,
                        const std::vector<std::wstring>& sizes, const std::vector<AttributeRow>& columns) {
    const std::wstring folder = name + L" (папка)";
    ASSERT_NE(folder_AddChildFolder(packet_GetRootFolder(provider_AddPacket(provider, name.c_str())), folder.c_str()),
              nullptr);
    const std::wstring id = std::to_wstring(templateId);
    sql.Execute(L"INSERT INTO OBJECT (ID, NAME, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID) VALUES (" + id +
                L", 'T', 1, (SELECT ID FROM PACKET WHERE PACKETID = " + Quoted(name) +
                L"), (SELECT ID FROM FOLDER WHERE NAME = " + Quoted(folder) + L"), 4)");
    for (std::size_t i = 0; i < sizes.size(); ++i)
      sql.Execute(SizeRow(templateId + 1 + static_cast<std::int32_t>(i), templateId, sizes[i]));
    for (const AttributeRow& column : columns) sql.Execute(AttributeRowSql(templateId, column));
  }

  // Objects the test owns until its end.
  LxObject* Kept(LxObject* object) {
    if (object != nullptr) objects_.push_back(object);
    return object;
  }
  LxObject* Create(LxStdSize* size, const wchar_t* libraryId = L"Lib") {
    return Kept(pool_CreateObject(pool_, size, libraryId));
  }
  LxObject* Load(const ObjectBuffer::Bytes& bytes, bool keepIfMissing = false, LxProviderPool* pool = nullptr) {
    ObjectBuffer::Bytes copy = bytes;  // the library takes a mutable buffer
    return Kept(object_Load(pool ? pool : pool_, copy.data(), static_cast<std::int32_t>(copy.size()), keepIfMissing));
  }
  // What object_Save writes with this capacity; "<false>" as bytes if it fails.
  static ObjectBuffer::Bytes Saved(LxObject* object, std::int32_t selector = 1, std::int32_t capacity = 4096) {
    ObjectBuffer::Bytes buffer(static_cast<std::size_t>(capacity) + 1, 0xCC);
    std::uint32_t written = 0xDEAD;
    if (!object_Save(object, buffer.data(), capacity, &written, selector)) return {'<', 'f', 'a', 'l', 's', 'e', '>'};
    if (written > static_cast<std::uint32_t>(capacity) || buffer[capacity] != 0xCC)
      return {'<', 'o', 'v', 'e', 'r', '>'};
    buffer.resize(written);
    return buffer;
  }
  // A value as Described shows it, read by name; "-" when the read fails.
  static std::wstring Seen(LxObject* object, const std::wstring& name) {
    ValueView view{};
    return object_GetValueByName(object, name.c_str(), nullptr, &view) ? Described(view) : L"-";
  }
  static std::string Refusal(const std::string& method) {
    return "Перед использованием объект следует инициализировать типоразмером [CObject::" + method + "]";
  }

  LxStdSize* p7_ = nullptr;

 private:
  std::vector<LxObject*> objects_;
};

}  // namespace lxtest
