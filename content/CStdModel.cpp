#include "content/CStdModel.h"

#include <memory>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "content/ByteData.h"
#include "content/IContentStore.h"
#include "content/ModelInfo.h"
#include "platform/Report.h"
#include "platform/Files.h"

namespace {

}  // namespace

CStdModel* CStdModel::Of(CStandartSize* size) {
  std::shared_ptr<CStdModel>& slot = size->ModelSlot();
  if (!slot) slot = std::make_shared<CStdModel>(size);
  return slot.get();
}

std::int32_t CStdModel::GetModelId() const { return owner_->GetTemplate()->GetModelId(); }

IContentStore& CStdModel::Store() const { return owner_->GetTemplate()->GetTable()->Store().Content(); }

const ModelInfo* CStdModel::Info() { return GetModelId() > 0 ? Store().GetModelInfo(this) : nullptr; }

const ModelInfo* CStdModel::InfoFor(const char* method) {
  const ModelInfo* info = Info();
  if (info == nullptr) Report(L"У типоразмера нет модели", method);
  return info;
}

bool CStdModel::_IsEmpty() { return Info() == nullptr; }

const wchar_t* CStdModel::_GetModelFile() {
  const ModelInfo* info = InfoFor("CStdModel::_GetModelFile");
  return info ? info->filePath.c_str() : nullptr;
}

const wchar_t* CStdModel::_GetDigest() {
  const ModelInfo* info = InfoFor("CStdModel::_GetDigest");
  return info ? info->digest.c_str() : nullptr;
}

const wchar_t* CStdModel::_GetName() {
  const ModelInfo* info = InfoFor("CStdModel::_GetName");
  return info ? info->name.c_str() : nullptr;
}

std::int32_t CStdModel::_GetVersion() {
  const ModelInfo* info = InfoFor("CStdModel::_GetVersion");
  return info ? info->version : 0;
}

std::int32_t CStdModel::_GetOrientation() {
  const ModelInfo* info = InfoFor("CStdModel::_GetOrientation");
  return info ? info->orientation : 0;
}

bool CStdModel::_GetIconData(unsigned char** data, std::int32_t* size) {
  if (InfoFor("CStdModel::_GetIconData") == nullptr) return false;
  const ByteData* icon = Store().GetModelIcon(GetModelId());
  if (icon == nullptr) {
    Report(L"Проблема получения иконки модели из кэша", "CStdModel::_GetIconData");
    return false;
  }
  *data = icon->Data();
  *size = icon->Size();
  return true;
}

bool CStdModel::_Clear() { return Info() == nullptr || SetModelId(0); }

bool CStdModel::_SetModel(CStdModel* other) {
  if (other == nullptr) {
    Report(L"Требуется задать модель", "CStdModel::_SetModel");
    return false;
  }
  if (GetModelId() == other->GetModelId()) return true;
  if (other->Info() != nullptr) return SetModelId(other->GetModelId());
  if (Info() != nullptr) return SetModelId(0);
  return true;
}

bool CStdModel::_SetModelEx(const std::wstring& path, const std::wstring& iconPath, const std::wstring& digest,
                            std::int32_t version) {
  constexpr const char* kMethod = "CStdModel::_SetModelEx";
  if (ReportFirstFailure({{path.empty(), L"Требуется задать путь до модели"},
                          {!FileExists(path), L"Требуется задать реальный путь до модели"},
                          {iconPath.empty(), L"Требуется задать путь до иконки"},
                          {!FileExists(iconPath), L"Требуется задать реальный путь до иконки"},
                          {digest.empty(), L"Требуется задать crc модели"}},
                         kMethod))
    return false;
  std::int32_t id = Store().FindModelByDigest(digest);
  if (id == 0) id = Store().CreateModel(path, iconPath, digest, version);
  if (id == 0) {
    Report(L"Не смогли создать модель " + path, kMethod);
    return false;
  }
  return SetModelId(id);
}

bool CStdModel::SetModelId(std::int32_t id) {
  if (!Store().SetOtherModel(this, id)) {
    Report(L"Проблема с базой при задании типроразмеру другой модели", "CStdModel::SetModelId");
    return false;
  }
  // The store may have moved the size to a template of its own.
  owner_->GetTemplate()->SetModelId(id);
  return true;
}
