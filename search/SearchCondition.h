// The one rule by which both kinds of search decide that a standard size
// matches, and the compilation of a condition text, shared so that a search
// and a single check can never disagree.
#pragma once

#include <string>
#include <string_view>

#include "formula/CFormula.h"

class CStandartSize;

inline constexpr std::wstring_view kEmptyQueryMessage = L"Требуется передать не пустой запрос";

// The whole text as a condition. A FormulaError when it does not parse, and
// when it parses to anything but a logical operation (a bare name, a value,
// blanks).
FormulaPtr ParseSearchCondition(const std::wstring& query);

// Evaluates the condition over a fresh data source of the size under the
// default number format; a match is a result whose integer value is 1.
// Touches no database and reports nothing, so search workers may call it
// at once for sizes of different folders.
bool SizeMatches(const CFormula& condition, CStandartSize& size);
