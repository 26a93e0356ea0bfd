// Value: the tagged value that attributes, formula results and own values of
// objects hold, and its non-owning form ValueView (declared in the public
// header, since clients receive values in it).
//
// The variant's alternative index is the value's kind, and those numbers are
// fixed because they cross the boundary in ValueView::index:
//   0 empty, 1 signed 32-bit integer, 2 double, 3 owned wide string.
// A Value is a plain value type; distinct Values may be used from distinct
// threads freely, one Value needs outside synchronisation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "LxDataAccess.h"

using Value = std::variant<std::monostate, int32_t, double, std::wstring>;

static_assert(std::variant_size_v<Value> == 4);
static_assert(std::is_same_v<std::variant_alternative_t<LX_VALUE_INT, Value>, int32_t>);
static_assert(std::is_same_v<std::variant_alternative_t<LX_VALUE_DOUBLE, Value>, double>);
static_assert(std::is_same_v<std::variant_alternative_t<LX_VALUE_STRING, Value>, std::wstring>);

inline bool IsEmpty(const Value& value) { return value.index() == LX_VALUE_EMPTY; }
inline bool IsInteger(const Value& value) { return value.index() == LX_VALUE_INT; }
inline bool IsDouble(const Value& value) { return value.index() == LX_VALUE_DOUBLE; }
inline bool IsString(const Value& value) { return value.index() == LX_VALUE_STRING; }

inline bool IsEmpty(const ValueView& view) { return view.index == LX_VALUE_EMPTY; }
inline bool IsInteger(const ValueView& view) { return view.index == LX_VALUE_INT; }
inline bool IsString(const ValueView& view) { return view.index == LX_VALUE_STRING; }

// A view of `value`, valid while `value` lives and keeps its string. A string
// is seen only up to its first NUL, so a view never shows an embedded NUL.
ValueView MakeValueView(const Value& value);

// An owning copy of what `view` shows. A view of an unknown kind gives empty.
Value MakeValue(const ValueView& view);

// The characters of a string view; empty for any other kind.
std::wstring_view ViewText(const ValueView& view);
