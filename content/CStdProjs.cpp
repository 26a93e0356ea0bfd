#include "content/CStdProjs.h"

#include <algorithm>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "content/IContentStore.h"
#include "content/ProjectionTypes.h"
#include "platform/Report.h"
#include "platform/Files.h"

namespace {

constexpr const wchar_t* kDuplicate = L"В данном списке проекций уже есть проекция данного типа";
constexpr const wchar_t* kAddFailed = L"Проблема с базой, не смогли добавить проекцию";

}  // namespace

CStdProjs::~CStdProjs() = default;

CStdProjs* CStdProjs::Of(CStandartSize* size) {
  std::shared_ptr<CStdProjs>& slot = size->ProjectionsSlot();
  if (!slot) slot = std::make_shared<CStdProjs>(size);
  return slot.get();
}

IContentStore& CStdProjs::Store() const { return owner_->GetTemplate()->GetTable()->Store().Content(); }

bool CStdProjs::LoadAll() {
  if (loaded_) return true;
  loaded_ = true;
  if (Store().LoadProjections(this)) return true;
  Report(L"Проблема с базой, ошибка при загрузке проекций", "CStdProjs::LoadAll");
  return false;
}

bool CStdProjs::Loaded(const char* method) {
  if (LoadAll()) return true;
  Report(L"Ошибка при загрузке проекций", method);
  return false;
}

bool CStdProjs::Clashes(std::int32_t type, const std::wstring& name, std::int32_t viewType) const {
  return std::any_of(items_.begin(), items_.end(), [&](const auto& item) {
    if (item->GetViewType() != viewType) return false;
    return type == kUserProjection ? item->GetName() == name : item->GetType() == type;
  });
}

bool CStdProjs::HasDirection(std::int32_t projectionId, std::int32_t viewType) const {
  return std::any_of(items_.begin(), items_.end(), [&](const auto& item) {
    return item->GetProjectionId() == projectionId && item->GetViewType() == viewType;
  });
}

CStdPrj* CStdProjs::_AddProjection(const CStdPrj* other) {
  constexpr const char* kMethod = "CStdProjs::_AddProjection";
  if (!Loaded(kMethod)) return nullptr;
  const bool taken = std::any_of(items_.begin(), items_.end(), [&](const auto& item) {
    return item->GetType() == other->GetType() && item->GetViewType() == other->GetViewType();
  });
  if (taken) {
    Report(L"В данном списке проекции уже есть проекция данного типа", kMethod);
    return nullptr;
  }
  std::unique_ptr<CStdPrj> added = Store().CopyProjection(this, *other);
  if (!added) {
    Report(kAddFailed, kMethod);
    return nullptr;
  }
  items_.push_back(std::move(added));
  return items_.back().get();
}

CStdPrj* CStdProjs::_AddProjectionEx(const std::wstring& path, const std::wstring& iconPath,
                                     const std::wstring& digest, std::int32_t type, const std::wstring& name,
                                     std::int32_t viewType) {
  constexpr const char* kMethod = "CStdProjs::_AddProjectionEx";
  if (!Loaded(kMethod)) return nullptr;
  const bool knownType = type >= 1 && type <= kUserProjection;
  if (ReportFirstFailure({{path.empty(), L"Требуется задать путь до фрагмента"},
                          {!FileExists(path), L"Требуется задать реальный путь до фрагмента"},
                          {iconPath.empty(), L"Требуется задать путь до иконки"},
                          {!FileExists(iconPath), L"Требуется задать реальный путь до иконки"},
                          {digest.empty(), L"Требуется задать crc фрагмента"},
                          {!knownType, L"Неизвестная проекция"},
                          {!IsViewType(viewType), L"Неизвестный тип проекции"}},
                         kMethod))
    return nullptr;
  if (Clashes(type, name, viewType)) {
    Report(kDuplicate, kMethod);
    return nullptr;
  }
  const std::int32_t fragmentId = Store().AddFragment(path, iconPath, digest);
  if (fragmentId == 0) {
    Report(L"Проблема с базой, не смогли вставить фрагмент в базу", kMethod);
    return nullptr;
  }
  std::unique_ptr<CStdPrj> added = Store().AddProjection(this, fragmentId, digest, name, type, viewType);
  if (!added) {
    Report(kAddFailed, kMethod);
    return nullptr;
  }
  items_.push_back(std::move(added));
  return items_.back().get();
}

std::int32_t CStdProjs::_GetProjectioCount() {
  if (!Loaded("CStdProjs::_GetProjectioCount")) return 0;
  return static_cast<std::int32_t>(items_.size());
}

CStdPrj* CStdProjs::_GetProjection(std::int32_t index) {
  constexpr const char* kMethod = "CStdProjs::_GetProjection";
  if (!Loaded(kMethod)) return nullptr;
  if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
    ReportIndexOutOfRange(index, static_cast<std::int64_t>(items_.size()), kMethod);
    return nullptr;
  }
  return items_[static_cast<std::size_t>(index)].get();
}

CStdPrj* CStdProjs::_FindProjection(const std::wstring& name, std::int32_t type, std::int32_t viewType) {
  constexpr const char* kMethod = "CStdProjs::_FindProjection";
  if (!Loaded(kMethod)) return nullptr;
  const bool typeGiven = type != kOmitted;
  const bool viewGiven = viewType != kOmitted;
  if (!typeGiven && !viewGiven) {
    Report(L"Оба параметра не могут быть пропущены", kMethod);
    return nullptr;
  }
  // Only 0 and codes past 7 are refused: another negative type is no code
  // at all and simply matches no entry.
  if (typeGiven && (type == 0 || type > kUserProjection)) {
    Report(L"Неизвестный тип проекции", kMethod);
    return nullptr;
  }
  if (viewGiven && !IsViewType(viewType)) {
    Report(L"Неизвестный тип вида", kMethod);
    return nullptr;
  }
  const bool nameCounts = !(typeGiven && viewGiven && name.empty());
  for (const auto& item : items_) {
    if (nameCounts && item->GetName() != name) continue;
    if (typeGiven && item->GetType() != type) continue;
    if (viewGiven && item->GetViewType() != viewType) continue;
    return item.get();
  }
  return nullptr;
}

bool CStdProjs::_DeleteProjection(CStdPrj* projection) {
  constexpr const char* kMethod = "CStdProjs::_DeleteProjection";
  if (!Loaded(kMethod)) return false;
  if (!projection->GetStdSize()->SameAs(*owner_)) {
    Report(L"Переданная проекция не принадлежит текущему списку проекций", kMethod);
    return false;
  }
  if (!Store().DeleteProjection(projection)) {
    Report(L"Не смогли удалить проекцию из базы", kMethod);
    return false;
  }
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return item->SameAs(*projection); });
  if (found != items_.end()) items_.erase(found);
  return true;
}
