// How the basic load links FOLDER rows into trees: by ID_PARENT alone, each
// folder's children in the order of their rows (whatever their ids), ids
// dense or scattered, long chains, and the rows that no packet reaches. Rows
// are laid out in SQL; a parent changed by UPDATE keeps the row where it
// was, so a child can come before its parent.
#include "CatalogFixture.h"
#include "DebugOutput.h"
#include "Shapes.h"

using lxtest::Captured;
using lxtest::FlushText;
using lxtest::Writes;
namespace shapes = lxtest::shapes;

namespace {

constexpr const char* kLoadingFailed = "Ошибка при загрузке пакетов и фолдеров [BaseOperation::BasicLoading]";

class BasicLoad : public lxtest::CatalogFixture {
 protected:
  LxFolder* RootOf(const wchar_t* packet) {
    LxPacket* found = provider_GetPacketByName(provider_, packet);
    return found ? packet_GetRootFolder(found) : nullptr;
  }
  // The names of the children, in the order the interface gives them.
  static std::vector<std::wstring> ChildNames(LxFolder* folder) {
    std::vector<std::wstring> names;
    for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
      names.emplace_back(folder_GetName(folder_GetChildFolder(folder, i)));
    }
    return names;
  }
  // The stray-folder report and the load's own, as one flush.
  static Writes StrayReport(const std::string& folder) {
    return Writes{FlushText({"Фолдер '" + folder + "' не входит ни в один пакет [BaseOperation::LoadPacketsAndFolders]",
                             kLoadingFailed})};
  }
};

TEST_F(BasicLoad, ChildrenKeepTheOrderOfTheirRowsWithDenseOrScatteredIds) {
  for (const std::int32_t base : {1, 1000000}) {
    SCOPED_TRACE(base);
    // Scattered ids far apart, and a child whose row comes before its
    // parent's (its parent is set afterwards), between the rows of its
    // parent's siblings.
    const std::int32_t step = base == 1 ? 1 : 7919;
    auto id = [&](std::int32_t n) { return base + n * step; };
    Sql().Execute({shapes::Folder(id(0), L"Корень " + std::to_wstring(base)),
                   shapes::Folder(id(1), L"Первый", id(0)), shapes::Folder(id(9), L"Внук"),
                   shapes::Folder(id(7), L"Седьмой", id(0)), shapes::Folder(id(3), L"Третий", id(0)),
                   shapes::Folder(id(8), L"Восьмой", id(0)), shapes::Folder(id(5), L"Пятый", id(0)),
                   L"UPDATE FOLDER SET ID_PARENT = " + std::to_wstring(id(3)) + L" WHERE ID = " +
                       std::to_wstring(id(9)),
                   shapes::Packet(base, L"Пакет " + std::to_wstring(base), id(0))});
  }
  ASSERT_TRUE(Reload());
  for (const wchar_t* packet : {L"Пакет 1", L"Пакет 1000000"}) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(packet)));
    LxFolder* root = RootOf(packet);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(ChildNames(root),
              (std::vector<std::wstring>{L"Первый", L"Седьмой", L"Третий", L"Восьмой", L"Пятый"}));
    LxFolder* third = folder_GetChildFolder(root, 2);
    EXPECT_EQ(ChildNames(third), std::vector<std::wstring>{L"Внук"});
    LxFolder* grandchild = folder_GetChildFolder(third, 0);
    EXPECT_EQ(folder_GetParentFolder(grandchild), third);
    EXPECT_EQ(folder_GetPacket(grandchild), provider_GetPacketByName(provider_, packet));
  }
}

TEST_F(BasicLoad, LongChainLinksEveryFolderDownToTheLast) {
  // Rows from the deepest folder up to the root, each linked to the next.
  constexpr std::int32_t kDepth = 2000;
  Sql().Execute({L"EXECUTE BLOCK AS DECLARE I INTEGER = " + std::to_wstring(kDepth) +
                     L"; BEGIN WHILE (I >= 1) DO BEGIN INSERT INTO FOLDER (ID, NAME) VALUES (:I, 'Уровень ' || :I); "
                     L"I = I - 1; END END",
                 L"UPDATE FOLDER SET ID_PARENT = ID - 1 WHERE ID > 1", shapes::Packet(1, L"Цепь", 1)});
  ASSERT_TRUE(Reload());
  LxFolder* folder = RootOf(L"Цепь");
  ASSERT_NE(folder, nullptr);
  std::int32_t depth = 1;
  while (folder_GetChildFolderCount(folder) == 1) {
    folder = folder_GetChildFolder(folder, 0);
    ++depth;
  }
  EXPECT_EQ(depth, kDepth);
  EXPECT_EQ(folder_GetChildFolderCount(folder), 0);
  EXPECT_EQ(std::wstring(folder_GetName(folder)), L"Уровень " + std::to_wstring(kDepth));
  EXPECT_EQ(folder_GetPacket(folder), provider_GetPacketByName(provider_, L"Цепь"));
}

TEST_F(BasicLoad, CycleBesideAGoodPacketIsReportedByItsFirstRow) {
  Sql().Execute({shapes::Folder(1, L"Корень"), shapes::Packet(1, L"Пакет", 1), shapes::Folder(2, L"Кольцо А"),
                 shapes::Folder(3, L"Кольцо Б", 2), shapes::Folder(4, L"Ветка", 1),
                 L"UPDATE FOLDER SET ID_PARENT = 3 WHERE ID = 2"});
  auto [reloaded, writes] = Captured([&] { return Reload(); });
  EXPECT_TRUE(reloaded);
  EXPECT_EQ(writes, StrayReport("Кольцо А"));
}

TEST_F(BasicLoad, PacketNamingAFolderThatHasAParentGetsNoTreeOfItsOwn) {
  Sql().Execute({shapes::Folder(1, L"Корень"), shapes::Folder(2, L"Дочерний", 1), shapes::Packet(1, L"Пакет", 1),
                 shapes::Packet(2, L"Второй", 2)});
  ASSERT_TRUE(Reload());
  ASSERT_EQ(provider_GetPacketCount(provider_), 2);
  EXPECT_EQ(ChildNames(RootOf(L"Пакет")), std::vector<std::wstring>{L"Дочерний"});
  EXPECT_EQ(RootOf(L"Второй"), nullptr);
}

TEST_F(BasicLoad, TwoPacketsNamingOneRootLeaveItToTheLaterRow) {
  Sql().Execute({shapes::Folder(1, L"Общий"), shapes::Folder(2, L"Под общим", 1), shapes::Packet(5, L"Первый", 1),
                 shapes::Packet(6, L"Второй", 1)});
  ASSERT_TRUE(Reload());
  ASSERT_EQ(provider_GetPacketCount(provider_), 2);
  EXPECT_EQ(RootOf(L"Первый"), nullptr);
  LxFolder* root = RootOf(L"Второй");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(ChildNames(root), std::vector<std::wstring>{L"Под общим"});
  EXPECT_EQ(folder_GetPacket(folder_GetChildFolder(root, 0)), provider_GetPacketByName(provider_, L"Второй"));
}

}  // namespace
