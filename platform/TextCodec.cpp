#include "platform/TextCodec.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

// The upper half of code page 1251 (bytes 0x80..0xFF). 0x98 is unassigned.
constexpr std::array<char16_t, 128> kCp1251High = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F,  // 88
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0000, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F,  // 98
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7,  // A0
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,  // A8
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,  // B8
    0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,  // C0
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F,  // C8
    0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427,  // D0
    0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,  // D8
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437,  // E0
    0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F,  // E8
    0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,  // F0
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F,  // F8
};

// Returns the code page 1251 byte for a character, or -1 if there is none.
int ToCp1251(wchar_t ch) {
  if (ch >= 0 && ch < 0x80) return static_cast<int>(ch);
  if (ch >= 0x0410 && ch <= 0x044F) return 0xC0 + (ch - 0x0410);  // А..я, the common case
  for (std::size_t i = 0; i < kCp1251High.size(); ++i) {
    if (kCp1251High[i] != 0 && kCp1251High[i] == static_cast<char32_t>(ch)) return 0x80 + static_cast<int>(i);
  }
  return -1;
}

}  // namespace

std::string WideToCp1251(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (wchar_t ch : text) {
    const int byte = ToCp1251(ch);
    if (byte >= 0) out += static_cast<char>(byte);
  }
  return out;
}

void Cp1251ToWide(std::string_view text, std::wstring& out) {
  // Sized once and cut by what was dropped: reading a catalog converts every
  // name it holds, and the one byte without a character is rare.
  out.resize(text.size());
  std::size_t length = 0;
  for (char byte : text) {
    const auto b = static_cast<unsigned char>(byte);
    const wchar_t ch = b < 0x80 ? static_cast<wchar_t>(b) : static_cast<wchar_t>(kCp1251High[b - 0x80]);
    if (ch != 0 || b == 0) out[length++] = ch;
  }
  out.resize(length);
}

std::wstring Cp1251ToWide(std::string_view text) {
  std::wstring out;
  Cp1251ToWide(text, out);
  return out;
}


namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The code point a wide character stands for on the UTF-16 side.
char32_t Utf16CodePoint(wchar_t ch) {
  const auto code = static_cast<char32_t>(ch);
  return code > 0x10FFFF ? kReplacement : code;
}

// The first (or only) unit of the character: what decides its UTF-16 order.
char32_t LeadUnit(wchar_t ch) {
  const char32_t code = Utf16CodePoint(ch);
  return code >= 0x10000 ? 0xD800 + ((code - 0x10000) >> 10) : code;
}

void PutUnit(char32_t unit, unsigned char*& out) {
  *out++ = static_cast<unsigned char>(unit & 0xFF);
  *out++ = static_cast<unsigned char>(unit >> 8);
}

}  // namespace

std::size_t Utf16Length(std::wstring_view text) {
  std::size_t units = text.size();
  for (wchar_t ch : text) units += Utf16CodePoint(ch) >= 0x10000;
  return units;
}

void WriteUtf16Le(std::wstring_view text, unsigned char* out) {
  for (wchar_t ch : text) {
    const char32_t code = Utf16CodePoint(ch);
    if (code >= 0x10000) {
      PutUnit(0xD800 + ((code - 0x10000) >> 10), out);
      PutUnit(0xDC00 + ((code - 0x10000) & 0x3FF), out);
    } else {
      PutUnit(code, out);
    }
  }
}

std::wstring ReadUtf16Le(const unsigned char* bytes, std::size_t units) {
  // Sized once and cut to what the pairs left: loading a drawing reads
  // hundreds of thousands of these short texts.
  std::wstring text(units, L'\0');
  std::size_t length = 0;
  for (std::size_t i = 0; i < units; ++i) {
    const char32_t unit = bytes[2 * i] | bytes[2 * i + 1] << 8;
    const char32_t next = i + 1 < units ? bytes[2 * i + 2] | bytes[2 * i + 3] << 8 : 0;
    if (unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
      text[length++] = static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
      ++i;
    } else {
      text[length++] = static_cast<wchar_t>(unit);
    }
  }
  text.resize(length);
  return text;
}

bool Utf16Less::operator()(std::wstring_view left, std::wstring_view right) const {
  const auto [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (l == left.end() || r == right.end()) return r != right.end();
  const char32_t leftLead = LeadUnit(*l);
  const char32_t rightLead = LeadUnit(*r);
  // Equal lead units: both are pairs of one block, and the trail units
  // order as the code points do.
  return leftLead != rightLead ? leftLead < rightLead : Utf16CodePoint(*l) < Utf16CodePoint(*r);
}
