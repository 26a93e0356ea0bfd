#include "catalog/AttributeContainer.h"

#include <algorithm>
#include <limits>

#include "catalog/CAttribute.h"
#include "platform/CaseFold.h"

namespace {

template <typename Map>
void EraseValue(Map& map, CAttribute* attribute) {
  for (auto it = map.begin(); it != map.end();) {
    it = it->second == attribute ? map.erase(it) : std::next(it);
  }
}

}  // namespace

AttributeContainer::AttributeContainer() = default;
AttributeContainer::~AttributeContainer() = default;

void AttributeContainer::Index(CAttribute* attribute) {
  byNumber_.emplace(attribute->GetNumber(), attribute);
  byName_.emplace(attribute->GetName(), attribute);
}

void AttributeContainer::Unindex(CAttribute* attribute) {
  EraseValue(byNumber_, attribute);
  EraseValue(byName_, attribute);
}

CAttribute* AttributeContainer::Add(std::unique_ptr<CAttribute> attribute) {
  CAttribute* added = attribute.get();
  added->SetUpdateCallback([this](CAttribute* changed, ATR_UPDTE_TYPE) { OnAttributeUpdate(changed); });
  attributes_.push_back(std::move(attribute));
  Index(added);
  return added;
}

std::unique_ptr<CAttribute> AttributeContainer::Remove(CAttribute* attribute) {
  const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                  [attribute](const auto& owned) { return owned.get() == attribute; });
  if (found == attributes_.end()) return nullptr;
  std::unique_ptr<CAttribute> removed = std::move(*found);
  attributes_.erase(found);
  Unindex(attribute);
  return removed;
}

void AttributeContainer::OnAttributeUpdate(CAttribute* attribute) {
  std::unique_ptr<CAttribute> owned = Remove(attribute);
  if (!owned) return;
  attributes_.push_back(std::move(owned));
  Index(attribute);
}

bool AttributeContainer::Contains(const CAttribute* attribute) const {
  return std::any_of(attributes_.begin(), attributes_.end(),
                     [attribute](const auto& owned) { return owned.get() == attribute; });
}

CAttribute* AttributeContainer::FindByName(const std::wstring& name) const {
  if (name.empty()) return nullptr;
  for (const auto& [key, attribute] : byName_) {
    if (FoldEquals(key, name)) return attribute;
  }
  return nullptr;
}

CAttribute* AttributeContainer::FindByNumber(std::int32_t number) const {
  const auto found = byNumber_.find(number);
  return found == byNumber_.end() ? nullptr : found->second;
}

std::int32_t AttributeContainer::LargestNumber() const {
  return byNumber_.empty() ? std::numeric_limits<std::int32_t>::min() : byNumber_.rbegin()->first;
}
