// Packets on a real catalog: creation and renaming with every rule, checked
// in memory and in the database.
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

}  // namespace
}  // namespace lxtest
