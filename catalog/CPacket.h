// CPacket: the top unit of a catalog, a named folder tree inside one
// database. Its name and folders are read when the provider attaches; the
// rest of its content is read the first time anything below a folder is
// asked for (Load). Owned by its CDataProvider; owns its root folder. The
// packet and everything below it reach the database through the provider's
// ICatalogStore.
//
// Not thread-safe: every use runs under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

class CDataProvider;
class CFolder;
class CStandartSize;
class ICatalogStore;

class CPacket {
 public:
  CPacket(std::int32_t id, std::wstring name, CDataProvider* provider, ICatalogStore& store);
  ~CPacket();

  CPacket(const CPacket&) = delete;
  CPacket& operator=(const CPacket&) = delete;

  std::int32_t GetId() const { return id_; }
  const std::wstring& GetName() const { return name_; }
  CFolder* GetRootFolder() const { return rootFolder_.get(); }
  CDataProvider* GetProvider() const { return provider_; }
  ICatalogStore& Store() const { return store_; }
  bool IsLoaded() const { return loaded_; }

  // Memory only: for the loaders and for writes that have been committed.
  void AssignName(std::wstring name) { name_ = std::move(name); }
  // Takes the root folder and sets this packet on the whole tree.
  void SetRootFolder(std::unique_ptr<CFolder> root);

  // Makes sure the content is in memory; a failed load is tried again on
  // the next call.
  bool Load();

  // The size with exactly this identifier anywhere in the packet, loading
  // the packet first; null if none. Where identifiers repeat, the first in
  // the walk order wins: the root's table, then the folders depth first.
  CStandartSize* FindStdSize(const std::wstring& identifier);
  // Forgets the identifier index; the next lookup builds it again. Called
  // by everything that adds, removes or reorders sizes, templates or folders.
  void DropSizeIndex() { sizeIndex_.reset(); }
  // The distinct texts of the named attribute's values over every size of
  // the packet, in code-unit order, joined by the separator.
  std::wstring AttributeUniqueValues(const std::wstring& attributeName, wchar_t separator);

  // Renames any folder; uses nothing of a packet object, since folder_SetName
  // has no packet at hand.
  static bool _RenameFolder(CFolder* folder, const std::wstring& name);

 private:
  // The lookup as a walk over the tables, loading on the way.
  CStandartSize* FindStdSizeByWalk(const std::wstring& identifier);
  void BuildSizeIndex();

  std::int32_t id_;
  std::wstring name_;
  std::unique_ptr<CFolder> rootFolder_;
  CDataProvider* provider_;
  bool loaded_ = false;
  // Identifier to the first size of that identifier in the walk order, built
  // by the first lookup after the packet is loaded. Invariant: whenever it
  // exists, it holds exactly the sizes the tree holds, so it never points at
  // a destroyed size; any change to the tree's sizes, templates or folders
  // drops it (see CFolder::NoteSizesChanged).
  std::unique_ptr<std::unordered_map<std::wstring, CStandartSize*>> sizeIndex_;
  // The provider's own store; not owned.
  ICatalogStore& store_;
};
