#include "object/CLayer.h"

#include <string_view>

#include "formula/NumberText.h"
#include "formula/Value.h"
#include "object/CObject.h"

namespace {

constexpr std::wstring_view kLayerPrefix = L"LAYER";

bool WholeNonZero(std::wstring_view text) {
  std::int32_t number = 0;
  return ParseWholeInt32(text, number) && number != 0;
}

}  // namespace

bool CLayer::IsLayerName(const std::wstring& varName) { return varName.starts_with(kLayerPrefix); }

std::int32_t CLayer::NumberOf(const std::wstring& varName) {
  std::int32_t number = 0;
  return ParseWholeInt32(std::wstring_view(varName).substr(kLayerPrefix.size()), number) ? number : 0;
}

bool CLayer::GetVisible() const {
  ValueView view{};
  if (!object_->_GetValueByName(attributeName_, view, kDefaultNumberFormat)) view = ValueView{};
  switch (view.index) {
    case LX_VALUE_INT:
      return view.payload.integer != 0;
    case LX_VALUE_DOUBLE:
      return view.payload.number != 0.0;
    case LX_VALUE_STRING:
      return WholeNonZero(ViewText(view));
    default:
      return false;
  }
}
