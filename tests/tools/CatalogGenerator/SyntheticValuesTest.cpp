// The values of a generated catalog: fixed by the seed and the place, of the
// asked-for kind, and different between neighbouring split groups.
#include <gtest/gtest.h>

#include <set>

#include "tools/CatalogGenerator/SyntheticValues.h"

namespace {

TEST(SyntheticValues, TheSameSeedAndPlaceGiveTheSameValue) {
  const SyntheticValues a(7);
  const SyntheticValues b(7);
  for (std::int64_t size = 0; size < 50; ++size) {
    for (std::int32_t type = 1; type <= 3; ++type) {
      EXPECT_EQ(a.SizeValue(size, 21 + type, type), b.SizeValue(size, 21 + type, type));
      EXPECT_EQ(a.CommonValue(size, 1, 30, type), b.CommonValue(size, 1, 30, type));
    }
  }
}

TEST(SyntheticValues, AnotherSeedGivesOtherValues) {
  const SyntheticValues a(1);
  const SyntheticValues b(2);
  int differing = 0;
  for (std::int64_t size = 0; size < 100; ++size) differing += a.SizeValue(size, 21, 1) != b.SizeValue(size, 21, 1);
  EXPECT_GT(differing, 90);
}

TEST(SyntheticValues, ValuesHaveTheKindOfTheirType) {
  const SyntheticValues values(3);
  for (std::int64_t size = 0; size < 200; ++size) {
    const Value integer = values.SizeValue(size, 21, 1);
    ASSERT_TRUE(IsInteger(integer));
    EXPECT_GE(std::get<std::int32_t>(integer), -1000);
    EXPECT_LE(std::get<std::int32_t>(integer), 1000);
    const Value real = values.SizeValue(size, 22, 2);
    ASSERT_TRUE(IsDouble(real));
    EXPECT_GE(std::get<double>(real), 0.0);
    EXPECT_LE(std::get<double>(real), 2000.0);
    const Value text = values.SizeValue(size, 23, 3);
    ASSERT_TRUE(IsString(text));
    EXPECT_FALSE(std::get<std::wstring>(text).empty());
  }
  EXPECT_TRUE(IsEmpty(values.SizeValue(0, 21, 4)));
}

TEST(SyntheticValues, ValuesVaryOverPlaces) {
  const SyntheticValues values(5);
  std::set<Value> integers;
  std::set<Value> texts;
  for (std::int64_t size = 0; size < 100; ++size) {
    integers.insert(values.SizeValue(size, 21, 1));
    texts.insert(values.SizeValue(size, 23, 3));
  }
  EXPECT_GT(integers.size(), 80u);
  EXPECT_GT(texts.size(), 50u);
}

TEST(SyntheticValues, NeighbouringGroupsNeverShareACommonValue) {
  const SyntheticValues values(11);
  for (std::int64_t folder = 0; folder < 30; ++folder) {
    for (std::int32_t group = 0; group < 2500; ++group) {
      for (std::int32_t type = 1; type <= 3; ++type) {
        ASSERT_NE(values.CommonValue(folder, group, 21, type), values.CommonValue(folder, group + 1, 21, type))
            << "folder " << folder << " group " << group << " type " << type;
      }
    }
  }
}

TEST(SyntheticValues, OneGroupOfOneFolderSharesItsCommonValue) {
  const SyntheticValues values(11);
  EXPECT_EQ(values.CommonValue(4, 2, 25, 3), values.CommonValue(4, 2, 25, 3));
  EXPECT_NE(values.CommonValue(4, 2, 25, 1), values.CommonValue(5, 2, 25, 1));
}

}  // namespace
