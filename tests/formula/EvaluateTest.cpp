// Evaluation of parsed formulas and conditions over a data source.
#include <gtest/gtest.h>

#include <cmath>

#include "FakeFormulaSource.h"
#include "FormulaPrinter.h"
#include "ValueAssertions.h"
#include "formula/FormulaError.h"
#include "formula/FormulaParser.h"
#include "formula/NumberText.h"
#include "formula/Rounding.h"

namespace {

using lxtest::FakeFormulaSource;

// Attribute 8 and the name "Нет" are deliberately missing: they read as empty.
FakeFormulaSource MakeCatalogSource() {
  return FakeFormulaSource({{1, Value{7}}, {2, Value{2}}, {3, Value{5}}, {4, Value{2.0}}, {5, Value{2.5}},
                            {6, Value{L"3"}}, {7, Value{L"abc"}}, {9, Value{INT32_MIN}}, {10, Value{INT32_MAX}},
                            {11, Value{-1}}, {12, Value{10}}, {13, Value{20}}, {14, Value{7.9}}, {15, Value{L""}}},
                           {{L"Длина", Value{12}}, {L"Тип", Value{L"Болт М12"}}, {L"elevation", Value{3.5}},
                            {L"Масса", Value{0.9}}});
}

enum class Entry { Text, Condition };

FormulaPtr Parse(Entry entry, std::wstring_view text) {
  return entry == Entry::Text ? ParseTextFormula(text) : ParseConditionFormula(text, 0, text.size());
}

struct EvaluationCase {
  Entry entry;
  const wchar_t* text;
  Value expected;
};

void PrintTo(const EvaluationCase& c, std::ostream* out) {
  *out << (c.entry == Entry::Text ? "text " : "condition ") << Utf8(c.text);
}

class Evaluation : public testing::TestWithParam<EvaluationCase> {};

TEST_P(Evaluation, YieldsValue) {
  const EvaluationCase& c = GetParam();
  FormulaPtr tree = Parse(c.entry, c.text);
  ASSERT_NE(tree, nullptr);
  SCOPED_TRACE(Utf8(PrintFormula(tree.get())));
  FakeFormulaSource source = MakeCatalogSource();
  Value result{L"stale"};
  EXPECT_TRUE(SameValue(tree->Evaluate(result, source, kDefaultNumberFormat), c.expected));
  EXPECT_TRUE(SameValue(result, c.expected));
}

EvaluationCase Text(const wchar_t* text, Value expected) { return {Entry::Text, text, std::move(expected)}; }
EvaluationCase Condition(const wchar_t* text, Value expected) {
  return {Entry::Condition, text, std::move(expected)};
}

INSTANTIATE_TEST_SUITE_P(Pieces, Evaluation, testing::Values(
    Text(L"{A12}", Value{10}),  // one piece keeps its kind
    Text(L"{A5}", Value{2.5}), Text(L"{A12} mm", Value{L"10 mm"}), Text(L"Болт М{A12}x{A13}", Value{L"Болт М10x20"}),
    Text(L"d={A5}", Value{L"d=2,50"}), Text(L"{}", Value{L""}), Text(L"", Value{L""}), Text(L"{A8}", Value{}),
    Text(L"x{A8}y", Value{L"xy"}), Text(L"{Длина}", Value{12}), Text(L"{HPOINT}", Value{3.5}), Text(L"{Нет}", Value{}),
    Text(L"{ABC}", Value{L"ABC"}), Text(L"{ }", Value{L" "})));

INSTANTIATE_TEST_SUITE_P(Arithmetic, Evaluation, testing::Values(
    Text(L"{A3*2+1}", Value{11}), Text(L"{1+A3*2}", Value{11}), Text(L"{10-3-2}", Value{9}), Text(L"{8/4/2}", Value{4}),
    Text(L"{A1-A2+A3}", Value{10}), Text(L"{-5+3}", Value{-2}),
    Text(L"{-5-3}", Value{}),  // a name the source doesn't know
    Text(L"{2*-3}", Value{}),  // the name "2*" minus 3
    Text(L"{1e-5}", Value{}),  // the name "1e" minus 5
    Text(L"{7/2}", Value{3}), Text(L"{-7/2}", Value{-3}), Text(L"{7/2.0}", Value{3.5}), Text(L"{7/0}", Value{0}),
    Text(L"{7.0/0}", Value{0.0}), Text(L"{7/0.0}", Value{0.0}),
    Text(L"{1/0.0000000000000001}", Value{0.0}),  // below the double's epsilon
    Text(L"{1/0.000000000000001}", Value{1e15}), Text(L"{A8+1}", Value{}), Text(L"{1+A8}", Value{}),
    Text(L"{A8-1}", Value{}), Text(L"{A8*1}", Value{}), Text(L"{A8/1}", Value{}),
    Text(L"{A15+1}", Value{L"1"}),  // "" + 1
    Text(L"{A8+\"x\"}", Value{L"x"}),  // a string beats an empty operand
    Text(L"{A6*2}", Value{6.0}),  // "3" * 2
    Text(L"{A7*2}", Value{0.0}),  // "abc" * 2
    Text(L"{A6-1}", Value{2.0}), Text(L"{A6/2}", Value{1.5}), Text(L"{A6+2}", Value{L"32"}),
    Text(L"{1,5+\"x\"}", Value{L"1,50x"}), Text(L"{A5+A2}", Value{4.5}), Text(L"{A5*A2}", Value{5.0}),
    Text(L"{A4-A2}", Value{0.0}),
    Text(L"{A10+1}", Value{INT32_MIN}),  // integers wrap in 32 bits
    Text(L"{A9-1}", Value{INT32_MAX}), Text(L"{A10*2}", Value{-2}), Text(L"{A9/A11}", Value{INT32_MIN}),
    Text(L"{ABC+1}", Value{L"ABC+11"})));

INSTANTIATE_TEST_SUITE_P(Functions, Evaluation, testing::Values(
    // RoundHalfAway below holds the rounding cases; these are the calls.
    Text(L"{R(2.5)}", Value{3.0}), Text(L"{R(-1.25, 1)}", Value{-1.3}), Text(L"{R(1250, -2)}", Value{1300.0}),
    Text(L"{R(A1)}", Value{7.0}),  // a double also for an integer argument
    Text(L"{R(A5,2)}", Value{3.0}),  // one argument: "2" is dropped
    Text(L"{R(A5, 2)}", Value{2.5}), Text(L"{R(A14, A12)}", Value{7.9}),
    Text(L"{R(7.9, \"x\")}", Value{8.0}),  // digits that aren't a number count as 0
    Text(L"{R(A8)}", Value{0.0}),
    Text(L"{2*R(A5,10)}", Value{5.0}), Text(L"{NAME(1)}", Value{0}), Text(L"{ID(A1, A2)}", Value{0}),
    Text(L"{HPOINT(A1, A2)}", Value{0})));

INSTANTIATE_TEST_SUITE_P(Comparisons, Evaluation, testing::Values(
    Condition(L"1.000001 == 1.000002", Value{1}), Condition(L"1.000001 < 1.000002", Value{0}),
    Condition(L"1.000001 > 1.000002", Value{0}), Condition(L"1.000001 >= 1.000002", Value{1}),
    Condition(L"1 <= 1.000001", Value{1}), Condition(L"1 < 1.0001", Value{1}), Condition(L"5 < 6", Value{1}),
    Condition(L"6 < 5", Value{0}), Condition(L"6 > 5", Value{1}), Condition(L"1.00002 != 1", Value{1}),
    Condition(L"A12 == 10", Value{1}), Condition(L"Длина >= 12", Value{1}), Condition(L"HPOINT == 3,5", Value{1}),
    Condition(L"A8 < 1", Value{0}),  // empty is unordered against a number
    Condition(L"A8 > 1", Value{0}), Condition(L"A8 <= 1", Value{0}), Condition(L"A8 >= 1", Value{0}),
    Condition(L"A8 == 0", Value{0}), Condition(L"A8 != 0", Value{1}), Condition(L"A8 == Нет", Value{1}),
    Condition(L"A8 <= Нет", Value{1}), Condition(L"A1/0 == 0", Value{1}), Condition(L"1 - 2 < 0", Value{1}),
    Condition(L"6 ^^ 3", Value{1}), Condition(L"4 ^^ 3", Value{0}),
    Condition(L"6.0 ^^ 3", Value{1}),  // one integer is enough
    Condition(L"6.0 ^^ 3.0", Value{0}), Condition(L"A8 ^^ 3", Value{0})));

INSTANTIATE_TEST_SUITE_P(Strings, Evaluation, testing::Values(
    Condition(L"\"Болт\" == \"бол?\"", Value{1}), Condition(L"\"Болт\" == \"бол\"", Value{0}),
    Condition(L"\"*олт\" == \"болт\"", Value{1}), Condition(L"\"болт\" == \"*олт\"", Value{1}),
    Condition(L"\"abc\" == \"AB*\"", Value{1}),
    Condition(L"\"abc\" != \"AB*\"", Value{1}),  // "!=" is not the negation of "=="
    Condition(L"\"abc\" != \"abc\"", Value{0}), Condition(L"\"abc\" != \"ABC\"", Value{1}),
    Condition(L"Тип == \"Болт*\"", Value{1}), Condition(L"2.5 == \"2,50\"", Value{1}),
    Condition(L"2.5 == \"2.5\"", Value{0}), Condition(L"2.5 != \"2,50\"", Value{0}), Condition(L"A8 == \"\"", Value{1}),
    Condition(L"A12 == \"1?\"", Value{1}), Condition(L"\"Болт\" % \"бол*\"", Value{0}),
    Condition(L"\"Болт\" % \"Бол*\"", Value{1}), Condition(L"\"Болт\" % \"Б*т\"", Value{0}),
    Condition(L"\"Болт\" !% \"Б*т\"", Value{1}), Condition(L"\"Болт\" !% \"*лт\"", Value{0}),
    Condition(L"A5 % \"2,5*\"", Value{1}), Condition(L"A1 % 7", Value{1})));

INSTANTIATE_TEST_SUITE_P(Junctions, Evaluation, testing::Values(
    Condition(L"1 && 0", Value{0}), Condition(L"1 && 2", Value{1}),
    Condition(L"0 || 0.9", Value{0}),  // 0.9 truncates to false
    Condition(L"0 || 2", Value{1}), Condition(L"A8 || 1", Value{1}), Condition(L"A8 && 1", Value{0}),
    Condition(L"0 && \"a\"", Value{0}),  // the right side is never looked at
    Condition(L"1 || \"a\"", Value{1}),
    Condition(L"1 == 1 || 1 == 1 && 0 == 1", Value{0}),  // "&&" is the looser one
    Condition(L"1 == 1 || (1 == 1 && 0 == 1)", Value{1}), Condition(L"Длина > 10 && Тип == \"Болт*\"", Value{1}),
    Condition(L"Длина > 12 && Тип == \"Болт*\"", Value{0})));

struct ThrowCase {
  Entry entry;
  const wchar_t* text;
  const wchar_t* message;
};

void PrintTo(const ThrowCase& c, std::ostream* out) { *out << Utf8(c.text); }

class EvaluationFailure : public testing::TestWithParam<ThrowCase> {};

TEST_P(EvaluationFailure, ThrowsTheMessage) {
  const ThrowCase& c = GetParam();
  FormulaPtr tree = Parse(c.entry, c.text);
  ASSERT_NE(tree, nullptr);
  FakeFormulaSource source = MakeCatalogSource();
  Value result;
  try {
    tree->Evaluate(result, source, kDefaultNumberFormat);
    ADD_FAILURE() << "evaluated to " << DescribeValue(result);
  } catch (const FormulaError& error) {
    EXPECT_EQ(error.Text(), c.message);
  }
}

constexpr const wchar_t* kJunction = L"Для строк применим только оператор ==";
constexpr const wchar_t* kOrdering = L"Для строк применим только оператор == или !=";
constexpr const wchar_t* kRoundCount = L"Ошибка синтаксиса. Недопустимое количество аргументов функции Round!";

INSTANTIATE_TEST_SUITE_P(All, EvaluationFailure, testing::Values(
    ThrowCase{Entry::Condition, L"\"a\" && 1", kJunction}, ThrowCase{Entry::Condition, L"1 && \"a\"", kJunction},
    ThrowCase{Entry::Condition, L"\"a\" || 1", kJunction}, ThrowCase{Entry::Condition, L"0 || A7", kJunction},
    ThrowCase{Entry::Condition, L"A15 && 1", kJunction}, ThrowCase{Entry::Condition, L"\"a\" > 1", kOrdering},
    ThrowCase{Entry::Condition, L"1 >= \"a\"", kOrdering}, ThrowCase{Entry::Condition, L"\"a\" < \"b\"", kOrdering},
    ThrowCase{Entry::Condition, L"\"a\" <= 1", kOrdering}, ThrowCase{Entry::Condition, L"A6 ^^ 1", kOrdering},
    ThrowCase{Entry::Condition, L"A > 1", kOrdering},  // "A > 1" is one string
    ThrowCase{Entry::Text, L"{R(5)}", kRoundCount}, ThrowCase{Entry::Text, L"{R()}", kRoundCount},
    ThrowCase{Entry::Text, L"{R(1,2,30)}", kRoundCount}, ThrowCase{Entry::Text, L"x{R(1, 2, 3)}", kRoundCount}));

TEST(EvaluationOrder, ReadsWhatEachNodeNeedsInOrder) {
  struct OrderCase {
    Entry entry;
    const wchar_t* text;
    std::vector<std::wstring> reads;
  };
  const OrderCase cases[] = {
      {Entry::Text, L"{A8+A2}", {L"A8", L"A2"}},  // both sides even when the left is empty
      {Entry::Text, L"{A2-A1*A3}", {L"A2", L"A1", L"A3"}}, {Entry::Text, L"{NAME(A1)}", {}},
      {Entry::Text, L"{R(A1,A2)}", {L"A1", L"A2"}}, {Entry::Text, L"{Длина}-{HPOINT}", {L"[Длина]", L"[elevation]"}},
      {Entry::Condition, L"A1 == 0 && A2 == 2", {L"A1"}}, {Entry::Condition, L"A1 == 7 && A2 == 2", {L"A1", L"A2"}},
      {Entry::Condition, L"A1 == 7 || A2 == 2", {L"A1"}}, {Entry::Condition, L"A1 == 0 || A2 == 2", {L"A1", L"A2"}},
      {Entry::Condition, L"A1 % A2", {L"A1", L"A2"}},
  };
  for (const OrderCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text));
    FakeFormulaSource source = MakeCatalogSource();
    Value result;
    Parse(c.entry, c.text)->Evaluate(result, source, kDefaultNumberFormat);
    EXPECT_EQ(source.Reads(), c.reads);
  }
  // Round evaluates every argument before it refuses their count.
  FakeFormulaSource source = MakeCatalogSource();
  Value result;
  EXPECT_THROW(ParseTextFormula(L"{R(A1,A2,A3)}")->Evaluate(result, source, kDefaultNumberFormat), FormulaError);
  EXPECT_EQ(source.Reads(), (std::vector<std::wstring>{L"A1", L"A2", L"A3"}));
}

struct FormatCase {
  const wchar_t* text;
  NumberFormat format;
  Value expected;
};

TEST(EvaluationFormat, JoinedTextAndTheDataSourceGetTheCallersFormat) {
  const FormatCase cases[] = {
      {L"x{A14}", NumberFormat{false, 0}, Value{L"x7"}}, {L"x{A4}", NumberFormat{true, 2}, Value{L"x2"}},
      {L"x{A5}", NumberFormat{false, 4}, Value{L"x2,5000"}},
      {L"x{A5}", NumberFormat{false, kKeepPrintedDigits}, Value{L"x2,500000"}},
      {L"{A5}", NumberFormat{false, 0}, Value{2.5}},  // one piece is no text
      {L"{A5+\"x\"}", NumberFormat{false, 0}, Value{L"2,50x"}},  // "+" joins under the default
  };
  for (const FormatCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text));
    FakeFormulaSource source = MakeCatalogSource();
    Value result;
    EXPECT_TRUE(SameValue(ParseTextFormula(c.text)->Evaluate(result, source, c.format), c.expected));
  }
  // The format reaches the data source too.
  FakeFormulaSource source = MakeCatalogSource();
  const NumberFormat format{true, 5};
  Value result;
  ParseTextFormula(L"{A1}{Длина}")->Evaluate(result, source, format);
  ASSERT_EQ(source.Formats().size(), 2u);
  for (const NumberFormat& passed : source.Formats()) {
    EXPECT_TRUE(passed.trimZeros);
    EXPECT_EQ(passed.precision, 5u);
  }
}

struct WriteCase {
  const wchar_t* text;
  bool canEdit;
};

TEST(WriteThrough, OnlyAReferenceByNumberPassesAWriteOn) {
  const WriteCase cases[] = {
      {L"{A2}", true},        {L"{ (A2) }", true},    {L"{Длина}", false}, {L"{A2+1}", false},
      {L"{5}", false},        {L"a{A2}", false},      {L"x", false},       {L"{R(A2, 1)}", false},
  };
  for (const WriteCase& c : cases) {
    SCOPED_TRACE(Utf8(c.text));
    FormulaPtr tree = ParseTextFormula(c.text);
    FakeFormulaSource source = MakeCatalogSource();
    EXPECT_EQ(tree->CanEditValue(), c.canEdit);
    EXPECT_EQ(tree->SetValue(source, Value{42}), c.canEdit);
    EXPECT_EQ(source.Writes().size(), c.canEdit ? 1u : 0u);
  }
  FormulaPtr condition = ParseConditionFormula(L"A2 == 1", 0, 7);
  FakeFormulaSource source = MakeCatalogSource();
  EXPECT_FALSE(condition->CanEditValue());
  EXPECT_FALSE(condition->SetValue(source, Value{1}));
  EXPECT_TRUE(source.Writes().empty());
  // The write goes to the referred number; the source's answer is the result.
  FormulaPtr alias = ParseTextFormula(L"{A21}");
  for (const bool accepts : {true, false}) {
    FakeFormulaSource source = MakeCatalogSource();
    source.SetAcceptsWrites(accepts);
    EXPECT_EQ(alias->SetValue(source, Value{L"new"}), accepts);
    ASSERT_EQ(source.Writes().size(), 1u);
    EXPECT_EQ(source.Writes()[0].first, 21);
    EXPECT_TRUE(SameValue(source.Writes()[0].second, Value{L"new"}));
  }
}

struct RoundCase {
  double number;
  int32_t digits;
  double expected;
};

TEST(RoundHalfAway, HalvesGoAwayFromZero) {
  const RoundCase cases[] = {
      {2.5, 0, 3.0},     {-2.5, 0, -3.0},   {2.4, 0, 2.0},      {-2.4, 0, -2.0},   {0.5, 0, 1.0},
      {-0.5, 0, -1.0},   {0.0, 0, 0.0},     {1.2345, 2, 1.23},  {1.25, 1, 1.3},    {-1.25, 1, -1.3},
      {1250, -2, 1300},  {-1250, -2, -1300}, {1249, -2, 1200},  {1.5, 400, 1.5},   {1.5, -400, 0.0},
      {0.0, 400, 0.0},   {1e300, 20, 1e300}, {7.0, INT32_MAX, 7.0}, {7.0, INT32_MIN, 0.0},
  };
  for (const RoundCase& c : cases) {
    SCOPED_TRACE(testing::Message() << c.number << " to " << c.digits);
    EXPECT_DOUBLE_EQ(RoundHalfAway(c.number, c.digits), c.expected);
  }
  EXPECT_TRUE(std::isnan(RoundHalfAway(std::nan(""), 2)));
}

// A chain "{1+1+...+1}" of `terms` ones nests one level per operator.
std::wstring ChainOfOnes(int terms) {
  std::wstring text = L"{1";
  for (int i = 1; i < terms; ++i) text += L"+1";
  return text + L"}";
}

TEST(NestingLimit, DeepFormulasWorkButTextsThatWouldExhaustTheStackAreRefused) {
  FakeFormulaSource source;
  Value result;
  ParseTextFormula(ChainOfOnes(900))->Evaluate(result, source, kDefaultNumberFormat);
  ASSERT_TRUE(IsInteger(result));
  EXPECT_EQ(std::get<int32_t>(result), 900);
  for (const std::wstring& text : {ChainOfOnes(5000), L"{" + std::wstring(4000, L'-') + L"1}",
                                   L"{R(" + std::wstring(4000, L'-') + L"1,1)}"}) {
    try {
      ParseTextFormula(text);
      ADD_FAILURE() << "parsed a text of " << text.size() << " characters";
    } catch (const FormulaError& error) {
      EXPECT_EQ(error.Text(), L"Ошибка записи формулы");
    }
  }
  try {
    ParseConditionFormula(L"A1 == " + std::wstring(4000, L'-') + L"1", 0, std::wstring::npos);
    ADD_FAILURE() << "parsed a deep condition";
  } catch (const FormulaError& error) {
    EXPECT_EQ(error.Text(), L"Ошибка записи формулы");
  }
}

}  // namespace
