// Free names of the form "name (n)": the name itself when it is free, else
// the first free "base (counter)", where a name that already ends in such a
// bracketed number continues counting from it. So with "M5" taken the result
// is "M5 (0)", with "M5 (3)" taken it is "M5 (4)", and with "M5 (x)" taken it
// is "M5 (x) (0)".
#pragma once

#include <functional>
#include <string>

std::wstring MakeUniqueName(const std::wstring& name, const std::function<bool(const std::wstring&)>& exists);
