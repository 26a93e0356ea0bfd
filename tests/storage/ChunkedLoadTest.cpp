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
  // (integer), 22 (double, common value 2.5) and 23 (text) and `count` sizes.
  void MakeSizesPacket(std::int32_t id, const std::wstring& name, std::int32_t count) {
    const std::int32_t root = id * 10;
    Sql().Execute({shapes::Folder(root, name), shapes::Packet(id, name, root), shapes::Folder(root + 1, L"Данные", root),
                   shapes::Template(id, root + 1, id, L"Шаблон"), shapes::Column(id, 21, 1, L"Номер"),
                   shapes::Column(id, 22, 2, L"Доля", L"2.5"), shapes::Column(id, 23, 3, L"Текст")});
    Sql().Execute(shapes::ManySizes(id * 10000, id, L"S", count));
  }
  // A packet with `count` templates of one size each in folder "Данные".
  void MakeTemplatesPacket(std::int32_t id, const std::wstring& name, std::int32_t count) {
    const std::int32_t root = id * 10;
    Sql().Execute({shapes::Folder(root, name), shapes::Packet(id, name, root), shapes::Folder(root + 1, L"Данные", root)});
    Sql().Execute(shapes::ManyTemplates(id * 10000, root + 1, id, L"S", count));
  }
  std::vector<std::wstring> Dump(const std::wstring& packet) {
    return lxtest::DumpFolder(packet_GetRootFolder(provider_GetPacketByName(provider_, packet.c_str())));
  }
  static void DropLineOf(std::vector<std::wstring>& dump, const std::wstring& identifier) {
    std::erase_if(dump, [&](const std::wstring& line) { return line.find(L"'" + identifier + L"'") != std::wstring::npos; });
  }
};

TEST_F(ChunkedLoad, SizeValuesReadPerKeyEqualTheWholePacketQuery) {
  MakeSizesPacket(1, L"Ниже", 1000);
  MakeSizesPacket(2, L"Выше", 1001);
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
}

TEST_F(ChunkedLoad, TemplateColumnsReadPerKeyEqualTheWholePacketQuery) {
  MakeTemplatesPacket(1, L"Ниже", 1000);
  MakeTemplatesPacket(2, L"Выше", 1001);
  ASSERT_TRUE(Reload());
  std::vector<std::wstring> whole = Dump(L"Ниже");
  std::vector<std::wstring> chunked = Dump(L"Выше");
  ASSERT_EQ(chunked.size(), whole.size() + 1);
  DropLineOf(chunked, L"S1001");
  EXPECT_EQ(chunked, whole);
  EXPECT_NE(std::find(whole.begin(), whole.end(), L"/Данные/ size 'S1000' type 'VENTBOX' | i:7 | s:"), whole.end());
}

TEST_F(ChunkedLoad, FailingChunkFailsTheLoadAndARetryWorksOnceFixed) {
  MakeSizesPacket(1, L"Большой", 1500);
  // Break one value row of a size in the last chunk.
  Sql().Execute({L"UPDATE OBJECTATTRIBUTE SET ATTRTYPE = 4 WHERE NUMBER = 23"});
  ASSERT_TRUE(Reload());
  LxFolder* root = packet_GetRootFolder(provider_GetPacketByName(provider_, L"Большой"));
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

TEST_F(ChunkedLoad, LoadThatCannotAttachFailsTheCallAndTheNextTouchLoads) {
  MakeSizesPacket(1, L"Большой", 1200);
  ASSERT_TRUE(Reload());
  LxFolder* root = packet_GetRootFolder(provider_GetPacketByName(provider_, L"Большой"));
  // With the file gone the load cannot attach: the client's text reaches
  // the frame, and the packet stays unloaded.
  std::filesystem::rename(lxtest::Path(database_), lxtest::Path(database_ + L".away"));
  auto [count, writes] = Captured([&] { return folder_GetChildFolderCount(root); });
  std::filesystem::rename(lxtest::Path(database_ + L".away"), lxtest::Path(database_));
  ASSERT_EQ(writes.size(), 1u);
  EXPECT_EQ(writes[0].rfind(">LxDataAcces:  (fun: folder_GetChildFolderCount)\n", 0), 0u) << writes[0];
  EXPECT_EQ(count, 0);
  EXPECT_NE(folder_GetTable(folder_GetChildFolder(root, 0)), nullptr) << "the next touch loads";
}

}  // namespace
