// LxgenArguments: the command line of lxgen, read into a shape and the
// catalog to write. Pure; thread-safe.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/CatalogGenerator/CatalogShape.h"

struct LxgenArguments {
  CatalogShape shape;
  // UTF-8, as given.
  std::string catalog;
  std::string server;
  std::string user = "SYSDBA";
  std::string password = "masterkey";
  bool quiet = false;
};

// The usage text, one option a line.
const char* LxgenUsage();

// The arguments after the program's name; on failure a sentence saying what
// is wrong. "--help" fails with an empty sentence.
std::variant<LxgenArguments, std::string> ParseLxgenArguments(const std::vector<std::string>& arguments);
