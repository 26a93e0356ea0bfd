#include "tools/lxcat/site/HtmlText.h"

namespace lxcat {

void AppendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&#39;"; break;
      default: out += c; break;
    }
  }
}

std::string EscapeHtml(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendEscaped(out, text);
  return out;
}

}  // namespace lxcat
