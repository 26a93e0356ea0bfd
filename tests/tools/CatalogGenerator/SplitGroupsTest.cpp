// Split groups: runs of neighbouring templates in a folder that differ in
// their attribute rows (set, texts, common values). Counted in SQL the way
// the library's load splits a folder (each template against the first
// template of the current run), and seen through the library once a packet
// is loaded: groups come out as virtual folders, unsplit folders show their
// columns and rows, and values and formulas read through the sizes.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "GeneratedCatalogFixture.h"

namespace {

class SplitGroups : public lxtest::GeneratedCatalogFixture {
 protected:
  // Runs per folder that holds templates, templates in id order (the order
  // in which they were written and in which a fresh table returns them).
  std::map<std::wstring, int> RunsPerFolder() {
    // One line per attribute row: folder, template, then everything the
    // library compares, common value included.
    const std::vector<std::wstring> lines = Sql().Texts(
        L"SELECT O.FOLDERID || ';' || O.ID || ';' || OA.NUMBER || '|' || OA.OLD_NUMBER || '|' || "
        L"OA.ATTRIBUTENAMEID || '|' || OA.ATTRIBUTEDESCRIPTIONID || '|' || COALESCE(OA.MEASURE, '') || '|' || "
        L"COALESCE(OA.VARNAME, '') || '|' || COALESCE(OA.FORMULA, '') || '|' || COALESCE(OA.ATTRTYPE, '') || "
        L"'|' || COALESCE(CV.INTVAL, '-') || '|' || COALESCE(CV.DOUBLEVAL, '-') || '|' || "
        L"COALESCE(CV.STRVAL, '-') FROM OBJECT O LEFT JOIN OBJECTATTRIBUTE OA ON OA.OBJECTID = O.ID "
        L"LEFT JOIN CONCRETEVALUE CV ON CV.ID = OA.CONCRETEVALUEID ORDER BY O.FOLDERID, O.ID, OA.NUMBER");
    std::map<std::wstring, std::vector<std::pair<std::wstring, std::wstring>>> templates;  // folder -> (id, rows)
    for (const std::wstring& line : lines) {
      const std::size_t first = line.find(L';');
      const std::size_t second = line.find(L';', first + 1);
      auto& list = templates[line.substr(0, first)];
      const std::wstring id = line.substr(first + 1, second - first - 1);
      if (list.empty() || list.back().first != id) list.emplace_back(id, L"");
      list.back().second += line.substr(second + 1) + L"\n";
    }
    std::map<std::wstring, int> runs;
    for (const auto& [folder, list] : templates) {
      const std::wstring* runStart = nullptr;
      for (const auto& entry : list) {
        if (runStart == nullptr || entry.second != *runStart) {
          runStart = &entry.second;
          ++runs[folder];
        }
      }
    }
    return runs;
  }

  // The real folders below the packet's root, after the load.
  std::vector<LxFolder*> Leaves() {
    LxFolder* root = packet_GetRootFolder(provider_GetPacket(provider_, 0));
    std::vector<LxFolder*> leaves;
    for (std::int32_t i = 0; i < folder_GetChildFolderCount(root); ++i)
      leaves.push_back(folder_GetChildFolder(root, i));
    return leaves;
  }

  static LxAttribute* ByNumber(LxFolderTable* table, std::int32_t number) {
    for (std::int32_t i = 0; i < table_GetAttributeCount(table); ++i) {
      LxAttribute* attribute = table_GetAttribute(table, i);
      if (attribute_GetNumber(attribute) == number) return attribute;
    }
    return nullptr;
  }

  static ValueView Read(LxStdSize* size, LxAttribute* attribute) {
    const NumberFormat format{true, UINT64_MAX};
    ValueView view{};
    EXPECT_TRUE(stdsize_GetValue(size, attribute, &format, &view));
    return view;
  }

  // Each leaf's virtual folders: the column count of each.
  std::vector<std::multiset<std::int32_t>> ColumnsOfGroups() {
    EXPECT_TRUE(Reload());
    std::vector<std::multiset<std::int32_t>> leaves;
    for (LxFolder* leaf : Leaves()) {
      EXPECT_TRUE(table_IsEmpty(folder_GetTable(leaf)));
      std::int32_t sizes = 0;
      leaves.emplace_back();
      for (std::int32_t i = 0; i < folder_GetChildFolderCount(leaf); ++i) {
        LxFolder* group = folder_GetChildFolder(leaf, i);
        EXPECT_TRUE(folder_IsVirtual(group));
        leaves.back().insert(table_GetAttributeCount(folder_GetTable(group)));
        sizes += table_GetStdSizeCount(folder_GetTable(group));
      }
      EXPECT_EQ(sizes, 10);
    }
    return leaves;
  }
};

// One packet with a root and two leaves, five templates of two sizes in
// each leaf, attributes 11 and 21..24.
CatalogShape TwoLeaves(std::int32_t groups, SplitBy splitBy, std::int32_t common) {
  CatalogShape shape;
  shape.depth = 1;
  shape.fanOut = 2;
  shape.templatesPerFolder = 5;
  shape.sizesPerTemplate = 2;
  shape.attributes = 4;
  shape.commonAttributes = common;
  shape.splitGroups = groups;
  shape.splitBy = splitBy;
  return shape;
}

TEST_F(SplitGroups, ByCommonValuesEveryLeafSplitsIntoTheGroups) {
  const CatalogCounts written = Generate(TwoLeaves(3, SplitBy::CommonValues, 2));
  EXPECT_EQ(RunsPerFolder(), (std::map<std::wstring, int>{{L"2", 3}, {L"3", 3}}));
  EXPECT_EQ(written.splitFolders, 2);
  EXPECT_EQ(written.virtualFolders, 6);
  // Only the common values tell the groups apart.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT OBJECTID) FROM OBJECTATTRIBUTE"), 10);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE"), 10 * 5);
  const std::multiset<std::int32_t> threeOfFive{5, 5, 5};
  EXPECT_EQ(ColumnsOfGroups(), (std::vector{threeOfFive, threeOfFive}));
}

TEST_F(SplitGroups, ByAttributeSetsOddGroupsCarryOneMoreAttribute) {
  const CatalogCounts written = Generate(TwoLeaves(3, SplitBy::AttributeSets, 0));
  EXPECT_EQ(RunsPerFolder(), (std::map<std::wstring, int>{{L"2", 3}, {L"3", 3}}));
  // Groups of 2, 2 and 1 templates: the middle group has attribute 25.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE NUMBER = 25"), 2 * 2);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE CONCRETEVALUEID IS NOT NULL"), 0);
  EXPECT_EQ(written.templateAttributes, 10 * 5 + 4);
  EXPECT_EQ(Rows(L"OBJECTATTRIBUTE"), 10 * 5 + 4);
  const std::multiset<std::int32_t> oneWider{5, 5, 6};
  EXPECT_EQ(ColumnsOfGroups(), (std::vector{oneWider, oneWider}));
}

TEST_F(SplitGroups, OneGroupLeavesEveryFolderWholeEvenWithCommonValues) {
  const CatalogCounts written = Generate(TwoLeaves(1, SplitBy::CommonValues, 2));
  EXPECT_EQ(RunsPerFolder(), (std::map<std::wstring, int>{{L"2", 1}, {L"3", 1}}));
  EXPECT_EQ(written.virtualFolders, 0);
  ASSERT_TRUE(Reload());
  for (LxFolder* leaf : Leaves()) {
    EXPECT_EQ(folder_GetChildFolderCount(leaf), 0);
    EXPECT_EQ(table_GetAttributeCount(folder_GetTable(leaf)), 5);
    EXPECT_EQ(table_GetStdSizeCount(folder_GetTable(leaf)), 10);
  }
}

TEST_F(SplitGroups, AsManyGroupsAsTemplatesMakesEveryTemplateItsOwnRun) {
  Generate(TwoLeaves(9, SplitBy::CommonValues, 1));
  for (const auto& [folder, count] : RunsPerFolder()) EXPECT_EQ(count, 5) << "folder " << folder;
}

TEST_F(SplitGroups, ValuesAndFormulasReadThroughTheSizes) {
  CatalogShape shape;
  shape.sizesPerTemplate = 4;
  shape.attributes = 5;
  shape.formulaAttributes = 2;  // 24: {A21*2+1}, 25: Болт М{A21}x{A22}
  Generate(shape);
  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(packet_GetRootFolder(provider_GetPacket(provider_, 0)));
  ASSERT_NE(table, nullptr);
  ASSERT_EQ(table_GetStdSizeCount(table), 4);
  LxAttribute* identifier = ByNumber(table, 11);
  LxAttribute* integer = ByNumber(table, 21);
  LxAttribute* numeric = ByNumber(table, 24);
  LxAttribute* text = ByNumber(table, 25);
  ASSERT_TRUE(identifier && integer && numeric && text);
  for (std::int32_t i = 0; i < 4; ++i) {
    LxStdSize* size = table_GetStdSize(table, i);
    const std::wstring id = stdsize_GetID(size);
    const ValueView idView = Read(size, identifier);
    ASSERT_EQ(idView.index, LX_VALUE_STRING);
    EXPECT_EQ(std::wstring(idView.payload.text, idView.length), id);

    const ValueView a21 = Read(size, integer);
    ASSERT_EQ(a21.index, LX_VALUE_INT);
    const std::int32_t value = a21.payload.integer;
    const ValueView twice = Read(size, numeric);
    ASSERT_NE(twice.index, LX_VALUE_EMPTY);
    const double result = twice.index == LX_VALUE_INT ? twice.payload.integer : twice.payload.number;
    EXPECT_DOUBLE_EQ(result, 2.0 * value + 1) << id;
    const ValueView bolt = Read(size, text);
    ASSERT_EQ(bolt.index, LX_VALUE_STRING);
    EXPECT_EQ(std::wstring(bolt.payload.text, bolt.length).rfind(L"Болт М" + std::to_wstring(value) + L"x", 0), 0u)
        << id;
  }
}

}  // namespace
