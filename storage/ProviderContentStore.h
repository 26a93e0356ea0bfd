// ProviderContentStore: a provider's catalog database and caches as the
// content hanging on sizes sees them. Reads of content go to the provider's
// caches, writes to one ...Operation call each.
//
// Owned by its CDataProvider; under the frame lock like the provider.
#pragma once

#include "content/IContentStore.h"

class CDataProvider;

class ProviderContentStore final : public IContentStore {
 public:
  explicit ProviderContentStore(CDataProvider& provider) : provider_(provider) {}

  const ModelInfo* GetModelInfo(CStdModel* model) override;
  const ByteData* GetModelIcon(std::int32_t modelId) override;
  std::int32_t FindModelByDigest(const std::wstring& digest) override;
  std::int32_t CreateModel(const std::wstring& path, const std::wstring& iconPath, const std::wstring& digest,
                           std::int32_t version) override;
  bool SetOtherModel(CStdModel* model, std::int32_t modelId) override;

  const std::wstring* GetFragmentFile(CStdPrj* projection) override;
  const ByteData* GetFragmentIcon(std::int32_t packetId, std::int32_t fragmentId) override;
  bool LoadProjections(CStdProjs* list) override;
  std::unique_ptr<CStdPrj> CopyProjection(CStdProjs* list, const CStdPrj& other) override;
  std::int32_t AddFragment(const std::wstring& path, const std::wstring& iconPath,
                           const std::wstring& digest) override;
  std::unique_ptr<CStdPrj> AddProjection(CStdProjs* list, std::int32_t fragmentId, const std::wstring& digest,
                                         const std::wstring& name, std::int32_t type,
                                         std::int32_t viewType) override;
  bool DeleteProjection(CStdPrj* projection) override;
  bool UpdateProjectionType(CStdPrj* projection, std::int32_t type, const std::wstring& name,
                            std::int32_t& projectionId, std::wstring& resolvedName) override;
  bool UpdateViewType(CStdPrj* projection, std::int32_t viewType) override;
  bool UpdateFragment(CStdPrj* projection, const CStdPrj& other) override;

  bool LoadFiles(CStdFiles* files) override;
  const std::wstring* GetFilePath(const FileRecord& record) override;
  const SpecList& GetSpecs(CTemplate* owner) override;
  const SpecList* CachedSpecs(std::int32_t templateId) override;
  void DropSpecs(std::int32_t templateId) override;
  bool LoadSpecColumns(std::int32_t specId, std::vector<CSpec::StoredColumn>& columns) override;
  const ByteData* GetRepresentation(std::int32_t templateId) override;
  void ForgetRepresentation() override;
  bool SetTemplateRepresentationData(CTemplate* owner, const unsigned char* data, std::int32_t length,
                                     const std::wstring& digest) override;

 private:
  CDataProvider& provider_;
};
