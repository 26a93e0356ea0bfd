#include "formula/CSingleValueFormula.h"

Value& CSingleValueFormula::Evaluate(Value& result, IFormulaDataSource&, const NumberFormat&) const {
  result = value_;
  return result;
}
