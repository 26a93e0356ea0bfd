// The provider's content caches: models, fragments, attached files,
// thumbnails, specification records and representation data, read from the
// catalog on first request and kept until the caches are cleared.
#include "storage/CDataProvider.h"

#include "catalog/CPacket.h"
#include "catalog/CTemplate.h"
#include "content/CSpec.h"
#include "content/CStdFiles.h"
#include "content/CStdModel.h"
#include "content/CStdPrj.h"
#include "content/TempPath.h"
#include "platform/Report.h"
#include "platform/Files.h"
#include "storage/ModelOperation.h"
#include "storage/PacketOperation.h"
#include "storage/PrjOperation.h"

const ModelInfo* CDataProvider::GetModelInfo(CStdModel* model) {
  const std::int32_t id = model->GetModelId();
  if (const auto found = modelCache_.find(id); found != modelCache_.end()) return found->second.get();
  std::unique_ptr<ModelInfo> info = ModelOperation::GetModel(model, MakeTempPath(std::to_wstring(id), L".qmx"));
  if (!info) {
    Report(L"Не смогли получить модель из-за проблем с базой", "CDataProvider::GetModelInfo");
    return nullptr;
  }
  return modelCache_.emplace(id, std::move(info)).first->second.get();
}

const std::wstring* CDataProvider::_GetFragmentFile(CStdPrj* projection) {
  const std::int32_t id = projection->GetFragmentId();
  if (const auto found = fragmentFileCache_.find(id); found != fragmentFileCache_.end()) return &found->second;
  std::wstring path = MakeTempPath(std::to_wstring(id), L".qfx");
  if (!PrjOperation::SaveFragmentAs(this, id, path)) {
    Report(L"Не смогли сохранить фрагмент", "CDataProvider::_GetFragmentFile");
    return nullptr;
  }
  return &fragmentFileCache_.emplace(id, std::move(path)).first->second;
}

const ByteData* CDataProvider::GetModelIcon(std::int32_t modelId) {
  return modelIconSlot_.Get(modelId, [&] { return ModelOperation::GetModelIcon(this, modelId); });
}

const ByteData* CDataProvider::GetFragmentIcon(std::int32_t packetId, std::int32_t fragmentId) {
  if (const auto packet = packetThumbnails_.find(packetId); packet != packetThumbnails_.end()) {
    const auto found = packet->second.find(fragmentId);
    if (found != packet->second.end() && found->second) return found->second.get();
  }
  return fragmentIconSlot_.Get(fragmentId, [&] { return PrjOperation::GetIcon(this, fragmentId); });
}

const std::wstring* CDataProvider::_GetFilePath(const FileRecord& record) {
  if (const auto found = attachedFileCache_.find(record.id); found != attachedFileCache_.end()) return &found->second;
  const ByteDataPtr content = PacketOperation::GetFile(this, record);
  std::wstring path = MakeTempPath(record.name, record.ext);
  if (!content || content->SaveFile(path) == 0) {
    Report(L"Не смогли сохранить файл " + path + L" ", "CDataProvider::_GetFilePath");
    return nullptr;
  }
  return &attachedFileCache_.emplace(record.id, std::move(path)).first->second;
}

const SpecList& CDataProvider::GetSpecs(CTemplate* owner) {
  const std::int32_t id = owner->GetId();
  if (const auto found = specCache_.find(id); found != specCache_.end()) return found->second;
  SpecList specs = PacketOperation::LoadSpecs(this, owner);
  return specCache_.emplace(id, std::move(specs)).first->second;
}

const ByteData* CDataProvider::GetRepresentation(std::int32_t templateId) {
  return representationSlot_.Get(templateId, [&] { return PacketOperation::GetRepresitation(this, templateId); });
}

bool CDataProvider::_CacheData(CPacket* packet) {
  // Dropped before the read, so that a read that throws leaves none.
  packetThumbnails_.erase(packet->GetId());
  packetThumbnails_[packet->GetId()] = PrjOperation::LoadPacketThumbnails(this, packet->GetId());
  return true;
}

bool CDataProvider::_ClearDataCache(CPacket* packet) {
  packetThumbnails_.erase(packet->GetId());
  return true;
}

void CDataProvider::ClearContent() {
  for (const auto& [id, info] : modelCache_) RemoveFile(info->filePath);
  for (const auto& [id, path] : fragmentFileCache_) RemoveFile(path);
  for (const auto& [id, path] : attachedFileCache_) RemoveFile(path);
  modelCache_.clear();
  fragmentFileCache_.clear();
  attachedFileCache_.clear();
  specCache_.clear();
  modelIconSlot_ = Slot{};
  fragmentIconSlot_ = Slot{};
  representationSlot_ = Slot{};
}
