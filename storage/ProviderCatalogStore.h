// ProviderCatalogStore: a provider's catalog database as the catalog tree
// sees it. Every method is one ...Operation call; the operations find the
// provider again through the catalog objects they are given, so the only
// state here is the provider whose attribute dictionaries it serves.
//
// Owned by its CDataProvider; under the frame lock like the provider.
#pragma once

#include "catalog/ICatalogStore.h"

class CDataProvider;

class ProviderCatalogStore final : public ICatalogStore {
 public:
  explicit ProviderCatalogStore(CDataProvider& provider) : provider_(provider) {}

  IContentStore& Content() override;
  const std::wstring& DatabaseName() const override;
  bool LoadPacket(CPacket* packet) override;

  std::unique_ptr<CFolder> AddChildFolder(CFolder* parent, const std::wstring& name) override;
  bool RenameFolder(CFolder* folder, const std::wstring& name) override;
  bool DeleteFolder(CFolder* folder) override;
  bool MoveFolder(CFolder* folder, CFolder* newParent) override;

  bool AddAttribute(CFolderTable* table, const std::wstring& name, const std::wstring& description,
                    std::int32_t type, std::int32_t number) override;
  bool DeleteAttribute(CAttribute* attribute) override;
  std::int32_t AddStdSize(CTemplate* owner, const std::wstring& identifier) override;
  bool DeleteStdSize(CStandartSize* size) override;
  bool SetValue(CAttribute* attribute, CStandartSize* size, const Value& value) override;
  bool RemoveValue(CAttribute* attribute, CStandartSize* size) override;

  std::int32_t CreateNewTemplate(CFolderTable* table, const std::wstring& name) override;
  std::int32_t CreateTemplateFor(CStandartSize* size, const std::wstring& name) override;
  bool SetTemplateType(CTemplate* owner, const std::wstring& type) override;

  bool SetAttributeParam(CAttribute* attribute, const char* column, std::int32_t value) override;
  bool SetAttributeParam(CAttribute* attribute, const char* column, const std::wstring& value) override;
  std::int32_t GetAttributeNameId(const std::wstring& name) override;
  std::int32_t GetAttributeDescriptionId(const std::wstring& description) override;

 private:
  CDataProvider& provider_;
};
