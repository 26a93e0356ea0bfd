#include "formula/FormulaParser.h"

#include <algorithm>
#include <vector>

#include "formula/CComplexFormula.h"
#include "formula/CSingleValueFormula.h"
#include "formula/ExpressionParser.h"
#include "formula/FormulaError.h"

namespace {

constexpr wchar_t kUnpairedBraceMessage[] = L"Ошибка записи формулы";

// One step through a formula text: the literal before the next braces, the
// expression between them, and where the following step begins.
struct BraceSpan {
  std::wstring_view literal;
  std::wstring_view expression;
  size_t next = 0;
};

// Quotes mean nothing at this level, so a "}" inside a quoted string still
// closes the expression.
BraceSpan NextBraceSpan(std::wstring_view text, size_t position) {
  const size_t open = text.find(L'{', position);
  const size_t close = text.find(L'}', position);
  if (open == std::wstring_view::npos && close == std::wstring_view::npos) {
    return {text.substr(position), {}, text.size()};
  }
  if (open == std::wstring_view::npos || close == std::wstring_view::npos || close < open) {
    throw FormulaError(kUnpairedBraceMessage);
  }
  return {text.substr(position, open - position), text.substr(open + 1, close - open - 1), close + 1};
}

FormulaPtr ParseBracedExpression(std::wstring_view expression) {
  // Each expression is a view of its own, so that matching brackets and
  // "the end of the view" stop at its closing brace.
  ExpressionParser parser(expression);
  if (FormulaPtr tree = parser.ParseExpression(0, expression.size())) return tree;
  return std::make_unique<CSingleValueFormula>(std::wstring(expression));
}

}  // namespace

FormulaPtr ParseTextFormula(std::wstring_view text) {
  std::vector<FormulaPtr> pieces;
  size_t position = 0;
  do {
    const BraceSpan span = NextBraceSpan(text, position);
    if (!span.literal.empty()) pieces.push_back(std::make_unique<CSingleValueFormula>(std::wstring(span.literal)));
    if (!span.expression.empty()) pieces.push_back(ParseBracedExpression(span.expression));
    position = span.next;
  } while (position < text.size());

  if (pieces.size() == 1) return std::move(pieces.front());
  return std::make_unique<CComplexFormula>(std::move(pieces));
}

FormulaPtr ParseConditionFormula(std::wstring_view text, size_t start, size_t end) {
  end = std::min(end, text.size());
  ExpressionParser parser(text);
  return parser.ParseCondition(start, end);
}
