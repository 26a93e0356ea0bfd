#include "formula/ExpressionParser.h"

#include <array>
#include <cfloat>
#include <cstdint>
#include <utility>

#include "formula/CAttributeFormula.h"
#include "formula/CCalcFormula.h"
#include "formula/CFunctionFormula.h"
#include "formula/CLogicFormula.h"
#include "formula/CNamedAttributeFormula.h"
#include "formula/CSingleValueFormula.h"
#include "formula/FormulaError.h"
#include "formula/NumberText.h"

namespace {

constexpr wchar_t kEmptyConditionOperandMessage[] = L"Ошибка записи формулы: ";
constexpr wchar_t kMalformedFunctionMessage[] = L"Ошибка синтаксиса. Неправильная запись функции!";
constexpr wchar_t kTooDeepMessage[] = L"Ошибка записи формулы";

// Search order, which is also the order from the loosest binding. "<=" and
// ">=" come before "<" and ">", and "!%" before "%", so that the longer
// operator is not taken for the shorter one.
constexpr std::array<std::pair<std::wstring_view, LogicOperation>, 11> kConditionOperators{{
    {L"&&", LogicOperation::And},
    {L"||", LogicOperation::Or},
    {L"==", LogicOperation::Equal},
    {L"!=", LogicOperation::NotEqual},
    {L"<=", LogicOperation::LessOrEqual},
    {L"<", LogicOperation::Less},
    {L">=", LogicOperation::GreaterOrEqual},
    {L">", LogicOperation::Greater},
    {L"^^", LogicOperation::BitsInCommon},
    {L"!%", LogicOperation::NotLike},
    {L"%", LogicOperation::Like},
}};

constexpr std::array<wchar_t, 4> kArithmeticOperators{L'+', L'-', L'*', L'/'};

// Exact and case-sensitive. A name with a blank before its "(" is no call.
constexpr std::array<std::wstring_view, 4> kFunctionNames{L"R", L"NAME", L"ID", L"HPOINT"};

// A whole decimal integer; 2147483647 is refused because a 32-bit wcstol
// also answers it for every overflow, so it can't be told from one.
bool ReadInteger(std::wstring_view word, int32_t& number) {
  return ParseWholeInt32(word, number) && number != INT32_MAX;
}

bool IsFunctionName(std::wstring_view name) {
  for (std::wstring_view function : kFunctionNames) {
    if (function == name) return true;
  }
  return false;
}

FormulaPtr MakeConstant(Value value) { return std::make_unique<CSingleValueFormula>(std::move(value)); }

std::wstring AttributeNameOf(std::wstring_view word) {
  // "HPOINT" is the formula spelling of the attribute named "elevation".
  if (word == L"HPOINT") return L"elevation";
  return std::wstring(word);
}

}  // namespace

// Counts the nesting of one parse. A tree deeper than the limit is refused
// as malformed: no catalog formula comes near it, and a client's text must
// not be able to exhaust the stack of parsing, evaluating or destroying.
class ExpressionParser::DepthGuard {
 public:
  explicit DepthGuard(int& depth) : depth_(depth) {
    if (++depth_ > kMaxDepth) {
      --depth_;
      throw FormulaError(kTooDeepMessage);
    }
  }
  ~DepthGuard() { --depth_; }
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;

 private:
  int& depth_;
};

FormulaPtr ExpressionParser::ParseCondition(size_t start, size_t end) {
  DepthGuard nested(depth_);
  if (start >= end || !scanner_.TrimRange(start, end)) return nullptr;
  for (const auto& [text, operation] : kConditionOperators) {
    const size_t at = scanner_.FindAtTopLevel(start, end, text);
    if (at == FormulaScanner::kNotFound) continue;
    FormulaPtr left = ParseCondition(start, at);
    FormulaPtr right = ParseCondition(at + text.size(), end);
    if (!left || !right) throw FormulaError(kEmptyConditionOperandMessage);
    return std::make_unique<CLogicFormula>(std::move(left), std::move(right), operation);
  }
  return ParseExpression(start, end);
}

FormulaPtr ExpressionParser::ParseExpression(size_t start, size_t end) {
  DepthGuard nested(depth_);
  FormulaPtr tree = SplitExpression(start, end);
  completedRanges_.emplace(start, end);
  return tree;
}

void ExpressionParser::CheckExpression(size_t start, size_t end) {
  if (completedRanges_.contains({start, end})) return;
  ParseExpression(start, end);
}

FormulaPtr ExpressionParser::SplitExpression(size_t start, size_t end) {
  if (start >= end || !scanner_.TrimRange(start, end)) return nullptr;
  for (const wchar_t operation : kArithmeticOperators) {
    const size_t at = scanner_.FindAtTopLevel(start, end, std::wstring_view(&operation, 1));
    if (at == FormulaScanner::kNotFound) continue;
    // Only this first occurrence is tried: "-5-3" does not split at its
    // second "-". When the left side is empty the right side is still
    // parsed, so that a syntax error behind the operator is reported all the
    // same; its tree isn't needed.
    FormulaPtr left = ParseExpression(start, at);
    if (!left) {
      CheckExpression(at + 1, end);
      continue;
    }
    FormulaPtr right = ParseExpression(at + 1, end);
    if (right) return std::make_unique<CCalcFormula>(operation, std::move(left), std::move(right));
  }
  if (FormulaPtr call = ParseFunctionCall(start, end)) return call;
  if (FormulaPtr operand = ParseOperand(start, end)) return operand;
  return MakeConstant(std::wstring(scanner_.View()));
}

FormulaPtr ExpressionParser::ParseFunctionCall(size_t start, size_t end) {
  const std::wstring_view view = scanner_.View();
  const size_t open = view.find(L'(', start);
  if (open == std::wstring_view::npos || open >= end) return nullptr;
  const std::wstring_view name = view.substr(start, open - start);
  if (!IsFunctionName(name)) return nullptr;
  const size_t close = scanner_.MatchingBracket(open);
  // A call must end the whole view, not only the range: nothing may follow
  // its ")", so it can stand only as the last operand.
  if (close != view.size() - 1) throw FormulaError(kMalformedFunctionMessage);
  return std::make_unique<CFunctionFormula>(std::wstring(name), SplitArguments(open + 1, close));
}

std::vector<FormulaPtr> ExpressionParser::SplitArguments(size_t start, size_t end) {
  std::vector<FormulaPtr> arguments;
  auto addArgument = [&](size_t from, size_t to) {
    FormulaPtr argument = ParseExpression(from, to);
    // A blank argument has no node to stand for it; the call is refused
    // rather than quietly shifting the arguments behind it.
    if (!argument) throw FormulaError(kMalformedFunctionMessage);
    arguments.push_back(std::move(argument));
  };
  size_t from = start;
  size_t look = start;
  for (;;) {
    // The search starts one behind the piece's first character, so a comma
    // right behind "(" belongs to the first argument.
    const size_t comma = scanner_.FindAtTopLevel(look + 1, end, L",");
    if (comma == FormulaScanner::kNotFound) break;
    addArgument(from, comma);
    from = comma + 1;
    look = comma;
  }
  // A last piece shorter than two characters is dropped unparsed: "R(A5,2)"
  // has one argument, "R(A5, 2)" two.
  if (end - from >= 2) addArgument(from, end);
  return arguments;
}

FormulaPtr ExpressionParser::ParseOperand(size_t start, size_t end) const {
  const std::wstring_view word = scanner_.View().substr(start, end - start);
  int32_t number = 0;
  if (word.front() == L'A') {
    if (word.size() > 1 && ReadInteger(word.substr(1), number)) {
      return std::make_unique<CAttributeFormula>(number);
    }
    return nullptr;
  }
  if (ReadInteger(word, number)) return MakeConstant(number);
  const double real = StringToDouble(word, DBL_MAX);
  if (real != DBL_MAX) return MakeConstant(real);
  if (word.size() >= 2 && word.front() == L'"' && word.back() == L'"') {
    return MakeConstant(std::wstring(word.substr(1, word.size() - 2)));
  }
  return std::make_unique<CNamedAttributeFormula>(AttributeNameOf(word));
}
