#pragma once
#include <string>

#include "platform/Utf8.h"

namespace lxcat {

// A text the library returned; null, the result of a failed call, prints as
// nothing.
inline std::string Text(const wchar_t* text) { return text ? WideToUtf8(text) : std::string(); }

}  // namespace lxcat
