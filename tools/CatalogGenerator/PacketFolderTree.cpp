#include "tools/CatalogGenerator/PacketFolderTree.h"

#include <stdexcept>

PacketFolderTree::PacketFolderTree(std::int32_t folders, std::int32_t fanOut) : folders_(folders), fanOut_(fanOut) {
  if (folders < 1 || fanOut < 1) throw std::invalid_argument("a folder tree needs a root and a fan-out of 1 or more");
}

std::int32_t PacketFolderTree::Parent(std::int32_t folder) const { return folder == 0 ? -1 : (folder - 1) / fanOut_; }

bool PacketFolderTree::IsLeaf(std::int32_t folder) const { return FirstChild(folder) >= folders_; }

// Without recursion, since a fan-out of 1 makes a chain as deep as the
// packet is large: subtree sizes from the last position back, then each
// child's left bound from its parent's and its elder sibling's.
std::vector<NestedBounds> PacketFolderTree::Bounds(std::int32_t firstLeft) const {
  std::vector<std::int32_t> subtree(folders_, 1);
  for (std::int32_t folder = folders_ - 1; folder > 0; --folder) subtree[Parent(folder)] += subtree[folder];

  std::vector<NestedBounds> bounds(folders_);
  bounds[0].left = firstLeft;
  for (std::int32_t folder = 0; folder < folders_; ++folder) {
    bounds[folder].right = bounds[folder].left + 2 * subtree[folder] - 1;
    std::int32_t nextLeft = bounds[folder].left + 1;
    for (std::int64_t child = FirstChild(folder); child < folders_ && child < FirstChild(folder) + fanOut_; ++child) {
      bounds[child].left = nextLeft;
      nextLeft += 2 * subtree[child];
    }
  }
  return bounds;
}
