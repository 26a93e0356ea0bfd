// Matching: the two pattern languages of conditions. Pure functions.
//
// MatchWildcard is the "==" of strings: "*" and "?" anywhere, letters folded
// to capitals (Latin a-z, Russian а-я and ё). MatchLike is the "%" operator:
// exact, case included, with "*" meaningful only at the two ends.
#pragma once

#include <string_view>

// Both arguments are NUL-terminated. "*" matches any run, also an empty one,
// "?" exactly one character. Greedy with a single backtrack point.
bool MatchWildcard(const wchar_t* text, const wchar_t* pattern);

// An empty pattern matches only an empty text; a pattern of nothing but "*"
// matches every text; one "*" at the start, the end or both asks for a
// suffix, a prefix or a part; a "*" anywhere else never matches.
bool MatchLike(std::wstring_view text, std::wstring_view pattern);
