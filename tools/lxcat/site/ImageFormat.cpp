#include "tools/lxcat/site/ImageFormat.h"

#include <cstring>

namespace lxcat {
namespace {

bool StartsWith(const unsigned char* bytes, size_t size, std::string_view magic, size_t at = 0) {
  return size >= at + magic.size() && std::memcmp(bytes + at, magic.data(), magic.size()) == 0;
}

// "BM" alone would take one random file in 65,536 for a bitmap; the size of
// the header that follows the file header must also be one that exists.
bool IsBitmap(const unsigned char* bytes, size_t size) {
  if (!StartsWith(bytes, size, "BM") || size < 18) return false;
  const unsigned headerSize = bytes[14] | bytes[15] << 8 | bytes[16] << 16 | static_cast<unsigned>(bytes[17]) << 24;
  for (const unsigned known : {12u, 40u, 52u, 56u, 64u, 108u, 124u}) {
    if (headerSize == known) return true;
  }
  return false;
}

// An SVG file is text: an optional byte order mark and blanks, then either
// the svg element or an XML declaration (or comment, or doctype) with the
// svg element soon after.
bool IsSvg(const unsigned char* bytes, size_t size) {
  std::string_view text(reinterpret_cast<const char*>(bytes), size < kImageSniffBytes ? size : kImageSniffBytes);
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  const size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return false;
  text.remove_prefix(start);
  if (text.substr(0, 4) == "<svg") return true;
  if (text.substr(0, 2) != "<?" && text.substr(0, 4) != "<!--" && text.substr(0, 9) != "<!DOCTYPE") return false;
  return text.find("<svg") != std::string_view::npos;
}

}  // namespace

std::string_view ImageExtension(const unsigned char* bytes, size_t size) {
  if (!bytes) return {};
  if (StartsWith(bytes, size, "\x89PNG\r\n\x1A\n")) return "png";
  if (StartsWith(bytes, size, "\xFF\xD8\xFF")) return "jpg";
  if (StartsWith(bytes, size, "GIF87a") || StartsWith(bytes, size, "GIF89a")) return "gif";
  if (StartsWith(bytes, size, "RIFF") && StartsWith(bytes, size, "WEBP", 8)) return "webp";
  if (IsBitmap(bytes, size)) return "bmp";
  if (IsSvg(bytes, size)) return "svg";
  return {};
}

}  // namespace lxcat
