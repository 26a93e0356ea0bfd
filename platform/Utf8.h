// UTF-8, the text of the terminal, file names and connection strings, and
// the library's wide text. Its own unit, so that lxcat, which otherwise
// stands only on the public interface, links these two and nothing else.
//
// Pure and thread-safe; never throws. A wide character that is no code point
// is written as U+FFFD, and an invalid UTF-8 sequence (overlong, a
// surrogate, cut short) reads as U+FFFD and costs one byte.
#pragma once

#include <string>
#include <string_view>

std::string WideToUtf8(std::wstring_view text);
std::wstring Utf8ToWide(std::string_view text);
