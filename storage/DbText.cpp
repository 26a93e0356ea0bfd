#include "storage/DbText.h"

#include "platform/TextCodec.h"

void SetDbText(IBPP::Statement& statement, int parameter, std::wstring_view text) {
  statement.Set(parameter, std::string_view(WideToCp1251(text)));
}

bool GetDbText(const IBPP::Statement& statement, int column, std::wstring& text) {
  std::string_view bytes;
  const bool isNull = statement.Get(column, bytes);
  Cp1251ToWide(bytes, text);
  return isNull;
}

bool GetDbText(const IBPP::Statement& statement, std::string_view column, std::wstring& text) {
  std::string bytes;
  const bool isNull = statement.Get(column, bytes);
  Cp1251ToWide(bytes, text);
  return isNull;
}
