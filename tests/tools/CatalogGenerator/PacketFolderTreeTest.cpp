// The folder tree of a generated packet: parents, leaves, and nested bounds
// checked against a plain recursive numbering written here.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tools/CatalogGenerator/PacketFolderTree.h"

namespace {

// The nested-set numbering by definition: enter a folder (left), visit its
// children in position order, leave it (right). Children are found by
// scanning for the parent, independently of the tree's own arithmetic.
std::vector<NestedBounds> ReferenceBounds(const PacketFolderTree& tree, std::int32_t firstLeft) {
  std::vector<NestedBounds> bounds(tree.Folders());
  std::int32_t counter = firstLeft;
  std::function<void(std::int32_t)> visit = [&](std::int32_t folder) {
    bounds[folder].left = counter++;
    for (std::int32_t child = 0; child < tree.Folders(); ++child)
      if (tree.Parent(child) == folder) visit(child);
    bounds[folder].right = counter++;
  };
  visit(0);
  return bounds;
}

TEST(PacketFolderTree, ParentsFillTheTreeBreadthFirst) {
  const PacketFolderTree tree(7, 2);
  EXPECT_EQ(tree.Parent(0), -1);
  EXPECT_EQ(tree.Parent(1), 0);
  EXPECT_EQ(tree.Parent(2), 0);
  EXPECT_EQ(tree.Parent(3), 1);
  EXPECT_EQ(tree.Parent(4), 1);
  EXPECT_EQ(tree.Parent(5), 2);
  EXPECT_EQ(tree.Parent(6), 2);
}

TEST(PacketFolderTree, LeavesAreFoldersWithoutChildren) {
  const PacketFolderTree tree(6, 2);  // folder 2 has one child (5), 3..5 none
  EXPECT_FALSE(tree.IsLeaf(0));
  EXPECT_FALSE(tree.IsLeaf(1));
  EXPECT_FALSE(tree.IsLeaf(2));
  EXPECT_TRUE(tree.IsLeaf(3));
  EXPECT_TRUE(tree.IsLeaf(4));
  EXPECT_TRUE(tree.IsLeaf(5));
  EXPECT_TRUE(PacketFolderTree(1, 3).IsLeaf(0));
}

TEST(PacketFolderTree, BoundsOfASmallTreeAreTheTriggersNumbers) {
  // What the bound trigger gives a root, two children and a grandchild under
  // the first child, inserted in that order: root 1..8, child 2..5 with the
  // grandchild 3..4, child 6..7.
  const std::vector<NestedBounds> bounds = PacketFolderTree(4, 2).Bounds(1);
  ASSERT_EQ(bounds.size(), 4u);
  EXPECT_EQ(bounds[0].left, 1);
  EXPECT_EQ(bounds[0].right, 8);
  EXPECT_EQ(bounds[1].left, 2);
  EXPECT_EQ(bounds[1].right, 5);
  EXPECT_EQ(bounds[2].left, 6);
  EXPECT_EQ(bounds[2].right, 7);
  EXPECT_EQ(bounds[3].left, 3);
  EXPECT_EQ(bounds[3].right, 4);
}

TEST(PacketFolderTree, BoundsMatchARecursiveNumberingForManyShapes) {
  for (std::int32_t folders : {1, 2, 3, 10, 21, 100}) {
    for (std::int32_t fanOut : {1, 2, 3, 5, 200}) {
      const PacketFolderTree tree(folders, fanOut);
      const std::vector<NestedBounds> expected = ReferenceBounds(tree, 41);
      const std::vector<NestedBounds> actual = tree.Bounds(41);
      ASSERT_EQ(actual.size(), expected.size());
      for (std::int32_t folder = 0; folder < folders; ++folder) {
        EXPECT_EQ(actual[folder].left, expected[folder].left) << folders << "/" << fanOut << " folder " << folder;
        EXPECT_EQ(actual[folder].right, expected[folder].right) << folders << "/" << fanOut << " folder " << folder;
      }
    }
  }
}

TEST(PacketFolderTree, AChainOfTwentyThousandNeedsNoRecursion) {
  const std::vector<NestedBounds> bounds = PacketFolderTree(20000, 1).Bounds(1);
  EXPECT_EQ(bounds.front().left, 1);
  EXPECT_EQ(bounds.front().right, 40000);
  EXPECT_EQ(bounds.back().left, 20000);
  EXPECT_EQ(bounds.back().right, 20001);
}

TEST(PacketFolderTree, RefusesATreeWithoutRootOrFanOut) {
  EXPECT_THROW(PacketFolderTree(0, 2), std::invalid_argument);
  EXPECT_THROW(PacketFolderTree(3, 0), std::invalid_argument);
}

}  // namespace
