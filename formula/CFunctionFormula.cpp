#include "formula/CFunctionFormula.h"

#include "formula/FormulaError.h"
#include "formula/Rounding.h"
#include "formula/ValueConversion.h"

namespace {

constexpr wchar_t kRoundName[] = L"R";
constexpr wchar_t kRoundArgumentCountMessage[] =
    L"Ошибка синтаксиса. Недопустимое количество аргументов функции Round!";

}  // namespace

Value& CFunctionFormula::Evaluate(Value& result, IFormulaDataSource& dataSource,
                                  const NumberFormat& format) const {
  if (name_ != kRoundName) {
    result.emplace<LX_VALUE_INT>(0);
    return result;
  }
  // Every argument is evaluated, also beyond the two that R can use, since a
  // read through the data source counts towards its guard against cycles.
  Value number;
  Value digits;
  Value ignored;
  size_t count = 0;
  for (const FormulaPtr& argument : Children()) {
    Value& target = count == 0 ? number : count == 1 ? digits : ignored;
    argument->Evaluate(target, dataSource, format);
    ++count;
  }
  if (count != 1 && count != 2) throw FormulaError(kRoundArgumentCountMessage);
  const int32_t decimals = count == 2 ? ValueToInt(digits) : 0;
  result.emplace<LX_VALUE_DOUBLE>(RoundHalfAway(ValueToDouble(number), decimals));
  return result;
}
