#include "content/CStdPrj.h"

#include "catalog/CPacket.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "content/ByteData.h"
#include "content/CStdProjs.h"
#include "content/IContentStore.h"
#include "content/ProjectionTypes.h"
#include "platform/Report.h"

CStdPrj::CStdPrj(CStdProjs* list, Row row, std::int32_t type)
    : list_(list),
      name_(std::move(row.name)),
      digest_(std::move(row.digest)),
      type_(type),
      projectionId_(row.projectionId),
      viewType_(row.viewType),
      fragmentId_(row.fragmentId) {}

CStandartSize* CStdPrj::GetStdSize() const { return list_->GetStdSize(); }

IContentStore& CStdPrj::Store() const { return list_->Store(); }

bool CStdPrj::SameAs(const CStdPrj& other) const {
  return GetStdSize()->SameAs(*other.GetStdSize()) && fragmentId_ == other.fragmentId_ && name_ == other.name_ &&
         digest_ == other.digest_ && type_ == other.type_ && viewType_ == other.viewType_;
}

bool CStdPrj::_SetType(std::int32_t type, const std::wstring& name) {
  constexpr const char* kMethod = "CStdPrj::_SetType";
  if (type < 1 || type > kUserProjection) {
    Report(L"Неизвестная проекция", kMethod);
    return false;
  }
  if (type == type_ && (type != kUserProjection || name == name_)) return true;
  if (list_->Clashes(type, name, viewType_)) {
    Report(L"В данном списке проекций уже есть проекция данного типа", kMethod);
    return false;
  }
  std::int32_t projectionId = 0;
  std::wstring resolvedName;
  if (!Store().UpdateProjectionType(this, type, name, projectionId, resolvedName)) {
    Report(L"Не смогли изменить проекцию в базе", kMethod);
    return false;
  }
  projectionId_ = projectionId;
  name_ = std::move(resolvedName);
  type_ = PublicProjectionType(projectionId);
  return true;
}

bool CStdPrj::_SetViewType(std::int32_t viewType) {
  constexpr const char* kMethod = "CStdPrj::_SetViewType";
  if (!IsViewType(viewType)) {
    Report(L"Неизвестный тип проекции", kMethod);
    return false;
  }
  if (list_->HasDirection(projectionId_, viewType)) {
    Report(L"В данном списке проекций уже есть проекция данного типа", kMethod);
    return false;
  }
  if (!Store().UpdateViewType(this, viewType)) {
    Report(L"Не смогли сменить тип проекции", kMethod);
    return false;
  }
  viewType_ = viewType;
  return true;
}

bool CStdPrj::_GetIconData(unsigned char** data, std::int32_t* size) {
  const std::int32_t packetId = GetStdSize()->GetTemplate()->GetTable()->GetFolder()->GetPacket()->GetId();
  const ByteData* icon = Store().GetFragmentIcon(packetId, fragmentId_);
  if (icon == nullptr) {
    Report(L"Проблема получения иконки модели из кэша", "CStdPrj::_GetIconData");
    return false;
  }
  *data = icon->Data();
  *size = icon->Size();
  return true;
}

const wchar_t* CStdPrj::_GetFragmentFile() {
  const std::wstring* path = Store().GetFragmentFile(this);
  return path ? path->c_str() : nullptr;
}

bool CStdPrj::_SetFragment(const CStdPrj& other) { return Store().UpdateFragment(this, other); }
