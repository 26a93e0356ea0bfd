#pragma once
#include <string>
#include <string_view>

namespace lxcat {

// The library speaks wide strings and the terminal UTF-8; these two are the
// only crossing. Invalid input never throws: a bad byte or code point becomes
// U+FFFD, so a damaged catalog text still prints.
std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

}  // namespace lxcat
