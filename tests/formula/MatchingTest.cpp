// The two pattern languages: wildcard ("==" on strings) and like ("%").
#include <gtest/gtest.h>

#include "ValueAssertions.h"
#include "formula/Matching.h"

namespace {

struct MatchCase {
  const wchar_t* text;
  const wchar_t* pattern;
  bool expected;
};

TEST(MatchWildcard, StarQuestionMarkAndFoldedLetters) {
  const MatchCase cases[] = {
      {L"Болт", L"бол?", true}, {L"Болт", L"бол", false}, {L"болт", L"*олт", true},
      {L"*олт", L"болт", false},  // the text's "*" is an ordinary character
      {L"", L"", true}, {L"", L"*", true}, {L"", L"**", true}, {L"", L"?", false}, {L"", L"a", false},
      {L"abc", L"", false}, {L"abc", L"*", true}, {L"abc", L"a*", true}, {L"abc", L"a*c", true}, {L"abc", L"*b*", true},
      {L"abc", L"*d", false}, {L"abc", L"ab", false}, {L"ab", L"abc", false}, {L"abc", L"a?c", true},
      {L"a?c", L"abc", false},
      {L"abcbd", L"a*bd", true},  // needs the step back after "abc" fails
      {L"aaa", L"a*a", true}, {L"mississippi", L"m*iss*ppi", true}, {L"mississippi", L"m*iss*ppx", false},
      {L"abc", L"*c*", true}, {L"Zz", L"zZ", true}, {L"ёлка", L"ЁЛКА", true}, {L"ЁЛКА", L"ёлка", true},
      {L"яЯ", L"ЯЯ", true},
      {L"ä", L"Ä", false},  // only Latin and Russian letters fold
      {L"1,5", L"1.5", false},
  };
  for (const MatchCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text) + " against " + Utf8(c.pattern));
    EXPECT_EQ(MatchWildcard(c.text, c.pattern), c.expected);
  }
}

TEST(MatchLike, ExactWithStarsOnlyAtTheEnds) {
  const MatchCase cases[] = {
      {L"Болт", L"бол*", false},  // case counts
      {L"Болт", L"Бол*", true},
      {L"Болт", L"Б*т", false},  // a "*" inside never matches
      {L"Б*т", L"Б*т", false}, {L"", L"", true}, {L"a", L"", false}, {L"", L"*", true}, {L"anything", L"***", true},
      {L"abc", L"*bc", true}, {L"abc", L"*ab", false}, {L"abc", L"ab*", true}, {L"abc", L"bc*", false},
      {L"abc", L"*b*", true}, {L"abc", L"*d*", false}, {L"abc", L"abc", true}, {L"abc", L"ab", false},
      {L"abc", L"a?c", false},  // "?" has no meaning
      {L"a?c", L"a?c", true}, {L"", L"*a*", false},
      {L"ab", L"**b", false},  // one "*" at each end is taken off, the next one is inside
  };
  for (const MatchCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text) + " against " + Utf8(c.pattern));
    EXPECT_EQ(MatchLike(c.text, c.pattern), c.expected);
  }
}

}  // namespace
