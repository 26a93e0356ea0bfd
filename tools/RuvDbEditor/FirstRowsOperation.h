// FirstRowsOperation: the rows and generator values a catalog starts with.
// A table that has no rows at all gets the script's first rows (a table the
// update has just made, or one that was emptied); a table with rows is the
// catalog's own business and is not touched. A generator below the script's
// start value is raised to it, never lowered, so that ids drawn later cannot
// meet the first rows' fixed ids.
//
// One transaction, committed only when it wrote something; a database with
// nothing to do, a read-only one included, is only read.
#pragma once

#include <vector>

#include "SchemaPlan.h"
#include "storage/BaseOperation.h"

class CDataProvider;

class FirstRowsOperation : public BaseOperation {
 public:
  // IBPP::Exception on failure; the rows are then not committed. A raised
  // generator stays raised (generators are outside transactions), which is
  // harmless by the rule above.
  static void Apply(CDataProvider* database, const std::vector<FirstRows>& rows,
                    const std::vector<GeneratorStart>& starts);

 private:
  explicit FirstRowsOperation(CDataProvider* database) : BaseOperation(database) {}
  bool IsEmpty(IBPP::Statement& statement, const std::string& table);
  bool Raise(IBPP::Statement& statement, const GeneratorStart& start);
};
