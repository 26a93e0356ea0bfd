#include "storage/DbText.h"

#include <array>

#include "platform/TextCodec.h"

namespace {

// The wide character of every code page 1251 byte, 0 for the one byte the
// code page leaves undefined, taken once from the codec so that both agree.
// Reading a catalog converts every name it holds, a byte at a time.
const std::array<wchar_t, 256>& Cp1251Characters() {
  static const std::array<wchar_t, 256> characters = [] {
    std::array<wchar_t, 256> table{};
    for (int byte = 1; byte < 256; ++byte) {
      const std::wstring wide = Cp1251ToWide(std::string(1, static_cast<char>(byte)));
      table[byte] = wide.empty() ? 0 : wide.front();
    }
    return table;
  }();
  return characters;
}

// Writes the wide text of `bytes` into `text`, reusing its buffer. The one
// byte without a character is rare enough to cost a second pass.
void ConvertFromCp1251(std::string_view bytes, std::wstring& text) {
  const std::array<wchar_t, 256>& characters = Cp1251Characters();
  text.resize(bytes.size());
  bool dropped = false;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text[i] = characters[byte];
    dropped |= text[i] == 0 && byte != 0;
  }
  if (!dropped) return;
  std::size_t length = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (text[i] != 0 || bytes[i] == 0) text[length++] = text[i];
  }
  text.resize(length);
}

}  // namespace

std::wstring DbTextToWide(std::string_view bytes) {
  std::wstring text;
  ConvertFromCp1251(bytes, text);
  return text;
}

void SetDbText(IBPP::Statement& statement, int parameter, std::wstring_view text) {
  statement.Set(parameter, std::string_view(WideToCp1251(text)));
}

bool GetDbText(const IBPP::Statement& statement, int column, std::wstring& text) {
  std::string_view bytes;
  const bool isNull = statement.Get(column, bytes);
  ConvertFromCp1251(bytes, text);
  return isNull;
}

bool GetDbText(const IBPP::Statement& statement, std::string_view column, std::wstring& text) {
  std::string bytes;
  const bool isNull = statement.Get(column, bytes);
  ConvertFromCp1251(bytes, text);
  return isNull;
}
