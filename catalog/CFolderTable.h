// CFolderTable: the table of one folder as clients see it: attributes are
// its columns, standard sizes its rows. Rows live in templates, which hold
// what their sizes share; the table's rows are the sizes of all its
// templates, in template order. Every folder owns exactly one table, made
// with the folder and filled when the folder's packet is loaded.
//
// Invariant: after any completed operation every template holds a record of
// every column, agreeing with the column on all fields both have.
//
// Not thread-safe: used under the frame lock, or by the packet loader.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "catalog/AttributeContainer.h"
#include "formula/Value.h"

class CAttribute;
class CFolder;
class CStandartSize;
class CTemplate;
class ICatalogStore;
class IFormulaDataSource;

class CFolderTable {
 public:
  explicit CFolderTable(CFolder* folder);
  // Templates with their sizes first, then the columns.
  ~CFolderTable();

  CFolderTable(const CFolderTable&) = delete;
  CFolderTable& operator=(const CFolderTable&) = delete;

  CFolder* GetFolder() const { return folder_; }
  // The database of the folder's packet, for the writes of the table and
  // of what lies in it.
  ICatalogStore& Store() const;
  // A template without sizes still counts as content.
  bool IsEmpty() const { return templates_.empty(); }

  std::size_t TemplateCount() const { return templates_.size(); }
  CTemplate* Template(std::size_t index) const { return templates_[index].get(); }
  CTemplate* AppendTemplate(std::unique_ptr<CTemplate> entry);
  // Hands all templates over, leaving the table without any.
  std::vector<std::unique_ptr<CTemplate>> TakeTemplates();
  bool HoldsTemplate(const CTemplate* entry) const;
  // Drops all templates and columns, for a load that starts over.
  void Clear();
  // Passes on to the packet that this table's sizes may have changed; the
  // templates call it for their own sizes.
  void NoteSizesChanged() const;

  AttributeContainer& Attributes() { return attributes_; }
  // One column per record of the first template, in the records' order.
  void BuildAttributesFromFirstTemplate();

  // Columns.
  std::int32_t GetAttributeCount() const { return static_cast<std::int32_t>(attributes_.Count()); }
  CAttribute* _GetAttribute(std::int32_t index) const;
  CAttribute* FindAttribute(const std::wstring& name) const { return attributes_.FindByName(name); }
  // A negative number asks for the next free one from 21 on.
  CAttribute* _AddAttribute(const std::wstring& name, const std::wstring& description, std::int32_t type,
                            std::int32_t number);
  bool _DeleteAttribute(CAttribute* attribute);

  // Rows.
  std::int32_t GetStdSizeCount() const;
  CStandartSize* _GetStdSize(std::int32_t index) const;
  CStandartSize* FindStdSize(const std::wstring& identifier) const;
  CStandartSize* FindStdSizeById(std::int32_t id) const;
  CStandartSize* _AddStdSize(const std::wstring& identifier);
  bool _DeleteStdSize(CStandartSize* size);

  // Values.
  bool _GetValue(CAttribute* attribute, CStandartSize* size, ValueView& out, const NumberFormat& format);
  bool _SetValue(CAttribute* attribute, CStandartSize* size, const Value& value);
  bool _RemoveValue(CAttribute* attribute, CStandartSize* size);

  // Templates.
  CTemplate* CreateNewTemplate(const std::wstring& name);
  bool CreateTemplateFor(CStandartSize* size);
  std::wstring GetNewStdSizeName(const std::wstring& identifier) const;
  std::wstring GetNewTemplateName(const std::wstring& name) const;

 private:
  // The checks that writes and removals share, with their reports.
  bool MayChangeValue(CAttribute* attribute, CStandartSize* size, const char* method) const;
  // The template's common value of this number goes down to all its sizes.
  static void MoveTemplateValueToSizes(CTemplate* owner, std::int32_t number);
  // "\nfolder = ...\npacket = ..." and the like, for failure reports.
  std::wstring FolderAndPacketLines() const;

  CFolder* folder_;
  std::vector<std::unique_ptr<CTemplate>> templates_;
  AttributeContainer attributes_;
};
