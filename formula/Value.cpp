#include "formula/Value.h"

#include <cwchar>

ValueView MakeValueView(const Value& value) {
  ValueView view{};
  view.index = static_cast<int8_t>(value.index());
  switch (value.index()) {
    case LX_VALUE_INT:
      view.payload.integer = std::get<LX_VALUE_INT>(value);
      break;
    case LX_VALUE_DOUBLE:
      view.payload.number = std::get<LX_VALUE_DOUBLE>(value);
      break;
    case LX_VALUE_STRING: {
      const std::wstring& text = std::get<LX_VALUE_STRING>(value);
      view.payload.text = text.c_str();
      view.length = std::wcslen(text.c_str());
      break;
    }
    default:
      break;
  }
  return view;
}

std::wstring_view ViewText(const ValueView& view) {
  if (view.index != LX_VALUE_STRING || view.payload.text == nullptr) return {};
  return {view.payload.text, static_cast<size_t>(view.length)};
}

Value MakeValue(const ValueView& view) {
  switch (view.index) {
    case LX_VALUE_INT:
      return Value{std::in_place_index<LX_VALUE_INT>, view.payload.integer};
    case LX_VALUE_DOUBLE:
      return Value{std::in_place_index<LX_VALUE_DOUBLE>, view.payload.number};
    case LX_VALUE_STRING:
      return Value{std::in_place_index<LX_VALUE_STRING>, ViewText(view)};
    default:
      return Value{};
  }
}
