#include "formula/CComplexFormula.h"

#include "formula/ValueConversion.h"

Value& CComplexFormula::Evaluate(Value& result, IFormulaDataSource& dataSource,
                                 const NumberFormat& format) const {
  std::wstring joined;
  Value piece;
  for (const FormulaPtr& child : children_) {
    joined += ValueToText(child->Evaluate(piece, dataSource, format), format);
  }
  result = std::move(joined);
  return result;
}
