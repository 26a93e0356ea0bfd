// MakeUniqueName on its own: the form "base (n)", counting on from a name
// that already carries a number, and every candidate it tries.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "catalog/MakeUniqueName.h"

namespace {

using Names = std::vector<std::wstring>;

// A set of taken names that remembers what it was asked.
struct Taken {
  std::set<std::wstring> names;
  Names asked;
  std::wstring Unique(const std::wstring& name) {
    return MakeUniqueName(name, [this](const std::wstring& candidate) {
      asked.push_back(candidate);
      return names.count(candidate) != 0;
    });
  }
};

TEST(MakeUniqueName, TriesTheNameThenCountsOnFromItsNumberOrZero) {
  struct Case {
    const wchar_t* name;
    const wchar_t* unique;
    Names asked;
  };
  const Case cases[] = {
      {L"M5", L"M5", {L"M5"}},  // a free name stays as it is
      {L"M6", L"M6 (0)", {L"M6", L"M6 (0)"}},
      // The first candidate is the taken name itself again.
      {L"M6 (3)", L"M6 (4)", {L"M6 (3)", L"M6 (3)", L"M6 (4)"}},
  };
  for (const Case& c : cases) {
    Taken taken{{L"M6", L"M6 (3)"}, {}};
    EXPECT_EQ(taken.Unique(c.name), c.unique);
    EXPECT_EQ(taken.asked, c.asked);
  }
}

TEST(MakeUniqueName, OnlyANonZeroNumberInTheLastBracketsCounts) {
  struct Case {
    std::set<std::wstring> taken;
    const wchar_t* name;
    const wchar_t* unique;
  };
  const Case cases[] = {
      {{L"M5 (x)"}, L"M5 (x)", L"M5 (x) (0)"},  // brackets without a number are text
      {{L"M5", L"M5 (0)", L"M5 (1)", L"M5 (3)"}, L"M5", L"M5 (2)"},  // every taken candidate is skipped
      {{L"M5", L"M5 (0)", L"M5 (1)", L"M5 (3)"}, L"M5 (1)", L"M5 (2)"},
      {{L"M5", L"M5 (0)", L"M5 (1)", L"M5 (3)"}, L"M5 (3)", L"M5 (4)"},
      // Zero, empty and unclosed brackets do not count.
      {{L"M5 (0)"}, L"M5 (0)", L"M5 (0) (0)"}, {{L"M5 ()"}, L"M5 ()", L"M5 () (0)"},
      {{L"M5 (3"}, L"M5 (3", L"M5 (3 (0)"}, {{L"M5 (3) x"}, L"M5 (3) x", L"M5 (3) x (0)"},
      {{L"M5 (3x)"}, L"M5 (3x)", L"M5 (3x) (0)"},
      {{L"A (2) (7)"}, L"A (2) (7)", L"A (2) (8)"}, {{L"A (2) (x)"}, L"A (2) (x)", L"A (2) (x) (0)"},
      // The character in front of "(" is taken for the blank of "x (3)",
      // whatever it is.
      {{L"M5(3)"}, L"M5(3)", L"M (3)"},
      {{L"(3)"}, L"(3)", L"(3) (3)"},  // a bracket that opens the name keeps the whole name
      {{L"M5 (-2)"}, L"M5 (-2)", L"M5 (-1)"},  // a negative number counts on too
  };
  for (const Case& c : cases) {
    Taken taken{c.taken, {}};
    EXPECT_EQ(taken.Unique(c.name), c.unique) << testing::PrintToString(std::wstring(c.name));
  }
}

}  // namespace
