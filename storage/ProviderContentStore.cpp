#include "storage/ProviderContentStore.h"

#include "content/CStdPrj.h"
#include "storage/CDataProvider.h"
#include "storage/ModelOperation.h"
#include "storage/PacketOperation.h"
#include "storage/PrjOperation.h"
#include "storage/TableOperation.h"

const ModelInfo* ProviderContentStore::GetModelInfo(CStdModel* model) { return provider_.GetModelInfo(model); }

const ByteData* ProviderContentStore::GetModelIcon(std::int32_t modelId) { return provider_.GetModelIcon(modelId); }

std::int32_t ProviderContentStore::FindModelByDigest(const std::wstring& digest) {
  return ModelOperation::FindModelByDigest(&provider_, digest);
}

std::int32_t ProviderContentStore::CreateModel(const std::wstring& path, const std::wstring& iconPath,
                                               const std::wstring& digest, std::int32_t version) {
  return ModelOperation::CreateModel(&provider_, path, iconPath, digest, version);
}

bool ProviderContentStore::SetOtherModel(CStdModel* model, std::int32_t modelId) {
  return ModelOperation::SetOtherModel(model, modelId);
}

const std::wstring* ProviderContentStore::GetFragmentFile(CStdPrj* projection) {
  return provider_._GetFragmentFile(projection);
}

const ByteData* ProviderContentStore::GetFragmentIcon(std::int32_t packetId, std::int32_t fragmentId) {
  return provider_.GetFragmentIcon(packetId, fragmentId);
}

bool ProviderContentStore::LoadProjections(CStdProjs* list) { return PrjOperation::LoadProjections(list); }

std::unique_ptr<CStdPrj> ProviderContentStore::CopyProjection(CStdProjs* list, const CStdPrj& other) {
  return PrjOperation::CopyProjection(list, other);
}

std::int32_t ProviderContentStore::AddFragment(const std::wstring& path, const std::wstring& iconPath,
                                               const std::wstring& digest) {
  return PrjOperation::AddFragment(&provider_, path, iconPath, digest);
}

std::unique_ptr<CStdPrj> ProviderContentStore::AddProjection(CStdProjs* list, std::int32_t fragmentId,
                                                             const std::wstring& digest, const std::wstring& name,
                                                             std::int32_t type, std::int32_t viewType) {
  return PrjOperation::AddProjection(list, fragmentId, digest, name, type, viewType);
}

bool ProviderContentStore::DeleteProjection(CStdPrj* projection) { return PrjOperation::DeleteProjection(projection); }

bool ProviderContentStore::UpdateProjectionType(CStdPrj* projection, std::int32_t type, const std::wstring& name,
                                                std::int32_t& projectionId, std::wstring& resolvedName) {
  return PrjOperation::UpdateProjectionType(projection, type, name, projectionId, resolvedName);
}

bool ProviderContentStore::UpdateViewType(CStdPrj* projection, std::int32_t viewType) {
  return PrjOperation::UpdateViewType(projection, viewType);
}

bool ProviderContentStore::UpdateFragment(CStdPrj* projection, const CStdPrj& other) {
  return PrjOperation::UpdateFragment(projection, other);
}

bool ProviderContentStore::LoadFiles(CStdFiles* files) { return PacketOperation::LoadFiles(files); }

const std::wstring* ProviderContentStore::GetFilePath(const FileRecord& record) {
  return provider_._GetFilePath(record);
}

const SpecList& ProviderContentStore::GetSpecs(CTemplate* owner) { return provider_.GetSpecs(owner); }

const SpecList* ProviderContentStore::CachedSpecs(std::int32_t templateId) {
  return provider_.CachedSpecs(templateId);
}

void ProviderContentStore::DropSpecs(std::int32_t templateId) { provider_.DropSpecs(templateId); }

bool ProviderContentStore::LoadSpecColumns(std::int32_t specId, std::vector<CSpec::StoredColumn>& columns) {
  return PacketOperation::LoadSpecColumns(&provider_, specId, columns);
}

const ByteData* ProviderContentStore::GetRepresentation(std::int32_t templateId) {
  return provider_.GetRepresentation(templateId);
}

void ProviderContentStore::ForgetRepresentation() { provider_.ForgetRepresentation(); }

bool ProviderContentStore::SetTemplateRepresentationData(CTemplate* owner, const unsigned char* data,
                                                         std::int32_t length, const std::wstring& digest) {
  return TableOperation::SetTemplateRepresentationData(owner, data, length, digest);
}
