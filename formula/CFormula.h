// CFormula: a node of a formula tree, the base of the node family.
//
// A tree is built once by the parser and never changed afterwards, so every
// operation is const: several threads may evaluate one tree at the same time,
// each through its own data source. A node owns its children. The base has no
// data; the virtual slots keep this order: destructor, Evaluate, SetValue,
// CanEditValue.
#pragma once

#include <memory>

#include "formula/IFormulaDataSource.h"
#include "formula/Value.h"

class CFormula {
 public:
  CFormula() = default;
  CFormula(const CFormula&) = delete;
  CFormula& operator=(const CFormula&) = delete;
  virtual ~CFormula() = default;

  // Stores the node's value in `result` and returns it. Missing data gives an
  // empty value, not an error; a FormulaError is thrown only for operators
  // applied to strings they don't take and for a wrong count of arguments.
  virtual Value& Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const = 0;

  // Writes `value` through the formula; only a reference by number can.
  virtual bool SetValue(IFormulaDataSource& dataSource, const Value& value) const { return false; }

  // Whether SetValue can succeed on this formula.
  virtual bool CanEditValue() const { return false; }
};

using FormulaPtr = std::unique_ptr<CFormula>;
