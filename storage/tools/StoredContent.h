// The stored form of content as the catalog keeps it in its blobs, for the
// build tool's one such blob (the first REPRESENTATION row): the
// uncompressed length as 4 bytes little-endian, then one LZO1Y-1 stream.
// Also the MD5 text by which representation rows are matched.
//
// Pure functions; thread-safe once LZO is initialised (done on first use).
#pragma once

#include <span>
#include <string>
#include <vector>

std::vector<unsigned char> PackStoredContent(std::span<const unsigned char> content);
// 32 lower-case hexadecimal digits.
std::string Md5Hex(std::span<const unsigned char> content);
