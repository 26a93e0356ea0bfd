// CFolderTable: the table of one folder: its templates (rows grouped by what
// they share) and its attributes (columns). Every folder owns exactly one,
// made with the folder; it fills when the folder's packet is loaded.
//
// Not thread-safe: used under the frame lock, or by the packet loader while
// no export can run.
#pragma once

class CFolder;

class CFolderTable {
 public:
  explicit CFolderTable(CFolder* folder) : folder_(folder) {}

  CFolderTable(const CFolderTable&) = delete;
  CFolderTable& operator=(const CFolderTable&) = delete;

  CFolder* GetFolder() const { return folder_; }

 private:
  CFolder* folder_;  // the owner
};
