#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(char32_t c, std::string& out) {
  if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = kReplacement;
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Length of the sequence a lead byte announces, 0 for a byte that cannot lead.
int SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (wchar_t c : text) AppendUtf8(static_cast<char32_t>(c), out);
  return out;
}

std::wstring FromUtf8(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int length = SequenceLength(lead);
    if (length == 0 || i + length > text.size()) {
      out += static_cast<wchar_t>(kReplacement);
      ++i;
      continue;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    bool valid = true;
    for (int k = 1; k < length; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80) valid = false;
      c = (c << 6) | (next & 0x3F);
    }
    // Overlong forms and surrogates are as bad as a stray byte.
    const bool overlong = (length == 3 && c < 0x800) || (length == 4 && (c < 0x10000 || c > 0x10FFFF));
    if (!valid || overlong || (c >= 0xD800 && c <= 0xDFFF)) {
      out += static_cast<wchar_t>(kReplacement);
      ++i;
      continue;
    }
    out += static_cast<wchar_t>(c);
    i += length;
  }
  return out;
}

}  // namespace lxcat
