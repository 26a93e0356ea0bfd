// CFolder: a node of a packet's folder tree. A real folder is a FOLDER row;
// a virtual folder (id 0) has no row and exists only in memory, made when a
// packet's load splits a folder whose templates differ in their columns.
// Each folder owns its children and its one table.
//
// Not thread-safe: every use runs under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CFolderTable;
class CPacket;
class CStandartSize;

class CFolder {
 public:
  CFolder(std::int32_t id, std::wstring name);
  // Children first, then the table. Iterative, so a deep tree cannot exhaust
  // the stack.
  ~CFolder();

  CFolder(const CFolder&) = delete;
  CFolder& operator=(const CFolder&) = delete;

  std::int32_t GetId() const { return id_; }
  bool IsVirtual() const { return id_ == 0; }
  const std::wstring& GetName() const { return name_; }
  CFolder* GetParent() const { return parent_; }
  CPacket* GetPacket() const { return packet_; }

  // Memory only: for the loaders and for writes that have been committed.
  void AssignName(std::wstring name) { name_ = std::move(name); }
  void SetPacket(CPacket* packet) { packet_ = packet; }
  // Sets the packet on this folder and every folder below it.
  void SetPacketOfSubtree(CPacket* packet);
  // Appends the child and makes this folder its parent.
  CFolder* AppendChild(std::unique_ptr<CFolder> child);
  // Room for this many children in all, for a loader that knows the count.
  void ReserveChildren(std::size_t count) { children_.reserve(count); }
  std::size_t ChildCount() const { return children_.size(); }
  CFolder* Child(std::size_t index) const { return children_[index].get(); }
  // The child with exactly this name, case counting; null if none.
  CFolder* FindChild(const std::wstring& name) const;
  // Tells the packet whose tree holds this folder that its sizes may have
  // changed. The packet is found through the root: while a folder is
  // detached from one tree or being appended to another, its own packet
  // may still be the old one.
  void NoteSizesChanged() const;
  // The table without loading anything.
  CFolderTable* TableInMemory() { return table_ ? table_.get() : MakeTable(); }

  // The gate to all content: loads the packet first. Null, with a report,
  // when the load fails.
  CFolderTable* _GetTable();
  // Loads the packet (for the virtual folders), then counts the children.
  std::int32_t _GetChildFolderCount();
  CFolder* _GetChildFolder(std::int32_t index);
  CFolder* _AddChildFolder(const std::wstring& name);
  bool _DeleteChildFolder(CFolder* child);
  bool _MoveTo(CFolder* newParent);

  // Depth first, each folder's own table before its children; the tables
  // come through _GetTable, so the packet is loaded. Null if none.
  CStandartSize* FindStdSize(const std::wstring& identifier);
  CStandartSize* FindStdSizeById(std::int32_t id);

 private:
  CFolderTable* MakeTable();
  template <typename Find>
  CStandartSize* FindInSubtree(Find&& find);
  std::unique_ptr<CFolder> DetachChild(CFolder* child);
  // The first move refusal that applies, with its report; true if none.
  bool MayMoveTo(CFolder* newParent);

  std::int32_t id_;
  std::wstring name_;
  std::vector<std::unique_ptr<CFolder>> children_;
  // Made on first use: a catalog holds tens of thousands of folders, and
  // those of packets nobody opens never need one. A packet's load makes the
  // tables of all its folders, so searches over loaded packets, which run
  // on worker threads, only ever read them.
  std::unique_ptr<CFolderTable> table_;
  CFolder* parent_ = nullptr;
  CPacket* packet_ = nullptr;
};
