// SchemaUpdate: the tool's answer to --update-schema. It compares the
// catalog with the schema script built into the tool and adds what is
// missing (SchemaPlan): the DDL in one transaction, then the first rows of
// empty tables and the generators' start values in a second one, since the
// engine takes no rows into a table before the transaction that made it has
// committed. Running it on an up-to-date catalog changes nothing.
//
// Stateless.
#pragma once

#include <string>

class SchemaUpdate {
 public:
  // The number of DDL changes made. Throws IBPP::Exception (engine) or
  // std::runtime_error (script).
  static std::size_t Run(const std::string& databasePath);
};
