// Which stored bytes a browser can show as an image. Models and fragments
// are stored as whatever files the designers gave, and their icons usually
// but not always as pictures; the site shows only what starts with the
// signature of a format every browser decodes: PNG, JPEG, GIF, BMP, WebP and
// SVG. Pure functions; thread-safe.
#pragma once
#include <cstddef>
#include <string_view>

namespace lxcat {

// How many leading bytes ImageExtension needs to decide; fewer are fine for a
// shorter file.
inline constexpr size_t kImageSniffBytes = 512;

// The file extension (without the dot) of the image format the bytes start
// with, or an empty view when they are not one of the formats above.
std::string_view ImageExtension(const unsigned char* bytes, size_t size);

}  // namespace lxcat
