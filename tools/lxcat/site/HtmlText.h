// Text placed into the site's HTML. Everything that comes from a catalog
// (names, values, formulas) goes through EscapeHtml, so a folder called
// "<b>" shows as written and cannot open an element or end an attribute.
// Pure functions; thread-safe.
#pragma once
#include <string>
#include <string_view>

namespace lxcat {

// The text with &, <, >, " and ' replaced by character references; safe both
// between tags and inside a quoted attribute value.
std::string EscapeHtml(std::string_view text);

// Appends EscapeHtml(text) to `out` without a temporary string: a folder page
// of many sizes escapes every cell.
void AppendEscaped(std::string& out, std::string_view text);

}  // namespace lxcat
