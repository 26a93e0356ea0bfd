// CComplexFormula: a formula text made of several pieces, literal text and
// expressions in braces, whose value is the pieces' texts joined. Also the
// base of the nodes that own a list of children (CCalcFormula,
// CFunctionFormula). Immutable after construction.
#pragma once

#include <vector>

#include "formula/CFormula.h"

class CComplexFormula : public CFormula {
 public:
  explicit CComplexFormula(std::vector<FormulaPtr> children) : children_(std::move(children)) {}

  // Always a string, also with no children: each child's text under `format`,
  // in order.
  Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const override;

  const std::vector<FormulaPtr>& Children() const { return children_; }

 private:
  std::vector<FormulaPtr> children_;
};
