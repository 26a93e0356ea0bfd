// The values of a generated catalog: fixed by the seed and the place, of the
// asked-for kind, and different between neighbouring split groups.
#include <gtest/gtest.h>

#include <set>

#include "tools/CatalogGenerator/SyntheticValues.h"

namespace {

// The same seed and place give the same value; another seed or another
// place mostly another. Each is of the kind of its type.
TEST(SyntheticValues, TheSeedAndThePlaceFixTheValue) {
  const SyntheticValues a(7);
  const SyntheticValues b(7);
  const SyntheticValues other(8);
  int differing = 0;
  std::set<Value> integers;
  std::set<Value> texts;
  for (std::int64_t size = 0; size < 100; ++size) {
    for (std::int32_t type = 1; type <= 3; ++type) {
      EXPECT_EQ(a.SizeValue(size, 21 + type, type), b.SizeValue(size, 21 + type, type));
      EXPECT_EQ(a.CommonValue(size, 1, 30, type), b.CommonValue(size, 1, 30, type));
    }
    differing += a.SizeValue(size, 21, 1) != other.SizeValue(size, 21, 1);
    integers.insert(a.SizeValue(size, 21, 1));
    texts.insert(a.SizeValue(size, 23, 3));
    EXPECT_TRUE(IsInteger(a.SizeValue(size, 21, 1)));
    EXPECT_TRUE(IsDouble(a.SizeValue(size, 22, 2)));
    const Value text = a.SizeValue(size, 23, 3);
    ASSERT_TRUE(IsString(text));
    EXPECT_FALSE(std::get<std::wstring>(text).empty());
  }
  EXPECT_TRUE(IsEmpty(a.SizeValue(0, 21, 4)));
  EXPECT_GT(differing, 90);
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
  // The same group of the next folder has a value of its own.
  EXPECT_NE(values.CommonValue(4, 2, 25, 1), values.CommonValue(5, 2, 25, 1));
}

}  // namespace
