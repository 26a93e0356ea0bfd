// The library's one case fold, for the only two alphabets the catalog's users
// write in: Latin a-z and Russian а-я with ё fold to upper case; every other
// character stays as it is. Attribute names, wildcard patterns, database paths
// and the registry's library paths all compare through it. Deliberately not
// locale-driven, so that a name means the same on every machine and in every
// host process, whatever locale the host has set.
#pragma once

#include <string_view>

inline wchar_t FoldChar(wchar_t ch) {
  if ((ch >= L'a' && ch <= L'z') || (ch >= 0x0430 && ch <= 0x044F)) return static_cast<wchar_t>(ch - 32);
  if (ch == 0x0451) return 0x0401;  // ё -> Ё
  return ch;
}

inline bool FoldEquals(wchar_t left, wchar_t right) { return FoldChar(left) == FoldChar(right); }

// Same length and every character equal under the fold.
inline bool FoldEquals(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (!FoldEquals(left[i], right[i])) return false;
  }
  return true;
}
