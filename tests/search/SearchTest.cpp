// Both kinds of search on a real catalog of more than a hundred folders, so
// the search splits its folders over worker tasks. Every result is checked
// against a plain loop of search2_Check over the same sizes in the order the
// search promises (items, then folders level by level, then rows).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"
#include "api/Handles.h"
#include "platform/Concurrency.h"
#include "tools/CatalogGenerator/ForcedWritesPause.h"

namespace lxtest {
namespace {

constexpr int kFolders = 110;
constexpr int kRaisingFolder = 77;  // the one folder whose "Марка" is text

struct Catalog {
  TempDir dir;
  LxProviderPool* pool = nullptr;
  LxDataProvider* main = nullptr;
  LxDataProvider* other = nullptr;
};

LxDataProvider* AddProvider(LxProviderPool* pool, const std::wstring& file) {
  return pool_AddProvider(pool, L"", file.c_str(), L"SYSDBA", L"");
}

// A table with the two searched columns and a size per designation.
LxFolderTable* FillTable(LxFolder* folder, int seed, const std::vector<std::wstring>& designations) {
  LxFolderTable* table = folder_GetTable(folder);
  LxAttribute* diameter = table_AddAttribute(table, L"Диаметр", L"Диаметр, мм", LX_VALUE_INT);
  LxAttribute* designation = table_AddAttribute(table, L"Обозначение", L"Обозначение", LX_VALUE_STRING);
  for (std::size_t k = 0; k < designations.size(); ++k) {
    LxStdSize* size = table_AddStdSize(table, (designations[k] + L"-" + std::to_wstring(seed)).c_str());
    stdsize_SetValueI(size, diameter, 50 + (seed * 7 + static_cast<int>(k) * 13) % 200);
    stdsize_SetValueS(size, designation, (designations[k] + L" " + std::to_wstring(seed)).c_str());
  }
  return table;
}

class Search : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    catalog_ = new Catalog;
    const std::wstring mainFile = catalog_->dir.File("main.fdb");
    const std::wstring otherFile = catalog_->dir.File("other.fdb");
    ASSERT_TRUE(lxCreateEmptyFDB(mainFile.c_str()) && lxCreateEmptyFDB(otherFile.c_str()));
    catalog_->pool = lxAddLibraryProviderPool(L"SearchTest", L"/lib/search.ulb");
    catalog_->main = AddProvider(catalog_->pool, mainFile);
    catalog_->other = AddProvider(catalog_->pool, otherFile);
    // A thousand single-row commits; without the pause each waits for the disk.
    ForcedWritesPause unforcedMain(*Obj(catalog_->main));
    ForcedWritesPause unforcedOther(*Obj(catalog_->other));

    LxFolder* root = packet_GetRootFolder(provider_AddPacket(catalog_->main, L"Отводы"));
    for (int i = 0; i < kFolders; ++i) {
      LxFolder* folder = folder_AddChildFolder(root, (L"Папка" + std::to_wstring(i)).c_str());
      LxFolderTable* table = FillTable(folder, i, {L"Отвод", L"Тройник"});
      if (i == kRaisingFolder) {
        LxAttribute* mark = table_AddAttribute(table, L"Марка", L"Марка", LX_VALUE_STRING);
        for (int k = 0; k < table_GetStdSizeCount(table); ++k) stdsize_SetValueS(table_GetStdSize(table, k), mark, L"x");
      }
      if (i == 0) FillTable(folder_AddChildFolder(folder, L"Вложенная"), 1000, {L"Отвод"});
    }
    FillTable(packet_GetRootFolder(provider_AddPacket(catalog_->main, L"A/B")), 2000, {L"Отвод"});
    FillTable(packet_GetRootFolder(provider_AddPacket(catalog_->other, L"Отводы")), 3000, {L"Чужой"});
    // Searches must load the packets themselves.
    ASSERT_TRUE(lxReloadProvider(L"", mainFile.c_str()));
  }
  static void TearDownTestSuite() {
    lxDeleteProviderPool(catalog_->pool);
    delete catalog_;
  }

  static std::vector<std::wstring> Identifiers(LxSearchResult* result) {
    std::vector<std::wstring> found;
    for (int i = 0; i < search_GetCount(result); ++i) found.emplace_back(stdsize_GetID(search_Get(result, i)));
    return found;
  }

  // What the search promises, spelled out: the folder and everything below
  // it level by level, each folder's rows in order, filtered by one check.
  static std::vector<std::wstring> CheckedOneByOne(LxFolder* top, const wchar_t* query) {
    LxSearchResult2* condition = pool_GetSearchResult2(catalog_->pool, query);
    std::vector<LxFolder*> folders{top};
    std::vector<std::wstring> found;
    for (std::size_t f = 0; f < folders.size(); ++f) {
      for (int c = 0; c < folder_GetChildFolderCount(folders[f]); ++c) folders.push_back(folder_GetChildFolder(folders[f], c));
      LxFolderTable* table = folder_GetTable(folders[f]);
      for (int s = 0; s < table_GetStdSizeCount(table); ++s) {
        if (search2_Check(condition, table_GetStdSize(table, s))) found.emplace_back(stdsize_GetID(table_GetStdSize(table, s)));
      }
    }
    pool_DeleteSearchResult2(catalog_->pool, condition);
    return found;
  }

  static std::vector<std::wstring> Searched(const wchar_t* packets, const wchar_t* query) {
    LxSearchResult* result = pool_GetSearchResult(catalog_->pool, packets, query);
    EXPECT_NE(result, nullptr) << "no result for " << testing::PrintToString(std::wstring(query));
    if (result == nullptr) return {};
    std::vector<std::wstring> found = Identifiers(result);
    EXPECT_TRUE(pool_DeleteSearchResult(catalog_->pool, result));
    return found;
  }

  // The search fails with exactly this one message.
  static void ExpectRefused(const wchar_t* packets, const wchar_t* query, const std::string& message) {
    EXPECT_FAILS(pool_GetSearchResult(catalog_->pool, packets, query), message)
        << testing::PrintToString(std::wstring(packets));
  }

  static LxFolder* MainRoot() { return packet_GetRootFolder(provider_GetPacketByName(catalog_->main, L"Отводы")); }

  static Catalog* catalog_;
};

Catalog* Search::catalog_ = nullptr;

TEST(SearchChunks, FoldersSplitWithAFloorOfFifty) {
  auto lengths = [](std::size_t n, unsigned threads) {
    std::vector<std::size_t> result;
    std::size_t next = 0;
    for (const Chunk& chunk : SplitIntoChunks(n, threads, 50)) {
      EXPECT_EQ(chunk.first, next);
      result.push_back(chunk.last - chunk.first);
      next = chunk.last;
    }
    EXPECT_EQ(next, n);
    return result;
  };
  using Lengths = std::vector<std::size_t>;
  EXPECT_EQ(lengths(0, 8), Lengths{});
  EXPECT_EQ(lengths(49, 8), Lengths{49});
  EXPECT_EQ(lengths(99, 8), Lengths{99});
  EXPECT_EQ(lengths(100, 8), (Lengths{50, 50}));
  EXPECT_EQ(lengths(125, 8), (Lengths{62, 63}));
  EXPECT_EQ(lengths(1000, 8), Lengths(8, 125));
  EXPECT_EQ(lengths(1000, 0), Lengths(8, 125)) << "an unknown thread count counts as 8";
  EXPECT_EQ(lengths(111, 2), (Lengths{55, 56}));
}

TEST_F(Search, AgreesWithSingleChecksInOrder) {
  for (const wchar_t* query : {L"Диаметр>=100 && Обозначение==\"Отвод*\"", L"Диаметр<80",
                               L"Обозначение==\"*1*\"", L"Нет==1", L"Диаметр>0"}) {
    // The search first: it must load the packet itself.
    const std::vector<std::wstring> searched = Searched(L"Отводы", query);
    const std::vector<std::wstring> expected = CheckedOneByOne(MainRoot(), query);
    EXPECT_EQ(searched, expected) << testing::PrintToString(std::wstring(query));
    EXPECT_EQ(expected.empty(), std::wstring(query) == L"Нет==1") << testing::PrintToString(std::wstring(query));
  }
  EXPECT_LT(Searched(L"Отводы", L"Диаметр>=100 && Обозначение==\"Отвод*\"").size(), std::size_t{kFolders});
  EXPECT_EQ(Searched(L"Отводы", L"Диаметр>0").size(), 2u * kFolders + 1) << "every row of the packet once";
  EXPECT_TRUE(Searched(L"Отводы", L"Нет==1").empty()) << "an unknown column reads as empty";
  const std::vector<std::wstring> nested = Searched(L"Отводы\\Папка0", L"Диаметр>0");
  EXPECT_EQ(nested, (std::vector<std::wstring>{L"Отвод-0", L"Тройник-0", L"Отвод-1000"}));
}

TEST_F(Search, ItemsAddUpWithoutRemovingDuplicates) {
  const std::vector<std::wstring> folder = Searched(L"Отводы\\Папка5", L"Диаметр>0");
  const std::vector<std::wstring> packet = Searched(L"Отводы", L"Диаметр>0");
  std::vector<std::wstring> both = folder;
  both.insert(both.end(), packet.begin(), packet.end());
  EXPECT_EQ(Searched(L"Отводы\\Папка5;Отводы", L"Диаметр>0"), both);
}

TEST_F(Search, TheFirstProviderWithThePacketWins) {
  const std::vector<std::wstring> found = Searched(L"Отводы", L"Диаметр>0");
  EXPECT_EQ(std::count(found.begin(), found.end(), L"Чужой-3000"), 0);
  LxProviderPool* reversed = lxAddLibraryProviderPool(L"SearchReversed", L"/lib/reversed.ulb");
  AddProvider(reversed, provider_GetDatabaseName(catalog_->other));
  AddProvider(reversed, provider_GetDatabaseName(catalog_->main));
  LxSearchResult* result = pool_GetSearchResult(reversed, L"Отводы", L"Диаметр>0");
  EXPECT_EQ(Identifiers(result), std::vector<std::wstring>{L"Чужой-3000"});
  pool_DeleteSearchResult(reversed, result);
  lxDeleteProviderPool(reversed);
}

TEST_F(Search, OnlyTheBackslashDescends) {
  EXPECT_EQ(Searched(L"A/B", L"Диаметр>0"), std::vector<std::wstring>{L"Отвод-2000"});
  ExpectRefused(L"Отводы/Папка1", L"Диаметр>0", "Отсутствует пакет 'Отводы/Папка1' [CSearchHelper::_Run]");
}

TEST_F(Search, ATrailingSemicolonIsAnEmptyItemThatFails) {
  ExpectRefused(L"Отводы;", L"Диаметр>0", "Отсутствует пакет '' [CSearchHelper::_Run]");
  // The first item ran before the empty one failed: its evaluation error wins.
  ExpectRefused(L"Отводы;", L"Марка>1", " (fun: pool_GetSearchResult) Неизвестное исключение");
}

TEST_F(Search, AnEvaluationErrorInOneFolderOfManyFailsTheSearch) {
  ExpectRefused(L"Отводы", L"Марка>1", " (fun: pool_GetSearchResult) Неизвестное исключение");
  // Without the raising folder the same condition just finds nothing.
  EXPECT_TRUE(Searched(L"Отводы\\Папка76", L"Марка>1").empty());
  EXPECT_EQ(Searched(L"Отводы", L"Диаметр>0").size(), 2u * kFolders + 1) << "the library still answers";
}

TEST_F(Search, RefusalsAndTheirMessages) {
  LxProviderPool* pool = catalog_->pool;
  ExpectRefused(L"", L"Диаметр>0",
                "Требуется передать не пустой список пакетов (и вложенных фолдеров через /). Разделитель ';' "
                "[CSearchHelper::_Run]");
  ExpectRefused(L"Отводы", L"", "Требуется передать не пустой запрос [CSearchHelper::_Run]");
  ExpectRefused(L"Нет", L"Диаметр>0", "Отсутствует пакет 'Нет' [CSearchHelper::_Run]");
  ExpectRefused(L"Отводы\\Папка1\\Нет", L"Диаметр>0",
                "Отсутствует фолдер 'Нет' в дорожке 'Отводы\\Папка1\\Нет' [CSearchHelper::_Run]");
  ExpectRefused(L"Отводы", L"Диаметр", " (fun: pool_GetSearchResult) Неизвестное исключение");
  ExpectRefused(L"Отводы", L"   ", " (fun: pool_GetSearchResult) Неизвестное исключение");
  EXPECT_FAILS(pool_GetSearchResult2(pool, L""),
               "Требуется передать не пустой запрос [CSearchResult2::_CreateSearchResult2]");
  for (const wchar_t* query : {L"Диаметр", L"   "}) {
    EXPECT_FAILS(pool_GetSearchResult2(pool, query), " (fun: pool_GetSearchResult2) Неизвестное исключение");
  }
}

TEST_F(Search, ResultsAndConditionsAtTheirEdges) {
  LxSearchResult* empty = pool_GetSearchResult(catalog_->pool, L"Отводы", L"Диаметр>100000");
  ASSERT_NE(empty, nullptr) << "nothing found is a result, not a failure";
  EXPECT_EQ(search_GetCount(empty), 0);
  EXPECT_FAILS(search_Get(empty, -1), "Индекс -1 выходит за пределы диапазона [0, 0) [CSearchResult::_Get]");

  // A condition belongs to no pool and no catalog.
  LxProviderPool* elsewhere = lxAddLibraryProviderPool(L"SearchElsewhere", L"/lib/elsewhere.ulb");
  LxSearchResult2* condition = pool_GetSearchResult2(elsewhere, L"Диаметр>0");
  LxStdSize* size = packet_FindStdSize(provider_GetPacketByName(catalog_->main, L"Отводы"), L"Отвод-3");
  EXPECT_TRUE(search2_Check(condition, size));
  EXPECT_TRUE(pool_DeleteSearchResult2(catalog_->pool, condition)) << "deleted through another pool";
  EXPECT_TRUE(pool_DeleteSearchResult(elsewhere, empty));
  lxDeleteProviderPool(elsewhere);
}

}  // namespace
}  // namespace lxtest
