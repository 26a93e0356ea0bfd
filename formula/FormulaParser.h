// FormulaParser: the two entries that turn formula text into a tree.
//
// ParseTextFormula reads the formula of an attribute or of a specification
// column: literal text with expressions in braces. ParseConditionFormula
// reads a search condition. Both return an owned tree or throw FormulaError;
// neither leaves anything allocated behind when it throws. The parser keeps
// no state between calls and may run on several threads at once.
#pragma once

#include <cstddef>
#include <string_view>

#include "formula/CFormula.h"

// Never null: a text of one piece gives that piece's node, any other text a
// CComplexFormula of its pieces (none for an empty text).
FormulaPtr ParseTextFormula(std::wstring_view text);

// The condition in [start, end) of `text`; null when that range is empty or
// blank. Positions beyond the text are taken as its end. The root need not be
// a CLogicFormula: a caller that needs a condition checks that itself.
FormulaPtr ParseConditionFormula(std::wstring_view text, size_t start, size_t end);
