// The view and the layers of a placed object.
#include <unordered_map>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "content/CStdProjs.h"
#include "content/ProjectionTypes.h"
#include "formula/ValueCompare.h"
#include "object/CLayers.h"
#include "object/CObject.h"
#include "platform/Report.h"

namespace {

template <typename Map>
bool SameValues(const Map& left, const Map& right) {
  if (left.size() != right.size()) return false;
  for (const auto& [number, value] : left) {
    const auto other = right.find(number);
    if (other == right.end() || !ValuesEqual(MakeValueView(value), MakeValueView(other->second))) return false;
  }
  return true;
}

// Two sizes are one when every field agrees. The specifications hang on the
// template in this library, so the template's pointer stands for them.
bool SameSize(CStandartSize& left, CStandartSize& right) {
  return left.GetId() == right.GetId() && left.GetIdentifier() == right.GetIdentifier() &&
         left.ModelSlot() == right.ModelSlot() && left.ProjectionsSlot() == right.ProjectionsSlot() &&
         left.FilesSlot() == right.FilesSlot() && left.GetTemplate() == right.GetTemplate() &&
         SameValues(left.Values(), right.Values()) && SameValues(left.Calculated(), right.Calculated());
}

}  // namespace

void CObject::CheckView() {
  CStdProjs* projections = CStdProjs::Of(stdSize_);
  if ((!viewName_.empty() || viewType_ != kNoViewType) &&
      projections->_FindProjection(viewName_, kOmitted, static_cast<std::int32_t>(viewType_)) != nullptr) {
    return;
  }
  if (projections->_GetProjectioCount() == 0) return;
  const CStdPrj* first = projections->_GetProjection(0);
  SetView(first->GetName(), static_cast<std::uint32_t>(first->GetViewType()));
}

CStdPrj* CObject::_GetProjection() {
  if (!Bound("CObject::_GetProjection")) return nullptr;
  return CStdProjs::Of(stdSize_)->_FindProjection(viewName_, kOmitted, static_cast<std::int32_t>(viewType_));
}

bool CObject::_SetProjection(CStdPrj* projection) {
  constexpr const char* kMethod = "CObject::_SetProjection";
  if (!Bound(kMethod)) return false;
  if (projection == nullptr) {
    SetView(L"", kNoViewType);
    return true;
  }
  if (!SameSize(*projection->GetStdSize(), *stdSize_)) {
    Report(L"Можно использовать только проекции типоразмера объекта", kMethod);
    return false;
  }
  SetView(projection->GetName(), static_cast<std::uint32_t>(projection->GetViewType()));
  return true;
}

std::int32_t CObject::GetProjectionType() const { return GetProjectionTypeByName(viewName_); }

CLayers* CObject::_GetLayers() {
  if (!Bound("CObject::_GetLayers")) return nullptr;
  if (layers_ == nullptr) layers_ = std::make_unique<CLayers>();
  layers_->Rebuild(*stdSize_->GetTemplate()->GetTable(), this);
  return layers_.get();
}
