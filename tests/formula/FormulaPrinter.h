// FormulaPrinter: a tree's shape as one line of text, so that parser tests
// can state the expected tree as a readable literal.
//
//   integer        5            double        d:2.5        string  "text"
//   by number      A12          by name       [Длина]
//   arithmetic     (x + y)      condition     (x == y)
//   function       R(x, y)      joined text   concat(x, y, z)
//   no tree        null
#pragma once

#include <string>

class CFormula;

std::wstring PrintFormula(const CFormula* formula);
