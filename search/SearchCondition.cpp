#include "search/SearchCondition.h"

#include "catalog/CStdSizeFormulaHelper.h"
#include "formula/CLogicFormula.h"
#include "formula/FormulaError.h"
#include "formula/FormulaParser.h"
#include "formula/NumberText.h"
#include "formula/ValueConversion.h"

FormulaPtr ParseSearchCondition(const std::wstring& query) {
  FormulaPtr condition = ParseConditionFormula(query, 0, query.size());
  if (dynamic_cast<const CLogicFormula*>(condition.get()) == nullptr) {
    throw FormulaError(L"Формула не является логической");
  }
  return condition;
}

bool SizeMatches(const CFormula& condition, CStandartSize& size) {
  CStdSizeFormulaHelper source(&size);
  Value result;
  return ValueToInt(condition.Evaluate(result, source, kDefaultNumberFormat)) == 1;
}
