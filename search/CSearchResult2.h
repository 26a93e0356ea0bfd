// CSearchResult2: a compiled search condition that the client tests sizes
// against one at a time. It holds no sizes and no pointer into a catalog, so
// it goes on working across reloads and with sizes of any provider.
// Belongs to the client from pool_GetSearchResult2 to
// pool_DeleteSearchResult2; immutable in between.
#pragma once

#include <memory>
#include <string>

#include "formula/CFormula.h"

class CStandartSize;

class CSearchResult2 {
 public:
  // Null, with a report, for an empty query; a FormulaError for a query that
  // does not parse or is no condition.
  static std::unique_ptr<CSearchResult2> _CreateSearchResult2(const std::wstring& query);

  // Whether the size satisfies the condition, by the search's own rule.
  bool Check(CStandartSize& size) const;

 private:
  explicit CSearchResult2(FormulaPtr condition) : condition_(std::move(condition)) {}

  FormulaPtr condition_;
};
