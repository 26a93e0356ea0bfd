// From 1001 keys on, a load step reads per key in parallel chunks. Both ways
// must give exactly the same content; these tests load a packet just below
// and one just above the threshold with the same rows and compare the whole.
#include <algorithm>

#include "CatalogFixture.h"
#include "DebugOutput.h"
#include "Shapes.h"

using lxtest::Captured;
using lxtest::FlushText;
using lxtest::Writes;
namespace shapes = lxtest::shapes;

namespace {

class ChunkedLoad : public lxtest::CatalogFixture {
 protected:
  // A packet with one folder "Данные" holding one template with columns 21
  // (integer), 22 (double, common value 2.5) and 23 (text) and `count` sizes
  // "S<i>", i from 1, with own values 3i, i / 4.0 (SQL keeps one decimal)
  // and "t<i>".
  void MakeSizesPacket(std::int32_t id, const std::wstring& name, std::int32_t count) {
    const std::int32_t root = id * 10;
    Sql().Execute({shapes::Folder(root, name), shapes::Packet(id, name, root), shapes::Folder(root + 1, L"Данные", root),
                   shapes::Template(id, root + 1, id, L"Шаблон"), shapes::Column(id, 21, 1, L"Номер"),
                   shapes::Column(id, 22, 2, L"Доля", L"2.5"), shapes::Column(id, 23, 3, L"Текст")});
    const std::wstring size = std::to_wstring(id * 10000 - 1) + L" + :i";
    Sql().Execute(L"EXECUTE BLOCK AS DECLARE i INTEGER = 1; BEGIN WHILE (i <= " + std::to_wstring(count) +
                  L") DO BEGIN INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (" + size + L", " +
                  std::to_wstring(id) + L", 'S' || :i); "
                  L"EXECUTE PROCEDURE CREATE_ATTR_VAL(21, " + size + L", 3 * :i, NULL, NULL); "
                  L"EXECUTE PROCEDURE CREATE_ATTR_VAL(22, " + size + L", NULL, :i / 4.0, NULL); "
                  L"EXECUTE PROCEDURE CREATE_ATTR_VAL(23, " + size + L", NULL, NULL, 't' || :i); "
                  L"i = i + 1; END END");
  }
  // A packet with `count` templates "T<i>" of one size "S<i>" each in folder
  // "Данные", with the columns 21 (integer, common value 7) and 22 (text).
  void MakeTemplatesPacket(std::int32_t id, const std::wstring& name, std::int32_t count) {
    const std::int32_t root = id * 10;
    Sql().Execute({shapes::Folder(root, name), shapes::Packet(id, name, root), shapes::Folder(root + 1, L"Данные", root)});
    const std::wstring object = std::to_wstring(id * 10000 - 1) + L" + :i";
    Sql().Execute(L"EXECUTE BLOCK AS DECLARE i INTEGER = 1; DECLARE a INTEGER; BEGIN WHILE (i <= " +
                  std::to_wstring(count) + L") DO BEGIN "
                  L"INSERT INTO OBJECT (ID, REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) VALUES (" +
                  object + L", 4, 2, " + std::to_wstring(root + 1) + L", " + std::to_wstring(id) + L", 'T' || :i); "
                  L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + object + L", 21, 21, 1, 'Ширина', 'Ширина изделия', 'мм', "
                  L"'W', NULL, 7, NULL, NULL) RETURNING_VALUES :a; "
                  L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + object + L", 22, 22, 3, 'Марка', 'Марка стали', NULL, NULL, "
                  L"NULL, NULL, NULL, NULL) RETURNING_VALUES :a; "
                  L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (" + object + L", " + object +
                  L", 'S' || :i); i = i + 1; END END");
  }
  std::vector<std::wstring> Dump(const std::wstring& packet) {
    return lxtest::DumpFolder(packet_GetRootFolder(provider_GetPacketByName(provider_, packet.c_str())));
  }
  static void DropLineOf(std::vector<std::wstring>& dump, const std::wstring& identifier) {
    std::erase_if(dump, [&](const std::wstring& line) { return line.find(L"'" + identifier + L"'") != std::wstring::npos; });
  }
};

// Sizes and their values in packets 1 and 2, templates and their columns in
// packets 3 and 4.
TEST_F(ChunkedLoad, ReadsPerKeyEqualTheWholePacketQuery) {
  MakeSizesPacket(1, L"Ниже", 1000);
  MakeSizesPacket(2, L"Выше", 1001);
  MakeTemplatesPacket(3, L"Шаблоны ниже", 1000);
  MakeTemplatesPacket(4, L"Шаблоны выше", 1001);
  ASSERT_TRUE(Reload());
  std::vector<std::wstring> whole = Dump(L"Ниже");
  std::vector<std::wstring> chunked = Dump(L"Выше");
  ASSERT_EQ(chunked.size(), whole.size() + 1);
  EXPECT_NE(std::find(chunked.begin(), chunked.end(), L"/Данные/ size 'S1001' type 'SEGMENT' | i:3003 | d:250.2 | s:t1001"),
            chunked.end());
  DropLineOf(chunked, L"S1001");
  EXPECT_EQ(chunked, whole);
  // Own values of each type beat the template's common 2.5 (i / 4.0 keeps
  // one decimal in SQL).
  EXPECT_NE(std::find(whole.begin(), whole.end(), L"/Данные/ size 'S1' type 'SEGMENT' | i:3 | d:0.2 | s:t1"), whole.end());

  whole = Dump(L"Шаблоны ниже");
  chunked = Dump(L"Шаблоны выше");
  ASSERT_EQ(chunked.size(), whole.size() + 1);
  DropLineOf(chunked, L"S1001");
  EXPECT_EQ(chunked, whole);
  EXPECT_NE(std::find(whole.begin(), whole.end(), L"/Данные/ size 'S1000' type 'VENTBOX' | i:7 | s:"), whole.end());
}

// A load that cannot attach, or whose chunk fails, fails the call and
// leaves the packet unloaded; the next touch loads it.
TEST_F(ChunkedLoad, FailingChunkFailsTheLoadAndARetryWorksOnceFixed) {
  MakeSizesPacket(1, L"Большой", 1500);
  ASSERT_TRUE(Reload());
  LxFolder* root = packet_GetRootFolder(provider_GetPacketByName(provider_, L"Большой"));
  // With the file gone the load cannot attach: the client's text reaches
  // the frame.
  EXPECT_TRUE(lxtest::FailedInDatabase(WithoutDatabase([&] { return folder_GetChildFolderCount(root); }),
                                       "folder_GetChildFolderCount"));
  // Break one value row of a size in the last chunk.
  Sql().Execute({L"UPDATE OBJECTATTRIBUTE SET ATTRTYPE = 4 WHERE NUMBER = 23"});
  auto [count, writes] = Captured([&] { return folder_GetChildFolderCount(root); });
  EXPECT_EQ(count, 1);
  EXPECT_EQ(writes, Writes{FlushText({"Ошибка загрузки атрибутов типоразмеров пакета Большой [BaseOperation::LoadPacket]",
                                      "Не смогли загрузить данные пакета Большой [CPacket::Load]",
                                      "Не смогли загрузить данные фолдера Большой [CFolder::_GetTable]"})});

  Sql().Execute(L"UPDATE OBJECTATTRIBUTE SET ATTRTYPE = 3 WHERE NUMBER = 23");
  LxFolderTable* table = folder_GetTable(folder_GetChildFolder(root, 0));
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table_GetStdSizeCount(table), 1500);
  EXPECT_EQ(lxtest::ValueText(table_FindStdSize(table, L"S1500"), table_FindAttribute(table, L"Текст")), L"s:t1500");
}

}  // namespace
