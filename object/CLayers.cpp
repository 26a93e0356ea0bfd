#include "object/CLayers.h"

#include <algorithm>

#include "catalog/CAttribute.h"
#include "catalog/CFolderTable.h"
#include "platform/Report.h"

void CLayers::Rebuild(const CFolderTable& table, CObject* object) {
  layers_.clear();
  for (std::int32_t index = 0; index < table.GetAttributeCount(); ++index) {
    const CAttribute* attribute = table._GetAttribute(index);
    if (attribute == nullptr || !CLayer::IsLayerName(attribute->GetVarName())) continue;
    layers_.push_back(std::make_unique<CLayer>(CLayer::NumberOf(attribute->GetVarName()), attribute->GetName(),
                                               attribute->GetVarName(), object));
  }
  std::stable_sort(layers_.begin(), layers_.end(),
                   [](const auto& left, const auto& right) { return left->GetNumber() < right->GetNumber(); });
}

CLayer* CLayers::_GetLayer(std::int32_t index) const {
  if (index < 0 || index >= Count()) {
    ReportIndexOutOfRange(index, Count(), "CLayers::_GetLayer");
    return nullptr;
  }
  return layers_[static_cast<std::size_t>(index)].get();
}
