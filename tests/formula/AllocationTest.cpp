// Evaluation of integer and double arithmetic must not touch the heap: a
// calculated attribute is evaluated on every read, and search evaluates a
// condition for every standard size of a catalog. This executable replaces
// the global allocation functions to count calls, so it stands apart from
// the other formula tests.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <new>

#include "CountingAllocator.h"
#include "formula/FormulaParser.h"
#include "formula/IFormulaDataSource.h"
#include "formula/NumberText.h"

namespace {

// Answers from fixed tables and records nothing, so that it allocates nothing
// itself.
class TableSource : public IFormulaDataSource {
 public:
  Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat&) override {
    const auto found = byName_.find(name);
    result = found == byName_.end() ? Value{} : found->second;
    return result;
  }
  Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat&) override {
    const auto found = byNumber_.find(attributeNumber);
    result = found == byNumber_.end() ? Value{} : found->second;
    return result;
  }
  bool SetValueByNumber(int32_t, const Value&) override { return false; }

 private:
  std::map<int32_t, Value> byNumber_{{3, Value{5}}, {5, Value{2.5}}, {12, Value{10}}};
  std::map<std::wstring, Value> byName_{{L"Длина", Value{12}}, {L"Масса", Value{0.75}}};
};

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
      {false, L"{A3*2+1}"},
      {false, L"{A5*2,5-A3/4}"},
      {false, L"{10-3-2}"},
      {false, L"{7/0}"},
      {false, L"{7.0/0}"},
      {false, L"{Длина*Масса}"},
      {false, L"{R(A5*3, 1)}"},
      {false, L"{A8+1}"},
      {true, L"A3 > 1 && A5 < 3"},
      {true, L"Длина >= 10 || Масса ^^ 1"},
      {true, L"A3*2 == 10"},
  };
  TableSource source;
  for (const ArithmeticCase& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << (&c - cases));
    const std::wstring_view text = c.text;
    FormulaPtr tree = c.condition ? ParseConditionFormula(text, 0, text.size()) : ParseTextFormula(text);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(AllocationsOfOneEvaluation(*tree, source), 0);
  }
}

TEST(EvaluationAllocations, TheCounterSeesTextBeingBuilt) {
  TableSource source;
  FormulaPtr tree = ParseTextFormula(L"Болт М{A12}x{A3} and some longer literal text");
  EXPECT_GT(AllocationsOfOneEvaluation(*tree, source), 0);
}

}  // namespace
