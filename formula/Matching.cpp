#include "formula/Matching.h"

#include "platform/CaseFold.h"

namespace {

bool SameFolded(wchar_t patternChar, wchar_t textChar) {
  return patternChar == L'?' || FoldEquals(patternChar, textChar);
}

}  // namespace

bool MatchWildcard(const wchar_t* text, const wchar_t* pattern) {
  // Up to the first "*" the pattern is walked in step with the text.
  while (*text != L'\0' && *pattern != L'*') {
    if (!SameFolded(*pattern, *text)) return false;
    ++pattern;
    ++text;
  }
  // Behind a "*" only the latest one is a place to come back to: on a mismatch
  // the pattern restarts behind it and the text one character further on.
  const wchar_t* resumePattern = nullptr;
  const wchar_t* resumeText = nullptr;
  while (*text != L'\0') {
    if (*pattern == L'*') {
      ++pattern;
      if (*pattern == L'\0') return true;
      resumePattern = pattern;
      resumeText = text + 1;
    } else if (*pattern != L'\0' && SameFolded(*pattern, *text)) {
      ++pattern;
      ++text;
    } else {
      pattern = resumePattern;
      text = resumeText++;
    }
  }
  while (*pattern == L'*') ++pattern;
  return *pattern == L'\0';
}

bool MatchLike(std::wstring_view text, std::wstring_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern.find_first_not_of(L'*') == std::wstring_view::npos) return true;

  const bool anyStart = pattern.front() == L'*';
  const bool anyEnd = pattern.back() == L'*';
  std::wstring_view core = pattern;
  if (anyStart) core.remove_prefix(1);
  if (anyEnd) core.remove_suffix(1);
  if (core.find(L'*') != std::wstring_view::npos) return false;

  if (anyStart && anyEnd) return text.find(core) != std::wstring_view::npos;
  if (anyStart) return text.ends_with(core);
  if (anyEnd) return text.starts_with(core);
  return text == core;
}
