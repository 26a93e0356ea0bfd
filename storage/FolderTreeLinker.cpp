#include "storage/FolderTreeLinker.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_map>

#include "catalog/CFolder.h"
#include "catalog/CPacket.h"
#include "platform/TextCodec.h"

namespace {

// Row numbers are 32-bit: a catalog's ids are, so its rows fit.
using RowNumber = std::uint32_t;
constexpr RowNumber kNoRow = std::numeric_limits<RowNumber>::max();

// The row of each folder id, the last one should an id repeat. Ids come from
// a generator and are nearly always dense, so a flat table over their range
// serves; scattered ids get a hash table instead.
class RowOfId {
 public:
  template <typename IdOfRow>
  RowOfId(std::size_t rows, IdOfRow idOfRow) {
    if (rows == 0) return;
    std::int64_t lowest = idOfRow(0);
    std::int64_t highest = lowest;
    for (std::size_t row = 1; row < rows; ++row) {
      lowest = std::min<std::int64_t>(lowest, idOfRow(row));
      highest = std::max<std::int64_t>(highest, idOfRow(row));
    }
    lowest_ = lowest;
    if (static_cast<std::uint64_t>(highest - lowest) < 2 * rows + 64) {
      dense_.assign(static_cast<std::size_t>(highest - lowest) + 1, kNoRow);
      for (std::size_t row = 0; row < rows; ++row) dense_[idOfRow(row) - lowest_] = static_cast<RowNumber>(row);
    } else {
      sparse_.reserve(rows);
      for (std::size_t row = 0; row < rows; ++row) sparse_[idOfRow(row)] = static_cast<RowNumber>(row);
    }
  }

  RowNumber Find(std::int32_t id) const {
    if (!dense_.empty()) {
      const std::int64_t offset = std::int64_t{id} - lowest_;
      return offset >= 0 && offset < static_cast<std::int64_t>(dense_.size()) ? dense_[offset] : kNoRow;
    }
    const auto found = sparse_.find(id);
    return found == sparse_.end() ? kNoRow : found->second;
  }

 private:
  std::int64_t lowest_ = 0;
  std::vector<RowNumber> dense_;
  std::unordered_map<std::int32_t, RowNumber> sparse_;
};

// Each row's children as one flat list: the children of row r are
// `rows[start[r]] .. rows[start[r + 1] - 1]`, in row order.
struct ChildRows {
  std::vector<RowNumber> start;
  std::vector<RowNumber> rows;
};

ChildRows GroupByParent(const std::vector<RowNumber>& parentRows) {
  const std::size_t count = parentRows.size();
  ChildRows children;
  children.start.assign(count + 1, 0);
  for (RowNumber parent : parentRows) {
    if (parent != kNoRow) ++children.start[parent + 1];
  }
  for (std::size_t row = 0; row < count; ++row) children.start[row + 1] += children.start[row];
  children.rows.resize(children.start[count]);
  std::vector<RowNumber> next(children.start.begin(), children.start.end() - 1);
  for (std::size_t row = 0; row < count; ++row) {
    if (parentRows[row] != kNoRow) children.rows[next[parentRows[row]]++] = static_cast<RowNumber>(row);
  }
  return children;
}

}  // namespace

FolderTreeLinker::FolderTreeLinker() = default;
FolderTreeLinker::~FolderTreeLinker() = default;

void FolderTreeLinker::AddPacket(std::int32_t rootFolderId, CPacket* packet) {
  roots_.push_back(Root{rootFolderId, packet});
}

void FolderTreeLinker::AddFolder(std::int32_t id, std::string_view storedName, std::optional<std::int32_t> parentId) {
  rows_.push_back(Row{id, parentId.value_or(0), parentId.has_value()});
  storedNames_.append(storedName);
  nameEnds_.push_back(storedNames_.size());
}

std::string_view FolderTreeLinker::StoredName(std::size_t row) const {
  const std::size_t begin = row == 0 ? 0 : nameEnds_[row - 1];
  return std::string_view(storedNames_).substr(begin, nameEnds_[row] - begin);
}

std::optional<std::wstring> FolderTreeLinker::Link() {
  const RowOfId rowOfId(rows_.size(), [this](std::size_t row) { return rows_[row].id; });

  std::vector<RowNumber> parentRows(rows_.size(), kNoRow);
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].hasParent) parentRows[row] = rowOfId.Find(rows_[row].parentId);
  }
  const ChildRows children = GroupByParent(parentRows);

  // The root row of each packet; a later packet naming the same root takes
  // it from an earlier one, which stays without a tree.
  std::vector<CPacket*> packetOfRow(rows_.size(), nullptr);
  for (const Root& root : roots_) {
    const RowNumber row = rowOfId.Find(root.folderId);
    if (row != kNoRow && !rows_[row].hasParent) packetOfRow[row] = root.packet;
  }

  // Every row a root reaches, tree by tree and breadth first within a tree,
  // so that each comes after its parent and a tree's folders are made
  // together. A row is reached at most once, through its one parent row.
  std::vector<RowNumber> rootRows;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (packetOfRow[row] != nullptr) rootRows.push_back(static_cast<RowNumber>(row));
  }
  std::vector<RowNumber> reached;
  reached.reserve(rows_.size());
  for (RowNumber root : rootRows) {
    const std::size_t treeStart = reached.size();
    reached.push_back(root);
    for (std::size_t next = treeStart; next < reached.size(); ++next) {
      const RowNumber parent = reached[next];
      for (RowNumber child = children.start[parent]; child < children.start[parent + 1]; ++child) {
        packetOfRow[children.rows[child]] = packetOfRow[parent];
        reached.push_back(children.rows[child]);
      }
    }
  }
  // Made in reverse: a folder takes its children, made just before, while
  // it has no parent of its own yet, so that no append walks up a tree.
  std::vector<std::unique_ptr<CFolder>> made(rows_.size());
  for (auto row = reached.rbegin(); row != reached.rend(); ++row) {
    auto folder = std::make_unique<CFolder>(rows_[*row].id, Cp1251ToWide(StoredName(*row)));
    folder->ReserveChildren(children.start[*row + 1] - children.start[*row]);
    for (RowNumber child = children.start[*row]; child < children.start[*row + 1]; ++child) {
      folder->AppendChild(std::move(made[children.rows[child]]));
    }
    // After the appends, so that they find no packet to tell.
    folder->SetPacket(packetOfRow[*row]);
    made[*row] = std::move(folder);
  }
  for (RowNumber row : rootRows) packetOfRow[row]->SetLinkedRootFolder(std::move(made[row]));

  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (packetOfRow[row] == nullptr) return Cp1251ToWide(StoredName(row));
  }
  return std::nullopt;
}
