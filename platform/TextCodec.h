// Conversions between the library's wide text and the narrow encodings it
// meets: UTF-8 (the debug channel, connection strings, file names) and code
// page 1251 (all text stored in a catalog database).
//
// All functions are pure and thread-safe. None of them throws on bad input:
// a character that the target cannot hold is dropped, and an invalid UTF-8
// sequence becomes U+FFFD, so a malformed string never fails a call.
#pragma once

#include <string>
#include <string_view>

std::string WideToUtf8(std::wstring_view text);
std::wstring Utf8ToWide(std::string_view text);

// Characters outside code page 1251 are dropped, one by one, and the rest of
// the text is kept.
std::string WideToCp1251(std::wstring_view text);
std::wstring Cp1251ToWide(std::string_view text);

