// The basic load: packets and folder trees as stored, including shapes the
// interface cannot make, and what a reload brings back.
#include "CatalogFixture.h"

namespace lxtest {
namespace {

class CatalogLoad : public CatalogFixture {
 protected:
  std::wstring Describe(LxFolder* folder) {
    std::wstring text = folder_GetName(folder);
    const int32_t count = folder_GetChildFolderCount(folder);
    if (count == 0) return text;
    std::vector<std::wstring> children;
    for (int32_t i = 0; i < count; ++i) children.push_back(Describe(folder_GetChildFolder(folder, i)));
    std::sort(children.begin(), children.end());  // stored order has no meaning
    text += L"(";
    for (std::size_t i = 0; i < children.size(); ++i) text += (i ? L"," : L"") + children[i];
    return text + L")";
  }
};

TEST_F(CatalogLoad, TreesMadeInSqlAreLinkedByParent) {
  Sql().Execute({L"INSERT INTO FOLDER (ID, NAME) VALUES (1, 'Фитинги')",
                 L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (2, 'Отводы', 1)",
                 L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (3, '90°', 2)",
                 L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (4, '45°', 2)",
                 L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (5, 'Тройники', 1)",
                 L"INSERT INTO FOLDER (ID, NAME) VALUES (6, 'Другой корень')",
                 L"INSERT INTO PACKET (ID, PACKETID, FOLDERID) VALUES (1, 'Фитинги', 1)",
                 L"INSERT INTO PACKET (ID, PACKETID, FOLDERID) VALUES (2, 'Второй', 6)"});
  ASSERT_TRUE(Reload());
  ASSERT_EQ(provider_GetPacketCount(provider_), 2);
  LxPacket* fittings = provider_GetPacketByName(provider_, L"Фитинги");
  ASSERT_NE(fittings, nullptr);
  EXPECT_EQ(Describe(packet_GetRootFolder(fittings)), L"Фитинги(Отводы(45°,90°),Тройники)");
  LxFolder* bend45 = folder_GetChildFolder(folder_GetChildFolder(packet_GetRootFolder(fittings), 0), 0);
  EXPECT_EQ(folder_GetPacket(bend45), fittings);
  EXPECT_EQ(Describe(packet_GetRootFolder(provider_GetPacketByName(provider_, L"Второй"))), L"Другой корень");
}

TEST_F(CatalogLoad, FolderThatNoPacketReachesFailsTheLoad) {
  Sql().Execute({L"INSERT INTO FOLDER (ID, NAME) VALUES (2, 'Сирота')",
                 L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (3, 'Дитя сироты', 2)"});
  const std::string orphan = "Фолдер 'Сирота' не входит ни в один пакет [BaseOperation::LoadPacketsAndFolders]";
  const std::string loading = "Ошибка при загрузке пакетов и фолдеров [BaseOperation::BasicLoading]";
  auto [reloaded, writes] = Captured([&] { return Reload(); });
  EXPECT_TRUE(reloaded) << "a reload answers true whatever the load said";
  EXPECT_EQ(writes, Writes{FlushText({orphan, loading})});
  EXPECT_EQ(provider_GetPacketCount(provider_), 0);
  // With a packet beside it, the orphan still fails a new attach, which adds
  // no provider.
  Sql().Execute({L"INSERT INTO FOLDER (ID, NAME) VALUES (1, 'Корень')",
                 L"INSERT INTO PACKET (PACKETID, FOLDERID) VALUES ('Пакет', 1)"});
  const std::wstring copy = database_;
  lxDeleteProviderPool(pool_);
  pool_ = lxAddLibraryProviderPool(L"CatalogLoadStray", L"/stray.ulb");
  EXPECT_FAILS(Attach(copy), orphan, loading,
               "Не смогли провести начальную загрузку из базы данных [CProviderPool::_AddProvider]");
  EXPECT_EQ(pool_GetProviderCount(pool_), 0);
}

TEST_F(CatalogLoad, ReloadReadsWritesBackKeepsTheProviderAndReachesEveryPool) {
  LxPacket* packet = provider_AddPacket(provider_, L"Пакет");
  LxFolder* a = folder_AddChildFolder(packet_GetRootFolder(packet), L"А");
  folder_AddChildFolder(a, L"А1");
  folder_AddChildFolder(packet_GetRootFolder(packet), L"Б");
  folder_SetName(a, L"А переименован");
  ASSERT_TRUE(Reload());
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_);
  ASSERT_EQ(provider_GetPacketCount(provider_), 1);
  EXPECT_EQ(Describe(packet_GetRootFolder(provider_GetPacket(provider_, 0))), L"Пакет(А переименован(А1),Б)");
  // One database in two pools is reloaded in both.
  LxProviderPool* second = lxAddLibraryProviderPool(L"CatalogLoadSecondPool", L"/second.ulb");
  LxDataProvider* again = pool_AddProvider(second, connection_.server.c_str(), database_.c_str(),
                                           connection_.user.c_str(), connection_.password.c_str());
  ASSERT_NE(again, nullptr);
  Sql().Execute({L"INSERT INTO FOLDER (ID, NAME) VALUES (1001, 'Новый')",
                 L"INSERT INTO PACKET (PACKETID, FOLDERID) VALUES ('Новый', 1001)"});
  ASSERT_TRUE(Reload());
  EXPECT_EQ(provider_GetPacketCount(provider_), 2);
  EXPECT_EQ(provider_GetPacketCount(again), 2);
  lxDeleteProviderPool(second);
}

TEST_F(CatalogLoad, ReloadMatchesPathsOverSeparatorsAndCaseAndIgnoresUnknownOnes) {
  provider_AddPacket(provider_, L"Пакет");
  provider_ClearPacketCache(provider_, provider_GetPacket(provider_, 0));
  std::wstring spelled = database_;
  for (wchar_t& ch : spelled) {
    if (ch == L'/') ch = L'\\';
  }
  spelled.insert(0, L"\\");  // a run of separators counts as one
  for (wchar_t& ch : spelled) ch = static_cast<wchar_t>(std::towupper(ch));
  ASSERT_TRUE(lxReloadProvider(connection_.server.c_str(), spelled.c_str()));
  EXPECT_EQ(provider_GetPacketCount(provider_), 1);
  // A database no provider has is reloaded quietly.
  EXPECT_EQ(Captured([] { return lxReloadProvider(L"", L"/no/such/catalog.fdb"); }), Quietly(true));
}

}  // namespace
}  // namespace lxtest
