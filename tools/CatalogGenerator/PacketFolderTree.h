// PacketFolderTree: the folder tree of one generated packet, as positions.
// Folder 0 is the root; the tree is filled breadth first, so folder k (k > 0)
// has the parent (k - 1) / fanOut and the children fanOut * k + 1 onwards.
// Inserting the folders in position order keeps every parent ahead of its
// children.
//
// Also gives the nested bounds (LEFT_BOUND, RIGHT_BOUND) that the folder
// bound trigger would have given these rows, inserted in position order, so
// that the generator can write them itself with the trigger switched off.
//
// Immutable after construction; any thread may read it.
#pragma once

#include <cstdint>
#include <vector>

struct NestedBounds {
  std::int32_t left = 0;
  std::int32_t right = 0;
};

class PacketFolderTree {
 public:
  PacketFolderTree(std::int32_t folders, std::int32_t fanOut);

  std::int32_t Folders() const { return folders_; }
  // The parent's position; -1 for the root.
  std::int32_t Parent(std::int32_t folder) const;
  bool IsLeaf(std::int32_t folder) const;
  // Bounds of every folder by position. The root takes firstLeft and the
  // tree spans firstLeft .. firstLeft + 2 * Folders() - 1, children lying
  // inside their parent in position order.
  std::vector<NestedBounds> Bounds(std::int32_t firstLeft) const;

 private:
  std::int64_t FirstChild(std::int32_t folder) const { return std::int64_t{fanOut_} * folder + 1; }

  std::int32_t folders_;
  std::int32_t fanOut_;
};
