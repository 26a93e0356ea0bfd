// Folders on a real catalog: adding, renaming, deleting and moving, with
// their refusals in order, checked in memory and in the database.
#include "CatalogFixture.h"

namespace lxtest {
namespace {

class Folders : public CatalogFixture {
 protected:
  void SetUp() override {
    packet_ = provider_AddPacket(provider_, L"Пакет");
    ASSERT_NE(packet_, nullptr);
    root_ = packet_GetRootFolder(packet_);
  }
  std::int32_t StoredParentOf(const std::wstring& name) {
    return Sql().Int(L"SELECT COALESCE(ID_PARENT, 0) FROM FOLDER WHERE NAME = '" + name + L"'");
  }
  std::vector<std::wstring> ChildNames(LxFolder* folder) {
    std::vector<std::wstring> names;
    for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) names.push_back(folder_GetName(folder_GetChildFolder(folder, i)));
    return names;
  }

  LxPacket* packet_ = nullptr;
  LxFolder* root_ = nullptr;
};

TEST_F(Folders, AddWritesTheRowUnderItsParentAndRefusesEmptyAndTakenNames) {
  LxFolder* child = folder_AddChildFolder(root_, L"Отводы");
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(folder_GetParentFolder(child), root_);
  EXPECT_EQ(folder_GetPacket(child), packet_);
  EXPECT_FALSE(folder_IsVirtual(child));
  EXPECT_EQ(StoredParentOf(L"Отводы"), FolderId(L"Пакет"));
  EXPECT_EQ(ChildNames(root_), std::vector<std::wstring>{L"Отводы"});
  // Empty and taken names are refused, another case is not.
  EXPECT_FAILS(folder_AddChildFolder(root_, L""), "Имя фолдера не может быть пустым [CFolder::_AddChildFolder]");
  EXPECT_FAILS(folder_AddChildFolder(root_, L"Отводы"), "Фолдер с именем 'Отводы' уже есть [CFolder::_AddChildFolder]");
  EXPECT_NE(folder_AddChildFolder(root_, L"ОТВОДЫ"), nullptr);
  EXPECT_EQ(Count(L"FOLDER"), 3);
}

TEST_F(Folders, RenameRootLeavesThePacketNameAndAChildChecksItsSiblings) {
  ASSERT_TRUE(folder_SetName(root_, L"Корень"));
  EXPECT_STREQ(folder_GetName(root_), L"Корень");
  EXPECT_STREQ(packet_GetName(packet_), L"Пакет");
  EXPECT_EQ(Sql().Texts(L"SELECT NAME FROM FOLDER"), std::vector<std::wstring>{L"Корень"});
  EXPECT_EQ(Sql().Texts(L"SELECT PACKETID FROM PACKET"), std::vector<std::wstring>{L"Пакет"});
  // A child's new name is checked against its siblings; empty is allowed.
  LxFolder* a = folder_AddChildFolder(root_, L"А");
  folder_AddChildFolder(root_, L"Б");
  EXPECT_FAILS(folder_SetName(a, L"Б"), "Фолдер с именем 'Б' уже есть [CPacket::_RenameFolder]");
  // The same name is a success before any database work.
  EXPECT_EQ(WithoutDatabase([&] { return folder_SetName(a, L"А"); }), Quietly(true));
  EXPECT_TRUE(folder_SetName(a, L""));
  EXPECT_EQ(StoredParentOf(L""), FolderId(L"Корень"));
}

TEST_F(Folders, DeleteRefusesAStrangerAndAParentOfChildrenAndTakesTheTemplates) {
  LxFolder* outer = folder_AddChildFolder(root_, L"Внешний");
  LxFolder* inner = folder_AddChildFolder(outer, L"Внутренний");
  EXPECT_FAILS(folder_DeleteChildFolder(root_, inner),
               "Фолдер не соответствует своему родителю [CFolder::_DeleteChildFolder]");
  EXPECT_FAILS(folder_DeleteChildFolder(root_, outer), "Фолдер имеет сабфолдеры [CFolder::_DeleteChildFolder]");
  EXPECT_EQ(Count(L"FOLDER"), 3);

  // Bottom up works.
  EXPECT_TRUE(folder_DeleteChildFolder(outer, inner));
  EXPECT_TRUE(folder_DeleteChildFolder(root_, outer));
  EXPECT_EQ(folder_GetChildFolderCount(root_), 0);
  EXPECT_EQ(Sql().Texts(L"SELECT NAME FROM FOLDER"), std::vector<std::wstring>{L"Пакет"});
  // Deleting takes the templates filed under the folder.
  LxFolder* child = folder_AddChildFolder(root_, L"С содержимым");
  const std::wstring folderId = std::to_wstring(FolderId(L"С содержимым"));
  Sql().Execute({L"INSERT INTO OBJECT (ID, REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) VALUES (50, 4, 1, " +
                     folderId + L", (SELECT MAX(ID) FROM PACKET), 't')",
                 L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (60, 50, 'size')",
                 L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(50, 21, 21, 1, 'a', 'd', NULL, NULL, NULL, 1, NULL, NULL)",
                 L"EXECUTE PROCEDURE CREATE_ATTR_VAL(21, 60, 5, NULL, NULL)"});
  ASSERT_TRUE(folder_DeleteChildFolder(root_, child));
  for (const wchar_t* table : {L"OBJECT", L"STANDARDSIZE", L"OBJECTATTRIBUTE", L"ATTRIBUTEVALUE"}) {
    EXPECT_EQ(Sql().Int(std::wstring(L"SELECT COUNT(*) FROM ") + table), 0) << table;
  }
}

TEST_F(Folders, MoveRefusalsComeInTheirOrderAndAMoveAppendsAtTheEnd) {
  LxFolder* a = folder_AddChildFolder(root_, L"А");
  LxFolder* b = folder_AddChildFolder(root_, L"Б");
  LxFolder* aChild = folder_AddChildFolder(a, L"А1");
  folder_AddChildFolder(b, L"А");

  auto expectRefusal = [&](LxFolder* folder, LxFolder* target, const std::string& message) {
    EXPECT_FAILS(folder_MoveTo(folder, target), message + " [CFolder::_MoveTo]") << message;
  };
  expectRefusal(root_, a, "Корневой фолдер нельзя переносить");
  expectRefusal(root_, root_, "Корневой фолдер нельзя переносить");
  expectRefusal(a, a, "Родительский фолдер не может быть ниже по дереву чем перемещаемый фолдер");
  expectRefusal(a, aChild, "Родительский фолдер не может быть ниже по дереву чем перемещаемый фолдер");
  expectRefusal(a, b, "Фолдер с таким именем уже есть");

  LxDataProvider* other = Attach(NewCatalogFile("other.fdb"));
  LxFolder* foreignRoot = packet_GetRootFolder(provider_AddPacket(other, L"Чужой"));
  expectRefusal(aChild, foreignRoot, "Фолдеры находятся в разных базах");
  EXPECT_EQ(StoredParentOf(L"А1"), FolderId(L"А"));
  // A move appends at the end of the new parent.
  ASSERT_TRUE(folder_MoveTo(aChild, b));
  EXPECT_EQ(ChildNames(b), (std::vector<std::wstring>{L"А", L"А1"}));
  EXPECT_EQ(folder_GetChildFolderCount(a), 0);
  EXPECT_EQ(folder_GetParentFolder(aChild), b);
  EXPECT_EQ(StoredParentOf(L"А1"), FolderId(L"Б"));
  // A move to the present parent is a success before any database work.
  EXPECT_EQ(WithoutDatabase([&] { return folder_MoveTo(aChild, b); }), Quietly(true));
}

TEST_F(Folders, AMoveIntoAnotherPacketTakesTheWholeSubtreeAndOutlivesTheOldPacket) {
  LxFolder* outer = folder_AddChildFolder(root_, L"Внешний");
  LxFolder* inner = folder_AddChildFolder(outer, L"Внутренний");
  LxPacket* other = provider_AddPacket(provider_, L"Другой");
  ASSERT_TRUE(outer && inner && other);
  ASSERT_TRUE(folder_MoveTo(outer, packet_GetRootFolder(other)));
  EXPECT_EQ(StoredParentOf(L"Внешний"), FolderId(L"Другой"));
  for (LxFolder* moved : {outer, inner}) EXPECT_EQ(folder_GetPacket(moved), other);
  // Clearing the old packet destroys it; the moved folders load, write and
  // give out children through the new one.
  ASSERT_TRUE(provider_ClearPacketCache(provider_, packet_));
  EXPECT_EQ(folder_GetPacket(inner), other);
  EXPECT_NE(folder_GetTable(inner), nullptr);
  LxFolder* added = folder_AddChildFolder(inner, L"Новый");
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(folder_GetPacket(added), other);
  EXPECT_EQ(StoredParentOf(L"Новый"), FolderId(L"Внутренний"));
}

TEST_F(Folders, ABadChildIndexReportsItself) {
  folder_AddChildFolder(root_, L"А");
  for (int32_t index : {-1, 1}) {
    EXPECT_FAILS(folder_GetChildFolder(root_, index),
                 "Индекс " + std::to_string(index) + " выходит за пределы диапазона [0, 1) [CFolder::_GetChildFolder]");
  }
}

}  // namespace
}  // namespace lxtest
