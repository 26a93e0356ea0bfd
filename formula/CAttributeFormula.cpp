#include "formula/CAttributeFormula.h"

Value& CAttributeFormula::Evaluate(Value& result, IFormulaDataSource& dataSource,
                                   const NumberFormat& format) const {
  return dataSource.GetValueByNumber(result, attributeNumber_, format);
}

bool CAttributeFormula::SetValue(IFormulaDataSource& dataSource, const Value& value) const {
  return dataSource.SetValueByNumber(attributeNumber_, value);
}
