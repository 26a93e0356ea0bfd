// Packets on a real catalog: creation and renaming with every rule, checked
// in memory and in the database; finding a size by identifier anywhere in
// the packet, before and after every kind of change to the tree.
#include "CatalogFixture.h"

namespace lxtest {
namespace {

class Packets : public CatalogFixture {
 protected:
  std::vector<std::wstring> StoredPacketNames() { return Sql().Texts(L"SELECT PACKETID FROM PACKET ORDER BY ID"); }
  std::wstring StoredRootName(LxPacket* packet) {
    return Sql().Texts(L"SELECT f.NAME FROM FOLDER f JOIN PACKET p ON p.FOLDERID = f.ID WHERE p.PACKETID = '" +
                       std::wstring(packet_GetName(packet)) + L"'")
        .at(0);
  }
};

TEST_F(Packets, AddWritesThePacketAndItsRootFolder) {
  LxPacket* packet = provider_AddPacket(provider_, L"Воздуховоды");
  ASSERT_NE(packet, nullptr);
  EXPECT_STREQ(packet_GetName(packet), L"Воздуховоды");
  EXPECT_EQ(packet_GetProvider(packet), provider_);
  LxFolder* root = packet_GetRootFolder(packet);
  ASSERT_NE(root, nullptr);
  EXPECT_STREQ(folder_GetName(root), L"Воздуховоды");
  EXPECT_EQ(folder_GetParentFolder(root), nullptr);
  EXPECT_EQ(folder_GetPacket(root), packet);
  EXPECT_EQ(StoredPacketNames(), std::vector<std::wstring>{L"Воздуховоды"});
  EXPECT_EQ(StoredRootName(packet), L"Воздуховоды");
  EXPECT_EQ(Count(L"FOLDER"), 1);
  EXPECT_EQ(provider_GetPacketByName(provider_, L"Воздуховоды"), packet);
}

TEST_F(Packets, NamesClashExactlyAndMayNotBeEmpty) {
  ASSERT_NE(provider_AddPacket(provider_, L"Трубы"), nullptr);
  EXPECT_NE(provider_AddPacket(provider_, L"ТРУБЫ"), nullptr);
  EXPECT_FAILS(provider_AddPacket(provider_, L"Трубы"),
               "Нельзя создать пакет, т.к. пакет с именем 'Трубы' уже существует "
               "[CDataProvider::_AddPacket]");
  EXPECT_FAILS(provider_AddPacket(provider_, L""), "Нельзя создать пакет с пустым именем [CDataProvider::_AddPacket]");
  EXPECT_EQ(StoredPacketNames(), (std::vector<std::wstring>{L"Трубы", L"ТРУБЫ"}));
  EXPECT_EQ(Count(L"FOLDER"), 2);
}

TEST_F(Packets, RenameChangesOnlyThePacketNameAndRefusesInOrder) {
  LxPacket* packet = provider_AddPacket(provider_, L"Старое");
  ASSERT_TRUE(packet_SetName(packet, L"Новое"));
  EXPECT_STREQ(packet_GetName(packet), L"Новое");
  EXPECT_STREQ(folder_GetName(packet_GetRootFolder(packet)), L"Старое");
  EXPECT_EQ(StoredPacketNames(), std::vector<std::wstring>{L"Новое"});
  EXPECT_EQ(StoredRootName(packet), L"Старое");
  EXPECT_TRUE(packet_SetName(packet, L"НОВОЕ")) << "another case is another name";
  // Refusals come in order; the same name touches nothing.
  LxPacket* first = provider_AddPacket(provider_, L"Первый");
  provider_AddPacket(provider_, L"Второй");
  EXPECT_FAILS(packet_SetName(first, L""), "Имя пакета не может быть нулевым [CDataProvider::_ReNamePacket]");
  EXPECT_FAILS(packet_SetName(first, L"Второй"),
               "Нельзя переименовать пакет, т.к. пакет с именем 'Второй' уже существует "
               "[CDataProvider::_ReNamePacket]");
  EXPECT_FAILS(packet_SetName(first, nullptr));
  // The same name is a success before any database work.
  EXPECT_EQ(WithoutDatabase([&] { return packet_SetName(first, L"Первый"); }), Quietly(true));
  EXPECT_EQ(StoredPacketNames(), (std::vector<std::wstring>{L"НОВОЕ", L"Первый", L"Второй"}));
}

TEST_F(Packets, FailedWriteLeavesMemoryAndDatabase) {
  LxPacket* packet = provider_AddPacket(provider_, L"Короткое");
  const std::wstring tooLong(300, L'я');  // PACKETID holds 255
  EXPECT_TRUE(FailedInDatabase(Captured([&] { return packet_SetName(packet, tooLong.c_str()); }), "packet_SetName"));
  EXPECT_STREQ(packet_GetName(packet), L"Короткое");
  EXPECT_EQ(StoredPacketNames(), std::vector<std::wstring>{L"Короткое"});

  auto [added, addWrites] = Captured([&] { return provider_AddPacket(provider_, tooLong.c_str()); });
  EXPECT_EQ(added, nullptr);
  EXPECT_EQ(provider_GetPacketCount(provider_), 1);
  EXPECT_EQ(Count(L"FOLDER"), 1) << "the root folder's insert was rolled back";
}

TEST_F(Packets, ClearPacketCacheForgetsUntilReload) {
  LxPacket* kept = provider_AddPacket(provider_, L"Остаётся");
  LxPacket* dropped = provider_AddPacket(provider_, L"Уходит");
  ASSERT_TRUE(provider_ClearPacketCache(provider_, dropped));
  EXPECT_EQ(provider_GetPacketCount(provider_), 1);
  EXPECT_EQ(provider_GetPacketByName(provider_, L"Уходит"), nullptr);
  EXPECT_EQ(provider_GetPacket(provider_, 0), kept);
  EXPECT_EQ(Count(L"PACKET"), 2);

  ASSERT_TRUE(Reload());
  EXPECT_EQ(provider_GetPacketCount(provider_), 2);
  EXPECT_NE(provider_GetPacketByName(provider_, L"Уходит"), nullptr);
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_) << "the provider handle survives a reload";
}

// Catalogs laid out by SQL, as other tools write them: identifiers may repeat
// across tables and folders, so which size a lookup gives is a matter of
// order, and the packet's answer is checked against a walk done here through
// the folder and table exports.
class PacketSizes : public TableFixture {
 protected:
  // The packet's walk written out: the folder's own table, then each child
  // in list order, depth first.
  static LxStdSize* Walked(LxFolder* folder, const std::wstring& identifier) {
    if (LxStdSize* size = table_FindStdSize(folder_GetTable(folder), identifier.c_str())) return size;
    for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
      if (LxStdSize* size = Walked(folder_GetChildFolder(folder, i), identifier)) return size;
    }
    return nullptr;
  }
  // The identifiers for which packet_FindStdSize differs from the walk.
  Texts Disagreeing(const Texts& identifiers) const {
    Texts differing;
    for (const std::wstring& identifier : identifiers) {
      if (packet_FindStdSize(packet_, identifier.c_str()) != Walked(root_, identifier)) differing.push_back(identifier);
    }
    return differing;
  }
  LxFolderTable* TableOf(const std::wstring& folderName) { return folder_GetTable(FolderNamed(folderName)); }
  // The folder of this name anywhere in the packet; fails the test if none.
  LxFolder* FolderNamed(const std::wstring& name) {
    std::vector<LxFolder*> pending{root_};
    while (!pending.empty()) {
      LxFolder* folder = pending.back();
      pending.pop_back();
      if (name == folder_GetName(folder)) return folder;
      for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) pending.push_back(folder_GetChildFolder(folder, i));
    }
    ADD_FAILURE() << "no folder named " << ::testing::PrintToString(name);
    return nullptr;
  }
  LxFolder* AddFolder(LxFolder* parent, const std::wstring& name) {
    LxFolder* added = folder_AddChildFolder(parent, name.c_str());
    EXPECT_NE(added, nullptr) << ::testing::PrintToString(name);
    return added;
  }
};

TEST_F(PacketSizes, FirstInWalkOrderWinsAmongRepeatedIdentifiers) {
  // Root: "D". Болты: "D", "E", "X" twice; below it Мелкие: "F".
  // Гайки, after Болты: "E", "F".
  LxFolder* small = AddFolder(folder_, L"Мелкие");
  LxFolder* nuts = AddFolder(root_, L"Гайки");
  ASSERT_TRUE(small != nullptr && nuts != nullptr);
  const std::int32_t rootId = FolderId(kPacket), smallId = FolderId(L"Мелкие"), nutsId = FolderId(L"Гайки");
  Sql().Execute({TemplateRow(500, L"Корень", rootId), SizeRow(600, 500, L"D"),
                 TemplateRow(501, L"Болт", folderId_), SizeRow(601, 501, L"D"), SizeRow(602, 501, L"E"),
                 SizeRow(603, 501, L"X"), TemplateRow(502, L"Болт 2", folderId_), SizeRow(604, 502, L"X"),
                 TemplateRow(503, L"Мелкий", smallId), SizeRow(605, 503, L"F"),
                 TemplateRow(504, L"Гайка", nutsId), SizeRow(606, 504, L"E"), SizeRow(607, 504, L"F")});
  ReloadAndWalk();
  auto idOf = [this](const wchar_t* identifier) { return stdsize_GetTemplateID(packet_FindStdSize(packet_, identifier)); };
  EXPECT_EQ(idOf(L"D"), 500) << "the root's table before its children";
  EXPECT_EQ(idOf(L"E"), 501) << "the earlier sibling";
  EXPECT_EQ(idOf(L"F"), 503) << "depth first: Болты's child before Гайки";
  EXPECT_EQ(idOf(L"X"), 501) << "the earlier template of one table";
  EXPECT_EQ(packet_FindStdSize(packet_, L"d"), nullptr) << "identifiers compare exactly";
  EXPECT_EQ(packet_FindStdSize(packet_, L""), nullptr);
  EXPECT_EQ(Disagreeing({L"D", L"E", L"F", L"X", L"d"}), Texts{});
  // Asked again, from a packet that is loaded now, the answers stay.
  EXPECT_EQ(packet_FindStdSize(packet_, L"F"), table_FindStdSize(TableOf(L"Мелкие"), L"F"));
  EXPECT_EQ(packet_FindStdSize(packet_, L"E"), table_FindStdSize(table_, L"E"));
}

TEST_F(PacketSizes, LookupFollowsEveryChangeOfTheTree) {
  // Болты: template 501 (model 300) with "A" and "B", template 502 with "B"
  // again. Гайки: "N". Шайбы, after it: "N" again.
  ASSERT_TRUE(AddFolder(root_, L"Гайки") != nullptr && AddFolder(root_, L"Шайбы") != nullptr);
  Sql().Execute({L"INSERT INTO MODEL (ID, MODEL, THUMBNAIL, MODEL_VERSION, DIGEST) VALUES (300, x'01', x'00', 1, 'м')",
                 TemplateRow(501, L"Болт", folderId_, 1, 4, L"300"), SizeRow(601, 501, L"A"), SizeRow(602, 501, L"B"),
                 TemplateRow(502, L"Болт 2", folderId_), SizeRow(603, 502, L"B"),
                 TemplateRow(503, L"Гайка", FolderId(L"Гайки")), SizeRow(604, 503, L"N"),
                 TemplateRow(504, L"Шайба", FolderId(L"Шайбы")), SizeRow(605, 504, L"N")});
  ReloadAndWalk();
  const Texts identifiers{L"A", L"B", L"N", L"C", L"Z"};
  EXPECT_EQ(Disagreeing(identifiers), Texts{});
  LxStdSize* firstB = packet_FindStdSize(packet_, L"B");
  ASSERT_EQ(stdsize_GetTemplateID(firstB), 501);

  // A size added to a table that was already walked.
  LxStdSize* added = table_AddStdSize(TableOf(L"Гайки"), L"C");
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(packet_FindStdSize(packet_, L"C"), added);

  // The first "B" leaves its shared template for a new one at the end of
  // the table, so the other "B" comes first now.
  ASSERT_TRUE(model_Clear(stdsize_GetModel(firstB)));
  ASSERT_NE(stdsize_GetTemplateID(firstB), 501) << "the write did not split the template";
  EXPECT_EQ(stdsize_GetTemplateID(packet_FindStdSize(packet_, L"B")), 502);
  EXPECT_EQ(Disagreeing(identifiers), Texts{});

  // A deleted size is never given again; the next "B" takes its place.
  LxStdSize* secondB = packet_FindStdSize(packet_, L"B");
  ASSERT_TRUE(table_DeleteStdSize(table_, secondB));
  EXPECT_EQ(packet_FindStdSize(packet_, L"B"), firstB);
  EXPECT_EQ(Disagreeing(identifiers), Texts{});

  // Гайки moves below Шайбы, so Шайбы's "N" comes first.
  LxStdSize* nutN = packet_FindStdSize(packet_, L"N");
  ASSERT_TRUE(folder_MoveTo(FolderNamed(L"Гайки"), FolderNamed(L"Шайбы")));
  EXPECT_EQ(packet_FindStdSize(packet_, L"N"), table_FindStdSize(TableOf(L"Шайбы"), L"N"));
  EXPECT_NE(packet_FindStdSize(packet_, L"N"), nutN);
  EXPECT_EQ(Disagreeing(identifiers), Texts{});

  // A deleted folder takes its sizes with it.
  ASSERT_TRUE(folder_DeleteChildFolder(FolderNamed(L"Шайбы"), FolderNamed(L"Гайки")));
  EXPECT_EQ(packet_FindStdSize(packet_, L"C"), nullptr);
  EXPECT_EQ(Disagreeing(identifiers), Texts{});

  // A packet dropped from the cache comes back from the rows on reload.
  ASSERT_TRUE(provider_ClearPacketCache(provider_, packet_));
  ReloadAndWalk();
  EXPECT_EQ(packet_FindStdSize(packet_, L"A"), table_FindStdSize(table_, L"A"));
  EXPECT_EQ(Disagreeing(identifiers), Texts{});

  // A folder moved into another packet of the provider leaves this one's
  // lookups, and a size deleted there is gone from the other packet too.
  LxPacket* other = provider_AddPacket(provider_, L"Другой");
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(packet_FindStdSize(other, L"N"), nullptr) << "loads the other packet before the move";
  ASSERT_TRUE(folder_MoveTo(FolderNamed(L"Шайбы"), packet_GetRootFolder(other)));
  EXPECT_EQ(packet_FindStdSize(packet_, L"N"), nullptr);
  LxStdSize* movedN = packet_FindStdSize(other, L"N");
  ASSERT_NE(movedN, nullptr);
  ASSERT_TRUE(table_DeleteStdSize(stdsize_GetTable(movedN), movedN));
  EXPECT_EQ(packet_FindStdSize(other, L"N"), nullptr);
  EXPECT_EQ(Disagreeing(identifiers), Texts{});
}

}  // namespace
}  // namespace lxtest
