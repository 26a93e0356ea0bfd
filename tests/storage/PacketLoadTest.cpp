// The first touch of a packet reads its content: templates, their columns
// and common values, sizes and their own values, and splits folders whose
// templates differ into virtual folders.
#include "CatalogFixture.h"
#include "DebugOutput.h"
#include "Shapes.h"

using lxtest::Captured;
namespace shapes = lxtest::shapes;

namespace {

class PacketLoad : public lxtest::CatalogFixture {
 protected:
  // A packet "Пакет" (id 1) with root folder 1 and folder 2 "Отводы" under it.
  void MakePacket() {
    Sql().Execute({shapes::Folder(1, L"Пакет"), shapes::Packet(1, L"Пакет", 1), shapes::Folder(2, L"Отводы", 1)});
  }
  LxFolder* Bends() {
    LxPacket* packet = provider_GetPacketByName(provider_, L"Пакет");
    return packet ? folder_GetChildFolder(packet_GetRootFolder(packet), 0) : nullptr;
  }
};

TEST_F(PacketLoad, ReadsTemplatesColumnsSizesAndValues) {
  MakePacket();
  Sql().Execute({shapes::Template(10, 2, 1, L"Отвод 90"),
                 shapes::Column(10, 21, 1, L"Диаметр"), shapes::Column(10, 22, 2, L"Угол", L"90.5"),
                 shapes::Column(10, 23, 3, L"Марка", L"'Ст3'"),
                 shapes::Size(100, 10, L"О-100"), shapes::Size(101, 10, L"О-200"),
                 shapes::SizeValue(100, 21, 1, L"100"), shapes::SizeValue(101, 21, 1, L"200"),
                 shapes::SizeValue(101, 23, 3, L"'Ст20'")});
  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(Bends());
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(lxtest::DumpFolder(Bends()),
            (std::vector<std::wstring>{
                L"/ column 21 'Диаметр' type 1 old 21 desc 'Описание Диаметр' measure 'мм' var '' formula ''",
                L"/ column 22 'Угол' type 2 old 22 desc 'Описание Угол' measure 'мм' var '' formula ''",
                L"/ column 23 'Марка' type 3 old 23 desc 'Описание Марка' measure 'мм' var '' formula ''",
                L"/ real",
                L"/ size 'О-100' type 'SEGMENT' | i:100 | d:90.5 | s:Ст3",
                L"/ size 'О-200' type 'SEGMENT' | i:200 | d:90.5 | s:Ст20",
            }));
  EXPECT_EQ(stdsize_GetTemplateID(table_GetStdSize(table, 0)), 10);
}

TEST_F(PacketLoad, TemplateWithoutColumnsStaysWithEmptyRecords) {
  MakePacket();
  Sql().Execute({shapes::Template(10, 2, 1, L"Пустой"), shapes::Size(100, 10, L"S")});
  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(Bends());
  EXPECT_FALSE(table_IsEmpty(table));
  EXPECT_EQ(table_GetAttributeCount(table), 0);
  EXPECT_EQ(stdsize_GetAttributeCount(table_GetStdSize(table, 0)), 0);
}

TEST_F(PacketLoad, NeighboursThatDifferSplitIntoVirtualFolders) {
  MakePacket();
  // A, B, A: the runs of alike neighbours are three groups.
  Sql().Execute({shapes::Template(10, 2, 1, L"A1"), shapes::Column(10, 21, 1, L"Длина"),
                 shapes::Template(11, 2, 1, L"B"), shapes::Column(11, 21, 1, L"Длина"),
                 shapes::Column(11, 22, 3, L"Покрытие"),
                 shapes::Template(12, 2, 1, L"A2"), shapes::Column(12, 21, 1, L"Длина"),
                 shapes::Size(100, 10, L"a1"), shapes::Size(101, 11, L"b"), shapes::Size(102, 12, L"a2")});
  ASSERT_TRUE(Reload());
  LxFolder* bends = Bends();
  // The count itself loads the packet, so the virtual folders show at once.
  ASSERT_EQ(folder_GetChildFolderCount(bends), 3);
  for (int32_t i = 0; i < 3; ++i) {
    LxFolder* part = folder_GetChildFolder(bends, i);
    EXPECT_EQ(folder_GetName(part), std::to_wstring(i));
    EXPECT_TRUE(folder_IsVirtual(part));
    EXPECT_EQ(folder_GetParentFolder(part), bends);
    EXPECT_EQ(table_GetStdSizeCount(folder_GetTable(part)), 1);
  }
  EXPECT_EQ(table_GetAttributeCount(folder_GetTable(folder_GetChildFolder(bends, 1))), 2);
  // Virtual folders are ordinary children for a search by identifier.
  LxStdSize* found = packet_FindStdSize(provider_GetPacketByName(provider_, L"Пакет"), L"b");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(table_GetFolder(stdsize_GetTable(found)), folder_GetChildFolder(bends, 1));
}

TEST_F(PacketLoad, VirtualFoldersRefuseStructuralChanges) {
  MakePacket();
  Sql().Execute({shapes::Template(10, 2, 1, L"A"), shapes::Column(10, 21, 1, L"Длина"),
                 shapes::Template(11, 2, 1, L"B"), shapes::Column(11, 22, 1, L"Ширина")});
  ASSERT_TRUE(Reload());
  LxFolder* part = folder_GetChildFolder(Bends(), 0);
  EXPECT_FAILS(folder_SetName(part, L"Новое"),
               "Для виртуальных фолдеров переименование невозможно [PacketOperation::RenameFolder]",
               "Не смогли переименовать фолдер '0' из за проблема с базой [CPacket::_RenameFolder]");
  EXPECT_FAILS(folder_AddChildFolder(part, L"Дитя"),
               "Для виртуальных фолдеров это операция невозможна [PacketOperation::AddChildFolder]",
               "Не смогли добавить фолдер 'Дитя' в фолдер '0' из-за проблем с базой [CFolder::_AddChildFolder]");
  EXPECT_FAILS(folder_DeleteChildFolder(Bends(), part),
               "Нельзя удалять виртуальные фолдеры [CFolder::_DeleteChildFolder]");
  LxFolder* root = packet_GetRootFolder(provider_GetPacket(provider_, 0));
  EXPECT_FAILS(folder_MoveTo(part, root), "Нельзя переносить виртуальные фолдеры [CFolder::_MoveTo]");
  // A split folder cannot be deleted once loaded: its virtual children count.
  EXPECT_FAILS(folder_DeleteChildFolder(root, Bends()), "Фолдер имеет сабфолдеры [CFolder::_DeleteChildFolder]");
}

TEST_F(PacketLoad, BrokenValueRowFailsTheLoadAndARetryWorksOnceFixed) {
  MakePacket();
  Sql().Execute({shapes::Template(10, 2, 1, L"T"), shapes::Column(10, 21, 1, L"Длина"), shapes::Size(100, 10, L"S"),
                 shapes::SizeValue(100, 21, 1, L"5"), L"UPDATE OBJECTATTRIBUTE SET ATTRTYPE = 4 WHERE NUMBER = 21"});
  ASSERT_TRUE(Reload());
  LxFolder* bends = folder_GetChildFolder(packet_GetRootFolder(provider_GetPacketByName(provider_, L"Пакет")), 0);
  EXPECT_FAILS(folder_GetTable(bends),
               "Ошибка загрузки атрибутов типоразмеров пакета Пакет [BaseOperation::LoadPacket]",
               "Не смогли загрузить данные пакета Пакет [CPacket::Load]",
               "Не смогли загрузить данные фолдера Отводы [CFolder::_GetTable]");

  Sql().Execute(L"UPDATE OBJECTATTRIBUTE SET ATTRTYPE = 1 WHERE NUMBER = 21");
  LxFolderTable* retried = folder_GetTable(bends);
  ASSERT_NE(retried, nullptr);
  EXPECT_EQ(table_GetStdSizeCount(retried), 1) << "nothing of the failed load stands twice";
  EXPECT_EQ(table_GetAttributeCount(retried), 1);
  EXPECT_EQ(lxtest::ValueText(table_GetStdSize(retried, 0), table_GetAttribute(retried, 0)), L"i:5");
}

TEST_F(PacketLoad, ObjectWithoutTypeRowIsNotReadAndItsColumnsFailTheLoad) {
  MakePacket();
  Sql().Execute(L"ALTER TABLE OBJECT DROP CONSTRAINT FK_OBJECT_1");
  Sql().Execute({shapes::Template(10, 2, 1, L"T", 99), shapes::Column(10, 21, 1, L"Длина")});
  ASSERT_TRUE(Reload());
  LxFolder* root = packet_GetRootFolder(provider_GetPacketByName(provider_, L"Пакет"));
  auto [table, writes] = Captured([&] { return folder_GetTable(root); });
  EXPECT_EQ(table, nullptr);
  ASSERT_EQ(writes.size(), 1u);
  EXPECT_NE(writes[0].find("Ошибка загрузки атрибутов пакета Пакет [BaseOperation::LoadPacket]"), std::string::npos);
}

}  // namespace
