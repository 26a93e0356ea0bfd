// The numbers a shape stands for: folders per packet, template folders,
// sizes per template, groups, totals worked out by hand, and the shapes that
// are refused.
#include <gtest/gtest.h>

#include "GeneratedCatalogFixture.h"
#include "tools/CatalogGenerator/AttributeLayout.h"
#include "tools/CatalogGenerator/CatalogPlan.h"

namespace {

using lxtest::SmallTree;

TEST(CatalogPlan, TotalsOfASmallTreeWorkedOutByHand) {
  // 1 + 2 + 4 folders per packet, the 4 of the last level are leaves, with
  // 3 templates each; attribute 11 and the five numbered ones on every
  // template; per size 11 and the two plain ones (5 - 1 common - 2
  // formulas); one common value per template.
  const CatalogCounts totals = CatalogPlan(SmallTree()).Totals();
  EXPECT_EQ(totals, (CatalogCounts{.packets = 2, .folders = 14, .templates = 2 * 4 * 3, .sizes = 24 * 2,
                                   .templateAttributes = 24 * 6, .values = 48 * 3 + 24 * 1, .sizeValues = 48 * 3}))
      << DescribeCounts(totals);

  // With templates in every folder when asked.
  CatalogShape shape = SmallTree();
  shape.templatesInLeavesOnly = false;
  const CatalogPlan plan(shape);
  EXPECT_EQ(plan.TemplateFoldersOf(0), 7);
  EXPECT_EQ(plan.Totals().templates, 2 * 7 * 3);
}

TEST(CatalogPlan, FoldersAndSizesAreSpreadEarlierFirst) {
  CatalogShape shape;
  shape.packets = 3;
  shape.totalFolders = 11;
  shape.fanOut = 3;
  const CatalogPlan plan(shape);
  EXPECT_EQ(plan.FoldersOf(0), 4);
  EXPECT_EQ(plan.FoldersOf(1), 4);
  EXPECT_EQ(plan.FoldersOf(2), 3);
  EXPECT_EQ(plan.Totals().folders, 11);
  // 4 folders with fan-out 3: the root and three leaves; 3 folders: two leaves.
  EXPECT_EQ(plan.TemplateFoldersOf(0), 3);
  EXPECT_EQ(plan.TemplateFoldersOf(2), 2);

  // Sizes per packet over its templates.
  CatalogShape sized;
  sized.templatesPerFolder = 4;
  sized.sizesPerPacket = 10;
  const CatalogPlan sizes(sized);
  EXPECT_EQ(sizes.SizesOf(0, 0), 3);
  EXPECT_EQ(sizes.SizesOf(0, 1), 3);
  EXPECT_EQ(sizes.SizesOf(0, 2), 2);
  EXPECT_EQ(sizes.SizesOf(0, 3), 2);
  EXPECT_EQ(sizes.Totals().sizes, 10);
}

TEST(CatalogPlan, GroupsAreRunsOfNeighbours) {
  CatalogShape shape;
  shape.templatesPerFolder = 7;
  shape.splitGroups = 3;
  shape.commonAttributes = 1;
  const CatalogPlan plan(shape);
  ASSERT_EQ(plan.GroupsPerFolder(), 3);
  const std::int32_t expected[] = {0, 0, 0, 1, 1, 2, 2};
  for (std::int32_t index = 0; index < 7; ++index) EXPECT_EQ(plan.GroupOf(index), expected[index]) << index;
  EXPECT_EQ(plan.Totals().splitFolders, 1);
  EXPECT_EQ(plan.Totals().virtualFolders, 3);
  // A folder with fewer templates than groups has one group each.
  shape.templatesPerFolder = 2;
  shape.splitGroups = 5;
  EXPECT_EQ(CatalogPlan(shape).GroupsPerFolder(), 2);
}

TEST(CatalogPlan, OddGroupsCarryOneMoreAttributeWhenSplitByAttributeSets) {
  CatalogShape shape;
  shape.templatesPerFolder = 4;
  shape.splitGroups = 4;
  shape.splitBy = SplitBy::AttributeSets;
  const CatalogPlan plan(shape);
  // 11 and 21..23 on all four; 24 on the two odd ones.
  EXPECT_EQ(plan.AttributesOfGroup(0).size(), 4u);
  ASSERT_EQ(plan.AttributesOfGroup(1).size(), 5u);
  EXPECT_EQ(plan.AttributesOfGroup(1).back().number, 24);
  EXPECT_EQ(plan.AttributesOfGroup(1).back().kind, ValueKind::None);
  EXPECT_EQ(plan.Totals().templateAttributes, 4 * 4 + 2);
  EXPECT_EQ(plan.Totals().sizeValues, 4 * 4);
  // Uneven groups: indexes 0..2 and 3..4, so the odd group is two templates.
  shape.templatesPerFolder = 5;
  shape.splitGroups = 2;
  EXPECT_EQ(CatalogPlan(shape).Totals().templateAttributes, 5 * 4 + 2);
}

TEST(CatalogPlan, AttributeLayoutNumbersKindsAndTypes) {
  CatalogShape shape;
  shape.attributes = 6;
  shape.commonAttributes = 2;
  shape.formulaAttributes = 2;
  const std::vector<AttributeDefinition> layout = TemplateAttributes(shape, 0);
  ASSERT_EQ(layout.size(), 7u);
  EXPECT_EQ(layout[0].number, 11);
  EXPECT_EQ(layout[0].name, L"ID_specification");
  EXPECT_TRUE(layout[0].identifier);
  const ValueKind kinds[] = {ValueKind::PerSize, ValueKind::PerSize, ValueKind::Common,
                             ValueKind::Common,  ValueKind::None,    ValueKind::None};
  const std::int32_t types[] = {1, 2, 3, 1, 2, 3};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(layout[1 + i].number, 21 + i);
    EXPECT_EQ(layout[1 + i].kind, kinds[i]) << i;
    EXPECT_EQ(layout[1 + i].type, types[i]) << i;
  }
  EXPECT_EQ(layout[5].formula, L"{A21*2+1}");
  EXPECT_EQ(layout[6].formula, L"Болт М{A21}x{A22}");
  EXPECT_TRUE(layout[1].formula.empty());
}

TEST(CatalogPlan, ContentIsSharedInTurnAndNeverBeyondItsUsers) {
  CatalogShape shape;
  shape.templatesPerFolder = 20;
  shape.modelBytes = shape.fragmentBytes = shape.thumbnailBytes = 1;
  shape.distinctModels = 200;
  shape.projectionsPerTemplate = 3;
  const CatalogPlan plan(shape);
  // More distinct models than templates: only those used are written.
  EXPECT_EQ(plan.Totals().models, 20);
  EXPECT_EQ(plan.Totals().projections, 60);
  EXPECT_EQ(plan.Totals().fragments, 60);
  shape.distinctModels = 6;
  shape.distinctFragments = 7;
  const CatalogPlan shared(shape);
  EXPECT_EQ(shared.Totals().models, 6);
  EXPECT_EQ(shared.Totals().fragments, 7);
  EXPECT_EQ(shared.ModelOf(13), 1);
  EXPECT_EQ(shared.FragmentOf(59), 3);
}

TEST(CatalogPlan, RefusesShapesThatCantBeGenerated) {
  auto refused = [](auto change) {
    CatalogShape shape;
    change(shape);
    EXPECT_TRUE(ShapeProblem(shape).has_value());
    EXPECT_THROW(CatalogPlan{shape}, std::invalid_argument);
  };
  refused([](CatalogShape& s) { s.packets = 0; });
  refused([](CatalogShape& s) { s.fanOut = 0; });
  refused([](CatalogShape& s) { s.packets = 3, s.totalFolders = 2; });
  refused([](CatalogShape& s) { s.attributes = 2, s.commonAttributes = 2, s.formulaAttributes = 1; });
  refused([](CatalogShape& s) { s.attributes = 2, s.formulaAttributes = 1; });
  refused([](CatalogShape& s) { s.splitGroups = 2, s.commonAttributes = 0; });
  refused([](CatalogShape& s) { s.splitGroups = 0; });
  refused([](CatalogShape& s) { s.sizesPerTemplate = -1; });
  refused([](CatalogShape& s) { s.projectionsPerTemplate = 19, s.fragmentBytes = s.thumbnailBytes = 1; });
  refused([](CatalogShape& s) { s.projectionsPerTemplate = 1, s.thumbnailBytes = 1; });
  refused([](CatalogShape& s) { s.modelBytes = 1; });
  refused([](CatalogShape& s) { s.distinctModels = -1; });
  EXPECT_FALSE(ShapeProblem(CatalogShape{}).has_value()) << "the default shape";

  // Nor totals beyond 32-bit ids.
  CatalogShape deep;
  deep.depth = 40;
  deep.fanOut = 10;
  EXPECT_THROW(CatalogPlan{deep}, std::invalid_argument);
  CatalogShape wide;
  wide.templatesPerFolder = 100000;
  wide.sizesPerTemplate = 100000;
  EXPECT_THROW(CatalogPlan{wide}, std::invalid_argument);
}

}  // namespace
