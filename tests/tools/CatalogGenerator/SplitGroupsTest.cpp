// Split groups: runs of neighbouring templates in a folder that differ in
// their attribute rows (set, texts, common values), seen through the
// library once a packet is loaded: groups come out as virtual folders, and
// unsplit folders show their columns and rows.
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "GeneratedCatalogFixture.h"

namespace {

class SplitGroups : public lxtest::GeneratedCatalogFixture {
 protected:
  // The real folders below the packet's root, after the load.
  std::vector<LxFolder*> Leaves() {
    LxFolder* root = packet_GetRootFolder(provider_GetPacket(provider_, 0));
    std::vector<LxFolder*> leaves;
    for (std::int32_t i = 0; i < folder_GetChildFolderCount(root); ++i)
      leaves.push_back(folder_GetChildFolder(root, i));
    return leaves;
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
  // Groups of 2, 2 and 1 templates: the middle group has attribute 25.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE NUMBER = 25"), 2 * 2);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE CONCRETEVALUEID IS NOT NULL"), 0);
  EXPECT_EQ(written.templateAttributes, 10 * 5 + 4);
  EXPECT_EQ(Count(L"OBJECTATTRIBUTE"), 10 * 5 + 4);
  const std::multiset<std::int32_t> oneWider{5, 5, 6};
  EXPECT_EQ(ColumnsOfGroups(), (std::vector{oneWider, oneWider}));
}

TEST_F(SplitGroups, OneGroupLeavesEveryFolderWholeEvenWithCommonValues) {
  const CatalogCounts written = Generate(TwoLeaves(1, SplitBy::CommonValues, 2));
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
  const std::multiset<std::int32_t> fiveOfFive{5, 5, 5, 5, 5};
  EXPECT_EQ(ColumnsOfGroups(), (std::vector{fiveOfFive, fiveOfFive}));
}

}  // namespace
