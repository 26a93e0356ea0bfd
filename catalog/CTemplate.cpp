#include "catalog/CTemplate.h"

#include <algorithm>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"

namespace {
constexpr std::size_t kTypicalColumns = 70;
}  // namespace

CTemplate::CTemplate(std::int32_t id, std::wstring name, std::int32_t modelId, std::wstring type, CFolderTable* table)
    : id_(id), name_(std::move(name)), type_(std::move(type)), modelId_(modelId), table_(table) {
  records_.reserve(kTypicalColumns);
}

CTemplate::~CTemplate() = default;

TemplateAttribute* CTemplate::FindRecord(std::int32_t number) {
  for (TemplateAttribute& record : records_) {
    if (record.number == number) return &record;
  }
  return nullptr;
}

void CTemplate::EraseRecord(std::int32_t number) {
  std::erase_if(records_, [number](const TemplateAttribute& record) { return record.number == number; });
}

void CTemplate::NoteSizesChanged() const {
  if (table_ != nullptr) table_->NoteSizesChanged();
}

CStandartSize* CTemplate::AppendSize(std::unique_ptr<CStandartSize> size) {
  NoteSizesChanged();
  sizes_.push_back(std::move(size));
  return sizes_.back().get();
}

std::unique_ptr<CStandartSize> CTemplate::DetachSize(CStandartSize* size) {
  const auto found =
      std::find_if(sizes_.begin(), sizes_.end(), [size](const auto& owned) { return owned.get() == size; });
  if (found == sizes_.end()) return nullptr;
  NoteSizesChanged();
  std::unique_ptr<CStandartSize> detached = std::move(*found);
  sizes_.erase(found);
  return detached;
}
