#include "storage/ProviderCatalogStore.h"

#include "catalog/CFolder.h"
#include "storage/AttributeOperation.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/PacketOperation.h"
#include "storage/TableOperation.h"

IContentStore& ProviderCatalogStore::Content() { return provider_.Content(); }

const std::wstring& ProviderCatalogStore::DatabaseName() const { return provider_.GetDatabaseName(); }

bool ProviderCatalogStore::LoadPacket(CPacket* packet) { return BaseOperation::LoadPacket(packet); }

std::unique_ptr<CFolder> ProviderCatalogStore::AddChildFolder(CFolder* parent, const std::wstring& name) {
  return PacketOperation::AddChildFolder(parent, name);
}

bool ProviderCatalogStore::RenameFolder(CFolder* folder, const std::wstring& name) {
  return PacketOperation::RenameFolder(folder, name);
}

bool ProviderCatalogStore::DeleteFolder(CFolder* folder) { return PacketOperation::DeleteFolder(folder); }

bool ProviderCatalogStore::MoveFolder(CFolder* folder, CFolder* newParent) {
  return PacketOperation::MoveFolder(folder, newParent);
}

bool ProviderCatalogStore::AddAttribute(CFolderTable* table, const std::wstring& name, const std::wstring& description,
                                        std::int32_t type, std::int32_t number) {
  return TableOperation::AddAttribute(table, name, description, type, number);
}

bool ProviderCatalogStore::DeleteAttribute(CAttribute* attribute) { return TableOperation::DeleteAttribute(attribute); }

std::int32_t ProviderCatalogStore::AddStdSize(CTemplate* owner, const std::wstring& identifier) {
  return TableOperation::AddStdSize(owner, identifier);
}

bool ProviderCatalogStore::DeleteStdSize(CStandartSize* size) { return TableOperation::DeleteStdSize(size); }

bool ProviderCatalogStore::SetValue(CAttribute* attribute, CStandartSize* size, const Value& value) {
  return TableOperation::SetValue(attribute, size, value);
}

bool ProviderCatalogStore::RemoveValue(CAttribute* attribute, CStandartSize* size) {
  return TableOperation::RemoveValue(attribute, size);
}

std::int32_t ProviderCatalogStore::CreateNewTemplate(CFolderTable* table, const std::wstring& name) {
  return TableOperation::CreateNewTemplate(table, name);
}

std::int32_t ProviderCatalogStore::CreateTemplateFor(CStandartSize* size, const std::wstring& name) {
  return TableOperation::CreateTemplateFor(size, name);
}

bool ProviderCatalogStore::SetTemplateType(CTemplate* owner, const std::wstring& type) {
  return TableOperation::SetTemplateType(owner, type);
}

bool ProviderCatalogStore::SetAttributeParam(CAttribute* attribute, const char* column, std::int32_t value) {
  return AttributeOperation::SetAtrParam(attribute, column, value);
}

bool ProviderCatalogStore::SetAttributeParam(CAttribute* attribute, const char* column, const std::wstring& value) {
  return AttributeOperation::SetAtrParam(attribute, column, value);
}

std::int32_t ProviderCatalogStore::GetAttributeNameId(const std::wstring& name) {
  return provider_.GetAttributeNameId(name);
}

std::int32_t ProviderCatalogStore::GetAttributeDescriptionId(const std::wstring& description) {
  return provider_.GetAttributeDescriptionId(description);
}
