#include "formula/CLogicFormula.h"

#include "formula/FormulaError.h"
#include "formula/Matching.h"
#include "formula/ValueCompare.h"
#include "formula/ValueConversion.h"

namespace {

constexpr wchar_t kJunctionOfStringMessage[] = L"Для строк применим только оператор ==";
constexpr wchar_t kOrderingOfStringMessage[] = L"Для строк применим только оператор == или !=";

// A junction operand: a string is refused, a double truncates, empty is false.
bool Truth(const Value& operand) {
  if (IsString(operand)) throw FormulaError(kJunctionOfStringMessage);
  return ValueToInt(operand) != 0;
}

bool CompareNumbers(LogicOperation operation, const Value& left, const Value& right) {
  const ValueView leftView = MakeValueView(left);
  const ValueView rightView = MakeValueView(right);
  const std::partial_ordering order = CompareValues(leftView, rightView);
  switch (operation) {
    case LogicOperation::Equal:
      return ValuesEqual(leftView, rightView);
    case LogicOperation::NotEqual:
      return !ValuesEqual(leftView, rightView);
    case LogicOperation::Greater:
      return order == std::partial_ordering::greater;
    case LogicOperation::GreaterOrEqual:
      return order == std::partial_ordering::greater || order == std::partial_ordering::equivalent;
    case LogicOperation::Less:
      return order == std::partial_ordering::less;
    case LogicOperation::LessOrEqual:
      return order == std::partial_ordering::less || order == std::partial_ordering::equivalent;
    case LogicOperation::BitsInCommon:
      // One integer operand is enough to make this a test of bits.
      if (!IsInteger(left) && !IsInteger(right)) return false;
      return (ValueToInt(left) & ValueToInt(right)) != 0;
    default:
      return false;
  }
}

bool CompareTexts(LogicOperation operation, const Value& left, const Value& right) {
  const std::wstring leftText = ValueToText(left, kDefaultNumberFormat);
  const std::wstring rightText = ValueToText(right, kDefaultNumberFormat);
  if (operation == LogicOperation::Equal) {
    // Either side may carry the wildcards.
    return MatchWildcard(leftText.c_str(), rightText.c_str()) ||
           MatchWildcard(rightText.c_str(), leftText.c_str());
  }
  if (operation == LogicOperation::NotEqual) return leftText != rightText;
  throw FormulaError(kOrderingOfStringMessage);
}

}  // namespace

Value& CLogicFormula::Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const {
  bool holds = false;
  switch (operation_) {
    case LogicOperation::And:
    case LogicOperation::Or:
      holds = EvaluateJunction(dataSource, format);
      break;
    case LogicOperation::Like:
    case LogicOperation::NotLike:
      holds = EvaluateLike(dataSource, format);
      break;
    default:
      holds = EvaluateComparison(dataSource, format);
      break;
  }
  result.emplace<LX_VALUE_INT>(holds ? 1 : 0);
  return result;
}

bool CLogicFormula::EvaluateJunction(IFormulaDataSource& dataSource, const NumberFormat& format) const {
  Value operand;
  const bool leftHolds = Truth(left_->Evaluate(operand, dataSource, format));
  const bool decided = operation_ == LogicOperation::And ? !leftHolds : leftHolds;
  if (decided) return leftHolds;
  return Truth(right_->Evaluate(operand, dataSource, format));
}

bool CLogicFormula::EvaluateLike(IFormulaDataSource& dataSource, const NumberFormat& format) const {
  Value left;
  Value right;
  left_->Evaluate(left, dataSource, format);
  right_->Evaluate(right, dataSource, format);
  const bool matches =
      MatchLike(ValueToText(left, kDefaultNumberFormat), ValueToText(right, kDefaultNumberFormat));
  return operation_ == LogicOperation::Like ? matches : !matches;
}

bool CLogicFormula::EvaluateComparison(IFormulaDataSource& dataSource, const NumberFormat& format) const {
  Value left;
  Value right;
  left_->Evaluate(left, dataSource, format);
  right_->Evaluate(right, dataSource, format);
  if (IsString(left) || IsString(right)) return CompareTexts(operation_, left, right);
  return CompareNumbers(operation_, left, right);
}
