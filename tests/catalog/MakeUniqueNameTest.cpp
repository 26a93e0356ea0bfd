// MakeUniqueName on its own: the form "base (n)", counting on from a name
// that already carries a number, and every candidate it tries.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "catalog/MakeUniqueName.h"

namespace {

// A set of taken names that remembers what it was asked.
struct Taken {
  std::set<std::wstring> names;
  std::vector<std::wstring> asked;
  std::wstring Unique(const std::wstring& name) {
    return MakeUniqueName(name, [this](const std::wstring& candidate) {
      asked.push_back(candidate);
      return names.count(candidate) != 0;
    });
  }
};

TEST(MakeUniqueName, AFreeNameStaysAsItIs) {
  Taken taken{{L"M6"}, {}};
  EXPECT_EQ(taken.Unique(L"M5"), L"M5");
  EXPECT_EQ(taken.asked, std::vector<std::wstring>{L"M5"});
}

TEST(MakeUniqueName, ATakenNameGetsTheCounterFromZero) {
  Taken taken{{L"M5"}, {}};
  EXPECT_EQ(taken.Unique(L"M5"), L"M5 (0)");
  EXPECT_EQ(taken.asked, (std::vector<std::wstring>{L"M5", L"M5 (0)"}));
}

TEST(MakeUniqueName, CountsOnFromTheNumberTheNameCarries) {
  Taken taken{{L"M5 (3)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5 (3)"), L"M5 (4)");
  // The first candidate is the taken name itself again.
  EXPECT_EQ(taken.asked, (std::vector<std::wstring>{L"M5 (3)", L"M5 (3)", L"M5 (4)"}));
}

TEST(MakeUniqueName, BracketsWithoutANumberAreTakenAsText) {
  Taken taken{{L"M5 (x)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5 (x)"), L"M5 (x) (0)");
}

TEST(MakeUniqueName, SkipsEveryTakenCandidate) {
  Taken taken{{L"M5", L"M5 (0)", L"M5 (1)", L"M5 (3)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5"), L"M5 (2)");
  EXPECT_EQ(taken.Unique(L"M5 (1)"), L"M5 (2)");
  EXPECT_EQ(taken.Unique(L"M5 (3)"), L"M5 (4)");
}

TEST(MakeUniqueName, ZeroEmptyAndUnclosedBracketsDoNotCount) {
  Taken taken{{L"M5 (0)", L"M5 ()", L"M5 (3", L"M5 (3) x", L"M5 (3x)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5 (0)"), L"M5 (0) (0)");
  EXPECT_EQ(taken.Unique(L"M5 ()"), L"M5 () (0)");
  EXPECT_EQ(taken.Unique(L"M5 (3"), L"M5 (3 (0)");
  EXPECT_EQ(taken.Unique(L"M5 (3) x"), L"M5 (3) x (0)");
  EXPECT_EQ(taken.Unique(L"M5 (3x)"), L"M5 (3x) (0)");
}

TEST(MakeUniqueName, OnlyTheLastBracketCounts) {
  Taken taken{{L"A (2) (7)", L"A (2) (x)"}, {}};
  EXPECT_EQ(taken.Unique(L"A (2) (7)"), L"A (2) (8)");
  EXPECT_EQ(taken.Unique(L"A (2) (x)"), L"A (2) (x) (0)");
}

TEST(MakeUniqueName, TheCharacterBeforeTheBracketIsDroppedWhateverItIs) {
  // The character in front of "(" is taken for the blank of "x (3)".
  Taken taken{{L"M5(3)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5(3)"), L"M (3)");
}

TEST(MakeUniqueName, ABracketThatOpensTheNameKeepsTheWholeName) {
  Taken taken{{L"(3)"}, {}};
  EXPECT_EQ(taken.Unique(L"(3)"), L"(3) (3)");
}

TEST(MakeUniqueName, ANegativeNumberCountsOnToo) {
  Taken taken{{L"M5 (-2)"}, {}};
  EXPECT_EQ(taken.Unique(L"M5 (-2)"), L"M5 (-1)");
}

}  // namespace
