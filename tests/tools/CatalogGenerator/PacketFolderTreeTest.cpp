// The folder tree of a generated packet: parents, leaves, and nested bounds
// checked against a plain recursive numbering written here.
#include <gtest/gtest.h>

#include <functional>
#include <string>
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

// "left,right" of every folder.
std::vector<std::string> BoundsText(const std::vector<NestedBounds>& bounds) {
  std::vector<std::string> texts;
  for (const NestedBounds& b : bounds) texts.push_back(std::to_string(b.left) + "," + std::to_string(b.right));
  return texts;
}

TEST(PacketFolderTree, ParentsFillTheTreeBreadthFirstLeavesHaveNoChildrenAndARootIsNeeded) {
  const PacketFolderTree tree(7, 2);
  std::vector<std::int32_t> parents;
  for (std::int32_t folder = 0; folder < 7; ++folder) parents.push_back(tree.Parent(folder));
  EXPECT_EQ(parents, (std::vector<std::int32_t>{-1, 0, 0, 1, 1, 2, 2}));

  const PacketFolderTree uneven(6, 2);  // folder 2 has one child (5), 3..5 none
  std::vector<bool> leaves;
  for (std::int32_t folder = 0; folder < 6; ++folder) leaves.push_back(uneven.IsLeaf(folder));
  EXPECT_EQ(leaves, (std::vector<bool>{false, false, false, true, true, true}));
  EXPECT_TRUE(PacketFolderTree(1, 3).IsLeaf(0));

  // No tree without a root or a fan-out.
  EXPECT_THROW(PacketFolderTree(0, 2), std::invalid_argument);
  EXPECT_THROW(PacketFolderTree(3, 0), std::invalid_argument);
}

TEST(PacketFolderTree, BoundsMatchARecursiveNumberingForManyShapes) {
  for (std::int32_t folders : {1, 2, 3, 10, 21, 100}) {
    for (std::int32_t fanOut : {1, 2, 3, 5, 200}) {
      const PacketFolderTree tree(folders, fanOut);
      EXPECT_EQ(BoundsText(tree.Bounds(41)), BoundsText(ReferenceBounds(tree, 41))) << folders << "/" << fanOut;
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

}  // namespace
