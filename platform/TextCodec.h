// Conversions between the library's wide text and the encodings it meets:
// UTF-8 (the debug channel, connection strings, file names), code page 1251
// (all text stored in a catalog database) and UTF-16LE (the texts of object
// buffers, which clients keep in their documents).
//
// All functions are pure and thread-safe. None of them throws on bad input:
// a character that the target cannot hold is dropped, and an invalid UTF-8
// sequence becomes U+FFFD, so a malformed string never fails a call.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Utf8.h"

// Characters outside code page 1251 are dropped, one by one, and the rest of
// the text is kept.
std::string WideToCp1251(std::wstring_view text);
std::wstring Cp1251ToWide(std::string_view text);
// The same into `out`, reusing its buffer.
void Cp1251ToWide(std::string_view text, std::wstring& out);


// UTF-16: a wide character above U+FFFF is a surrogate pair, anything beyond
// U+10FFFF is written as U+FFFD, and a lone surrogate stays what it is both
// ways, so that text read from a buffer writes back to the same units.
//
// The number of UTF-16 code units of `text`.
std::size_t Utf16Length(std::wstring_view text);
// Writes the units of `text` little-endian at `out`, which must hold
// 2 * Utf16Length(text) bytes.
void WriteUtf16Le(std::wstring_view text, unsigned char* out);
// The text of `units` UTF-16LE code units at `bytes`.
std::wstring ReadUtf16Le(const unsigned char* bytes, std::size_t units);

// Orders texts by their UTF-16 code units, the order clients on every
// platform see, which differs from code point order only where a character
// above U+FFFF meets one in U+E000..U+FFFF.
struct Utf16Less {
  bool operator()(std::wstring_view left, std::wstring_view right) const;
};
