// Split groups: runs of neighbouring templates in a folder that differ in
// their attribute rows (set, texts, common values), counted here the way the
// library's load splits a folder: each template against the first template
// of the current run.
#include <gtest/gtest.h>

#include <map>
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
};

// One packet with a root and two leaves, five templates in each leaf.
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
  const std::map<std::wstring, int> runs = RunsPerFolder();
  ASSERT_EQ(runs.size(), 2u);
  for (const auto& [folder, count] : runs) EXPECT_EQ(count, 3) << "folder " << folder;
  EXPECT_EQ(written.splitFolders, 2);
  EXPECT_EQ(written.virtualFolders, 6);
  // Only the common values tell the groups apart.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(DISTINCT OBJECTID) FROM OBJECTATTRIBUTE"), 10);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE"), 10 * 5);
}

TEST_F(SplitGroups, ByAttributeSetsOddGroupsCarryOneMoreAttribute) {
  const CatalogCounts written = Generate(TwoLeaves(3, SplitBy::AttributeSets, 0));
  const std::map<std::wstring, int> runs = RunsPerFolder();
  ASSERT_EQ(runs.size(), 2u);
  for (const auto& [folder, count] : runs) EXPECT_EQ(count, 3) << "folder " << folder;
  // Groups of 2, 2 and 1 templates: the middle group has attribute 25.
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE NUMBER = 25"), 2 * 2);
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECTATTRIBUTE WHERE CONCRETEVALUEID IS NOT NULL"), 0);
  EXPECT_EQ(written.templateAttributes, 10 * 5 + 4);
  EXPECT_EQ(Rows(L"OBJECTATTRIBUTE"), 10 * 5 + 4);
}

TEST_F(SplitGroups, OneGroupLeavesEveryFolderWholeEvenWithCommonValues) {
  const CatalogCounts written = Generate(TwoLeaves(1, SplitBy::CommonValues, 2));
  const std::map<std::wstring, int> runs = RunsPerFolder();
  ASSERT_EQ(runs.size(), 2u);
  for (const auto& [folder, count] : runs) EXPECT_EQ(count, 1) << "folder " << folder;
  EXPECT_EQ(written.virtualFolders, 0);
}

TEST_F(SplitGroups, AsManyGroupsAsTemplatesMakesEveryTemplateItsOwnRun) {
  Generate(TwoLeaves(9, SplitBy::CommonValues, 1));
  for (const auto& [folder, count] : RunsPerFolder()) EXPECT_EQ(count, 5) << "folder " << folder;
}

}  // namespace
