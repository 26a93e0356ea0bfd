#include "catalog/CStandartSize.h"

#include "platform/Report.h"
#include "catalog/CTemplate.h"
#include "catalog/CFolderTable.h"
#include "catalog/ICatalogStore.h"

CStandartSize::CStandartSize(std::int32_t id, std::wstring identifier, CTemplate* ownerTemplate)
    : id_(id), identifier_(std::move(identifier)), ownerTemplate_(ownerTemplate) {}

CStandartSize::~CStandartSize() = default;

bool CStandartSize::_SetType(const std::wstring& type) {
  if (type == ownerTemplate_->GetType()) return true;
  if (!ownerTemplate_->GetTable()->Store().SetTemplateType(ownerTemplate_, type)) {
    Report(L"Проблема задания типа типоразмера в базе", "CStandartSize::_SetType");
    return false;
  }
  ownerTemplate_->SetType(type);
  return true;
}

bool CStandartSize::SameAs(const CStandartSize& other) const {
  return this == &other || (id_ == other.id_ && identifier_ == other.identifier_ &&
                            ownerTemplate_ == other.ownerTemplate_ && values_ == other.values_);
}
