// The built library exports exactly what the public header declares: no
// export without a declaration, and no internal symbol leaking beside them.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "DeclaredExports.h"

namespace {

std::set<std::string> DefinedDynamicSymbols() {
  std::set<std::string> names;
  const std::string command = std::string("nm -D --defined-only '") + LX_LIBRARY_PATH + "'";
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  if (!pipe) return names;
  char line[4096];
  while (std::fgets(line, sizeof line, pipe.get()) != nullptr) {
    std::istringstream fields(line);
    std::string address, type, name;
    fields >> address >> type >> name;
    if (!name.empty()) names.insert(name);
  }
  return names;
}

TEST(Exports, EveryDefinedSymbolIsADeclaredExport) {
  // The interface has 199 functions; reading fewer would mean the header's
  // declarations were missed and the check below would pass for nothing.
  const std::set<std::string> declared = lxtest::DeclaredExports(LX_HEADER_PATH);
  ASSERT_EQ(declared.size(), 199u);
  const std::set<std::string> defined = DefinedDynamicSymbols();
  ASSERT_FALSE(defined.empty()) << "nm found no symbols in " << LX_LIBRARY_PATH;
  for (const std::string& symbol : defined) {
    EXPECT_TRUE(declared.count(symbol) == 1) << "exported but not declared: " << symbol;
  }
}

}  // namespace
