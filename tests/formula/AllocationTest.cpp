// Evaluation of integer and double arithmetic must not touch the heap: a
// calculated attribute is evaluated on every read, and search evaluates a
// condition for every standard size of a catalog. This executable replaces
// the global allocation functions to count calls, so it stands apart from
// the other formula tests.
#include <gtest/gtest.h>

#include "CountingAllocator.h"
#include "FakeFormulaSource.h"
#include "formula/FormulaParser.h"
#include "formula/NumberText.h"

namespace {

// Answers without recording, so that it allocates nothing itself.
lxtest::FakeFormulaSource TableSource() {
  return {{{3, Value{5}}, {5, Value{2.5}}, {12, Value{10}}},
          {{L"Длина", Value{12}}, {L"Масса", Value{0.75}}},
          lxtest::FakeFormulaSource::Log::Silent};
}

long AllocationsOfOneEvaluation(const CFormula& tree, IFormulaDataSource& source) {
  Value result{0};
  const long before = lxtest::AllocationCount();
  tree.Evaluate(result, source, kDefaultNumberFormat);
  return lxtest::AllocationCount() - before;
}

struct ArithmeticCase {
  bool condition;
  const wchar_t* text;
};

TEST(EvaluationAllocations, NoneForIntegerAndDoubleArithmetic) {
  const ArithmeticCase cases[] = {
      {false, L"{A3*2+1}"}, {false, L"{A5*2,5-A3/4}"}, {false, L"{10-3-2}"}, {false, L"{7/0}"}, {false, L"{7.0/0}"},
      {false, L"{Длина*Масса}"}, {false, L"{R(A5*3, 1)}"}, {false, L"{A8+1}"}, {true, L"A3 > 1 && A5 < 3"},
      {true, L"Длина >= 10 || Масса ^^ 1"}, {true, L"A3*2 == 10"},
  };
  lxtest::FakeFormulaSource source = TableSource();
  for (const ArithmeticCase& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << (&c - cases));
    const std::wstring_view text = c.text;
    FormulaPtr tree = c.condition ? ParseConditionFormula(text, 0, text.size()) : ParseTextFormula(text);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(AllocationsOfOneEvaluation(*tree, source), 0);
  }
}

TEST(EvaluationAllocations, TheCounterSeesTextBeingBuilt) {
  lxtest::FakeFormulaSource source = TableSource();
  FormulaPtr tree = ParseTextFormula(L"Болт М{A12}x{A3} and some longer literal text");
  EXPECT_GT(AllocationsOfOneEvaluation(*tree, source), 0);
}

}  // namespace
