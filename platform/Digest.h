// The one digest the library computes: MD5 of representation data, as 32
// lower-case hexadecimal digits, each byte as two digits in digest order.
// Models and fragments carry digests that their callers give; nothing else
// is hashed. Pure function, thread-safe.
#pragma once

#include <span>
#include <string>

std::string Md5Hex(std::span<const unsigned char> content);
