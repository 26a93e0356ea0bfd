#include "content/CStdFiles.h"

#include <cwctype>
#include <memory>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "content/IContentStore.h"
#include "platform/Report.h"

void SplitFileName(const std::wstring& stored, std::wstring& name, std::wstring& ext) {
  const std::size_t dot = stored.rfind(L'.');
  if (dot == std::wstring::npos) {
    name = stored;
    ext.clear();
    return;
  }
  name = stored.substr(0, dot);
  ext = stored.substr(dot);
  for (wchar_t& c : ext) c = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
}

CStdFiles* CStdFiles::Of(CStandartSize* size) {
  std::shared_ptr<CStdFiles>& slot = size->FilesSlot();
  if (!slot) slot = std::make_shared<CStdFiles>(size);
  return slot.get();
}

IContentStore& CStdFiles::Store() const { return owner_->GetTemplate()->GetTable()->Store().Content(); }

bool CStdFiles::LoadAll() {
  if (loaded_) return true;
  loaded_ = Store().LoadFiles(this);
  if (!loaded_)
    Report(L"Проблема с базой, ошибка при информации о файлах для типоразмера " + std::to_wstring(owner_->GetId()),
           "CStdFiles::LoadAll");
  return loaded_;
}

bool CStdFiles::Loaded(const char* method) {
  if (LoadAll()) return true;
  Report(L"Ошибка при загрузке информации о файлах, stdSizeId = " + std::to_wstring(owner_->GetId()), method);
  return false;
}

std::int32_t CStdFiles::_GetFileCount() {
  if (!Loaded("CStdFiles::_GetFileCount")) return 0;
  return static_cast<std::int32_t>(items_.size());
}

FileRecord* CStdFiles::_GetFile(std::int32_t index) {
  constexpr const char* kMethod = "CStdFiles::_GetFile";
  if (!Loaded(kMethod)) return nullptr;
  if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
    ReportIndexOutOfRange(index, static_cast<std::int64_t>(items_.size()), kMethod);
    return nullptr;
  }
  return &items_[static_cast<std::size_t>(index)];
}

const wchar_t* CStdFiles::_GetFilePath(FileRecord* record) {
  const std::wstring* path = Store().GetFilePath(*record);
  return path ? path->c_str() : nullptr;
}
