// SchemaScript: the catalog's schema script, storage/schema/catalog.sql, as
// the build put it into the tool, cut into statements. It is the same script
// the library's empty catalog is made from, so an updated catalog and a new
// one have the same schema.
//
// The text is constant for the life of the process; thread-safe.
#pragma once

#include <string_view>
#include <vector>

#include "SchemaStatement.h"

class SchemaScript {
 public:
  // The script's text, UTF-8.
  static std::string_view Text();
  // Its statements in order; throws what SchemaStatement::Parse throws.
  static std::vector<SchemaStatement> Statements();
};
