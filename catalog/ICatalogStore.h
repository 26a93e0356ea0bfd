// ICatalogStore: everything the catalog tree needs of its database, declared
// here so that catalog classes never see SQL or the storage layer. The
// provider implements it over its ...Operation classes, the way an Env lets a
// database run on any file system.
//
// Each write is one committed transaction; the caller changes memory only
// after a write returned success. A refusal comes back as false, null or 0
// with a report; a database failure is thrown and unwinds to the frame.
// Called under the frame lock only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "formula/Value.h"

class CAttribute;
class CFolder;
class CFolderTable;
class CPacket;
class CStandartSize;
class CTemplate;
class IContentStore;

class ICatalogStore {
 public:
  virtual ~ICatalogStore() = default;

  // The same database as the content hanging on sizes sees it: models,
  // projections, files. Declared by the content classes, which reach it
  // through their size's table.
  virtual IContentStore& Content() = 0;

  // The database path as the provider was given it; placed objects name
  // their cache entries after it.
  virtual const std::wstring& DatabaseName() const = 0;

  // Reads everything below the folders of the packet into memory.
  virtual bool LoadPacket(CPacket* packet) = 0;

  // Folders. A new folder comes back with its packet set, not yet attached
  // to its parent.
  virtual std::unique_ptr<CFolder> AddChildFolder(CFolder* parent, const std::wstring& name) = 0;
  virtual bool RenameFolder(CFolder* folder, const std::wstring& name) = 0;
  // The folder's row with its templates, their sizes, values and columns.
  virtual bool DeleteFolder(CFolder* folder) = 0;
  virtual bool MoveFolder(CFolder* folder, CFolder* newParent) = 0;

  // Columns, rows and values of a table.
  virtual bool AddAttribute(CFolderTable* table, const std::wstring& name, const std::wstring& description,
                            std::int32_t type, std::int32_t number) = 0;
  virtual bool DeleteAttribute(CAttribute* attribute) = 0;
  // The new size's id, 0 on refusal.
  virtual std::int32_t AddStdSize(CTemplate* owner, const std::wstring& identifier) = 0;
  virtual bool DeleteStdSize(CStandartSize* size) = 0;
  virtual bool SetValue(CAttribute* attribute, CStandartSize* size, const Value& value) = 0;
  virtual bool RemoveValue(CAttribute* attribute, CStandartSize* size) = 0;

  // Templates; the new template's id, 0 on refusal.
  virtual std::int32_t CreateNewTemplate(CFolderTable* table, const std::wstring& name) = 0;
  virtual std::int32_t CreateTemplateFor(CStandartSize* size, const std::wstring& name) = 0;
  virtual bool SetTemplateType(CTemplate* owner, const std::wstring& type) = 0;

  // One column of a column's rows in every template of its folder; `column`
  // is a column name of our own, never client text.
  virtual bool SetAttributeParam(CAttribute* attribute, const char* column, std::int32_t value) = 0;
  virtual bool SetAttributeParam(CAttribute* attribute, const char* column, const std::wstring& value) = 0;
  // The dictionary id of a name or description, made if the catalog has
  // none; 0 when it could not be had.
  virtual std::int32_t GetAttributeNameId(const std::wstring& name) = 0;
  virtual std::int32_t GetAttributeDescriptionId(const std::wstring& description) = 0;
};
