// A generated catalog as a client of the library sees it once a packet is
// loaded: split groups come out as virtual folders, unsplit folders show
// their columns and rows, and values and formulas read through the sizes.
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "GeneratedCatalogFixture.h"

namespace {

class LibraryView : public lxtest::GeneratedCatalogFixture {
 protected:
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
};

// One packet, a root with two leaves, five templates of two sizes in each
// leaf, attributes 11 and 21..24.
CatalogShape TwoLeaves(std::int32_t groups, SplitBy splitBy) {
  CatalogShape shape;
  shape.depth = 1;
  shape.fanOut = 2;
  shape.templatesPerFolder = 5;
  shape.sizesPerTemplate = 2;
  shape.attributes = 4;
  shape.commonAttributes = 1;
  shape.splitGroups = groups;
  shape.splitBy = splitBy;
  return shape;
}

TEST_F(LibraryView, GroupsOfCommonValuesBecomeVirtualFolders) {
  Generate(TwoLeaves(3, SplitBy::CommonValues));
  ASSERT_TRUE(Reload());
  const std::vector<LxFolder*> leaves = Leaves();
  ASSERT_EQ(leaves.size(), 2u);
  for (LxFolder* leaf : leaves) {
    ASSERT_EQ(folder_GetChildFolderCount(leaf), 3);
    EXPECT_TRUE(table_IsEmpty(folder_GetTable(leaf)));
    std::int32_t sizes = 0;
    for (std::int32_t i = 0; i < 3; ++i) {
      LxFolder* group = folder_GetChildFolder(leaf, i);
      EXPECT_TRUE(folder_IsVirtual(group));
      EXPECT_EQ(table_GetAttributeCount(folder_GetTable(group)), 5);
      sizes += table_GetStdSizeCount(folder_GetTable(group));
    }
    EXPECT_EQ(sizes, 10);
  }
}

TEST_F(LibraryView, GroupsOfAttributeSetsBecomeVirtualFolders) {
  Generate(TwoLeaves(3, SplitBy::AttributeSets));
  ASSERT_TRUE(Reload());
  for (LxFolder* leaf : Leaves()) {
    ASSERT_EQ(folder_GetChildFolderCount(leaf), 3);
    std::multiset<std::int32_t> columns;
    for (std::int32_t i = 0; i < 3; ++i)
      columns.insert(table_GetAttributeCount(folder_GetTable(folder_GetChildFolder(leaf, i))));
    EXPECT_EQ(columns, (std::multiset<std::int32_t>{5, 5, 6}));
  }
}

TEST_F(LibraryView, AFolderOfOneGroupKeepsItsTable) {
  Generate(TwoLeaves(1, SplitBy::CommonValues));
  ASSERT_TRUE(Reload());
  for (LxFolder* leaf : Leaves()) {
    EXPECT_EQ(folder_GetChildFolderCount(leaf), 0);
    LxFolderTable* table = folder_GetTable(leaf);
    EXPECT_EQ(table_GetAttributeCount(table), 5);
    EXPECT_EQ(table_GetStdSizeCount(table), 10);
  }
}

TEST_F(LibraryView, ValuesAndFormulasReadThroughTheSizes) {
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
