// CTemplate: an OBJECT row and what its standard sizes share: the model, the
// object type, one record per column with the value common to all sizes.
// Owned by its table; owns its sizes. A client never holds a template.
//
// Not thread-safe: used under the frame lock, or, during a packet load, by
// the one loader thread whose chunk holds this template's key.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "catalog/TemplateAttribute.h"

class CFolderTable;
class CStandartSize;

class CTemplate {
 public:
  CTemplate(std::int32_t id, std::wstring name, std::int32_t modelId, std::wstring type, CFolderTable* table);
  ~CTemplate();

  CTemplate(const CTemplate&) = delete;
  CTemplate& operator=(const CTemplate&) = delete;

  std::int32_t GetId() const { return id_; }
  const std::wstring& GetName() const { return name_; }
  const std::wstring& GetType() const { return type_; }
  std::int32_t GetModelId() const { return modelId_; }
  CFolderTable* GetTable() const { return table_; }

  void SetType(std::wstring type) { type_ = std::move(type); }
  void SetModelId(std::int32_t modelId) { modelId_ = modelId; }
  void SetTable(CFolderTable* table) { table_ = table; }

  std::vector<TemplateAttribute>& Records() { return records_; }
  const std::vector<TemplateAttribute>& Records() const { return records_; }
  // The record of this number, or null.
  TemplateAttribute* FindRecord(std::int32_t number);
  // Drops the record of this number, keeping the order of the others.
  void EraseRecord(std::int32_t number);

  std::size_t SizeCount() const { return sizes_.size(); }
  CStandartSize* Size(std::size_t index) const { return sizes_[index].get(); }
  CStandartSize* AppendSize(std::unique_ptr<CStandartSize> size);
  // Takes the size out of this template and hands it over.
  std::unique_ptr<CStandartSize> DetachSize(CStandartSize* size);

 private:
  // Sizes came or went: the packet's identifier index must go.
  void NoteSizesChanged() const;

  std::int32_t id_;
  std::wstring name_;
  std::wstring type_;
  std::int32_t modelId_;
  CFolderTable* table_;
  std::vector<TemplateAttribute> records_;
  std::vector<std::unique_ptr<CStandartSize>> sizes_;
};
