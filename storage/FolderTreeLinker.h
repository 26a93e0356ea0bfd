// FolderTreeLinker: turns the rows of PACKET and FOLDER into the packets'
// folder trees, in time linear in the number of folders. Folders are linked
// by ID_PARENT alone; a parentless folder that a packet names is that
// packet's root (the last packet to name it, if several do). Each folder's
// children keep the order their rows came in. Folders that no packet
// reaches are destroyed with the linker.
//
// Used by one load on one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CFolder;
class CPacket;

class FolderTreeLinker {
 public:
  FolderTreeLinker();
  ~FolderTreeLinker();

  // A packet whose root is the folder with this id.
  void AddPacket(std::int32_t rootFolderId, CPacket* packet);
  void AddFolder(std::unique_ptr<CFolder> folder, std::optional<std::int32_t> parentId);

  // Hands every folder a packet reaches to its parent or packet. Returns the
  // name of the first folder, in the order they were added, that no packet
  // reaches; nothing when all are placed.
  std::optional<std::wstring> Link();

 private:
  struct Row {
    std::unique_ptr<CFolder> folder;  // empty once placed in a tree
    std::int32_t id;
    std::int32_t parentId;
    bool hasParent;
  };
  struct Root {
    std::int32_t folderId;
    CPacket* packet;
  };

  std::vector<Row> rows_;
  std::vector<Root> roots_;
};
