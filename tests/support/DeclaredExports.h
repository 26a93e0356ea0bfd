// The names of the exports as the public header declares them, one per
// LX_API line, read from the header file itself so that a new export is
// seen by every test that walks the whole interface.
#pragma once

#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace lxtest {

inline std::set<std::string> DeclaredExports(const char* headerPath) {
  std::ifstream header(headerPath);
  std::set<std::string> names;
  const std::regex declaration(R"(^LX_API\b[^(]*?\b([A-Za-z_][A-Za-z0-9_]*)\s*\()");
  std::smatch match;
  for (std::string line; std::getline(header, line);) {
    if (std::regex_search(line, match, declaration)) names.insert(match[1]);
  }
  return names;
}

}  // namespace lxtest
