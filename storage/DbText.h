// Text between the library and the catalog database. The connection has no
// character set, so the database stores whatever bytes it is given; the
// library's convention is code page 1251, converted here and nowhere else.
// A character that code page 1251 cannot hold is dropped on the way in.
//
// Free functions over a statement; as thread-safe as the statement.
#pragma once

#include "storage/ibpp/Statement.h"

#include <string>
#include <string_view>

// Sets a 1-based parameter to the text in code page 1251.
void SetDbText(IBPP::Statement& statement, int parameter, std::wstring_view text);

// Reads a text column; true when it is null, and then the text is empty.
bool GetDbText(const IBPP::Statement& statement, int column, std::wstring& text);
bool GetDbText(const IBPP::Statement& statement, std::string_view column, std::wstring& text);
