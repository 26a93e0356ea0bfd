#include "formula/CNamedAttributeFormula.h"

Value& CNamedAttributeFormula::Evaluate(Value& result, IFormulaDataSource& dataSource,
                                        const NumberFormat& format) const {
  return dataSource.GetValueByName(result, name_, format);
}
