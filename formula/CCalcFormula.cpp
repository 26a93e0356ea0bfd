#include "formula/CCalcFormula.h"

#include <cfloat>
#include <cmath>

#include "formula/ValueConversion.h"

namespace {

std::vector<FormulaPtr> MakeOperands(FormulaPtr left, FormulaPtr right) {
  std::vector<FormulaPtr> operands;
  operands.reserve(2);
  operands.push_back(std::move(left));
  operands.push_back(std::move(right));
  return operands;
}

bool BothIntegers(const Value& left, const Value& right) { return IsInteger(left) && IsInteger(right); }

// 32-bit wrap-around, done in unsigned arithmetic where overflow is defined.
int32_t Wrap(uint32_t bits) { return static_cast<int32_t>(bits); }
uint32_t Bits(const Value& integer) { return static_cast<uint32_t>(std::get<LX_VALUE_INT>(integer)); }

void Add(Value& result, const Value& left, const Value& right) {
  if (IsString(left) || IsString(right)) {
    result = ValueToText(left, kDefaultNumberFormat) + ValueToText(right, kDefaultNumberFormat);
  } else if (IsEmpty(left) || IsEmpty(right)) {
    result.emplace<LX_VALUE_EMPTY>();
  } else if (BothIntegers(left, right)) {
    result.emplace<LX_VALUE_INT>(Wrap(Bits(left) + Bits(right)));
  } else {
    result.emplace<LX_VALUE_DOUBLE>(ValueToDouble(left) + ValueToDouble(right));
  }
}

void Subtract(Value& result, const Value& left, const Value& right) {
  if (BothIntegers(left, right)) {
    result.emplace<LX_VALUE_INT>(Wrap(Bits(left) - Bits(right)));
  } else {
    result.emplace<LX_VALUE_DOUBLE>(ValueToDouble(left) - ValueToDouble(right));
  }
}

void Multiply(Value& result, const Value& left, const Value& right) {
  if (BothIntegers(left, right)) {
    result.emplace<LX_VALUE_INT>(Wrap(Bits(left) * Bits(right)));
  } else {
    result.emplace<LX_VALUE_DOUBLE>(ValueToDouble(left) * ValueToDouble(right));
  }
}

void Divide(Value& result, const Value& left, const Value& right) {
  if (BothIntegers(left, right)) {
    const int64_t divisor = std::get<LX_VALUE_INT>(right);
    // Done in 64 bits so that the smallest integer over -1 wraps to itself
    // instead of trapping.
    const int64_t quotient = divisor == 0 ? 0 : std::get<LX_VALUE_INT>(left) / divisor;
    result.emplace<LX_VALUE_INT>(Wrap(static_cast<uint32_t>(quotient)));
  } else {
    const double divisor = ValueToDouble(right);
    result.emplace<LX_VALUE_DOUBLE>(std::fabs(divisor) < DBL_EPSILON ? 0.0 : ValueToDouble(left) / divisor);
  }
}

}  // namespace

CCalcFormula::CCalcFormula(wchar_t operation, FormulaPtr left, FormulaPtr right)
    : CComplexFormula(MakeOperands(std::move(left), std::move(right))), operation_(operation) {}

Value& CCalcFormula::Evaluate(Value& result, IFormulaDataSource& dataSource, const NumberFormat& format) const {
  Value left;
  Value right;
  Left().Evaluate(left, dataSource, format);
  Right().Evaluate(right, dataSource, format);

  if (operation_ == L'+') {
    Add(result, left, right);
  } else if (IsEmpty(left) || IsEmpty(right)) {
    result.emplace<LX_VALUE_EMPTY>();
  } else if (operation_ == L'-') {
    Subtract(result, left, right);
  } else if (operation_ == L'*') {
    Multiply(result, left, right);
  } else {
    Divide(result, left, right);
  }
  return result;
}
