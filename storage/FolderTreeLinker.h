// FolderTreeLinker: turns the rows of PACKET and FOLDER into the packets'
// folder trees, in time linear in the number of folders. Folders are linked
// by ID_PARENT alone; a parentless folder that a packet names is that
// packet's root (the last packet to name it, if several do). Each folder's
// children keep the order their rows came in. Folders that no packet
// reaches are never made.
//
// A folder row is kept as its id, parent and stored name bytes, and the
// folders are made only when the rows are linked: the fetch loop then leaves
// the client's caches alone, and each tree's folders are made together, each
// just before its parent takes it.
//
// Used by one load on one thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CFolder;
class CPacket;

class FolderTreeLinker {
 public:
  FolderTreeLinker();
  ~FolderTreeLinker();

  // A packet whose root is the folder with this id.
  void AddPacket(std::int32_t rootFolderId, CPacket* packet);
  // `storedName` is the NAME column's bytes, copied here.
  void AddFolder(std::int32_t id, std::string_view storedName, std::optional<std::int32_t> parentId);

  // Hands every folder a packet reaches to its parent or packet. Returns the
  // name of the first folder, in the order they were added, that no packet
  // reaches; nothing when all are placed.
  std::optional<std::wstring> Link();

 private:
  struct Row {
    std::int32_t id;
    std::int32_t parentId;
    bool hasParent;
  };
  struct Root {
    std::int32_t folderId;
    CPacket* packet;
  };

  // The name bytes of row r are storedNames_[nameEnds_[r - 1] .. nameEnds_[r]).
  std::string_view StoredName(std::size_t row) const;

  std::vector<Row> rows_;
  std::string storedNames_;
  std::vector<std::size_t> nameEnds_;
  std::vector<Root> roots_;
};
