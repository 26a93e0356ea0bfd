// Formula text and condition text to tree shape, and every parse failure.
#include <gtest/gtest.h>

#include <string>

#include "FormulaPrinter.h"
#include "ValueAssertions.h"
#include "formula/FormulaError.h"
#include "formula/FormulaParser.h"

namespace {

struct ShapeCase {
  const wchar_t* text;
  const wchar_t* tree;
};

void PrintTo(const ShapeCase& c, std::ostream* out) { *out << Utf8(c.text); }

std::wstring ConditionTree(std::wstring_view text) {
  return PrintFormula(ParseConditionFormula(text, 0, text.size()).get());
}

class TextFormulaShape : public testing::TestWithParam<ShapeCase> {};

TEST_P(TextFormulaShape, ParsesToTree) {
  EXPECT_EQ(PrintFormula(ParseTextFormula(GetParam().text).get()), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(Pieces, TextFormulaShape, testing::Values(
    ShapeCase{L"Болт М{A12}x{A13}", L"concat(\"Болт М\", A12, \"x\", A13)"}, ShapeCase{L"{A12}", L"A12"},
    ShapeCase{L"длина", L"\"длина\""}, ShapeCase{L"Длина {A1} мм", L"concat(\"Длина \", A1, \" мм\")"},
    ShapeCase{L"{A1}{A2}", L"concat(A1, A2)"}, ShapeCase{L"{}", L"concat()"}, ShapeCase{L"", L"concat()"},
    ShapeCase{L"a{}", L"\"a\""}, ShapeCase{L"{ }", L"\" \""}, ShapeCase{L"{Длина==5}", L"[Длина==5]"},
    ShapeCase{L"{a{b}", L"[a{b]"}));

INSTANTIATE_TEST_SUITE_P(Operands, TextFormulaShape, testing::Values(
    ShapeCase{L"{Длина}", L"[Длина]"}, ShapeCase{L"{HPOINT}", L"[elevation]"}, ShapeCase{L"{ A1 }", L"A1"},
    ShapeCase{L"{(A1)}", L"A1"}, ShapeCase{L"{((A1))}", L"A1"}, ShapeCase{L"{A-1}", L"(\"A-1\" - 1)"},
    ShapeCase{L"{A2147483647}", L"\"A2147483647\""}, ShapeCase{L"{A2147483646}", L"A2147483646"},
    ShapeCase{L"{A}", L"\"A\""}, ShapeCase{L"{ABC}", L"\"ABC\""}, ShapeCase{L"{A1x}", L"\"A1x\""},
    ShapeCase{L"{ABC+1}", L"(\"ABC+1\" + 1)"},
    ShapeCase{L"{Аб}", L"[Аб]"},  // Cyrillic А is no attribute prefix
    ShapeCase{L"{-5}", L"-5"}, ShapeCase{L"{+5}", L"5"}, ShapeCase{L"{a+}", L"[a+]"},
    ShapeCase{L"{2147483646}", L"2147483646"}, ShapeCase{L"{2147483647}", L"d:2147483647"},
    ShapeCase{L"{2147483648}", L"d:2147483648"}, ShapeCase{L"{-2147483648}", L"-2147483648"},
    ShapeCase{L"{-2147483649}", L"-2147483648"},  // saturates as a 32-bit wcstol does
    ShapeCase{L"{1e3}", L"d:1000"}, ShapeCase{L"{0,5}", L"d:0.5"}, ShapeCase{L"{1.5}", L"d:1.5"},
    ShapeCase{L"{1.7976931348623157e308}", L"[1.7976931348623157e308]"},  // the fallback itself
    ShapeCase{L"{\"a+b\"}", L"\"a+b\""}, ShapeCase{L"{\"\"}", L"\"\""},
    ShapeCase{L"{\"a\" \"b\"}", L"\"a\" \"b\""},  // inner quotes stay
    ShapeCase{L"{a)}", L"[a)]"}, ShapeCase{L"{R (A5)}", L"[R (A5)]"}, ShapeCase{L"{Вес (кг)}", L"[Вес (кг)]"},
    ShapeCase{L"{a\tb}", L"[a\tb]"}));

INSTANTIATE_TEST_SUITE_P(Arithmetic, TextFormulaShape, testing::Values(
    ShapeCase{L"{A3*2+1}", L"((A3 * 2) + 1)"}, ShapeCase{L"{1+A3*2}", L"(1 + (A3 * 2))"},
    ShapeCase{L"{10-3-2}", L"(10 - (3 - 2))"}, ShapeCase{L"{8/4/2}", L"(8 / (4 / 2))"},
    ShapeCase{L"{A1*A2/A3}", L"(A1 * (A2 / A3))"}, ShapeCase{L"{A1/A2*A3}", L"((A1 / A2) * A3)"},
    ShapeCase{L"{A1-A2+A3}", L"((A1 - A2) + A3)"}, ShapeCase{L"{-5+3}", L"(-5 + 3)"}, ShapeCase{L"{-5-3}", L"[-5-3]"},
    ShapeCase{L"{-a*-b*-c}", L"([-a] * ([-b] * [-c]))"}, ShapeCase{L"{2*-3}", L"([2*] - 3)"},
    ShapeCase{L"{1e-5}", L"([1e] - 5)"}, ShapeCase{L"{\"a\"+A2}", L"(\"a\" + A2)"}, ShapeCase{L"{ 1 + 2 }", L"(1 + 2)"},
    ShapeCase{L"{(1+2)*3}", L"((1 + 2) * 3)"}, ShapeCase{L"{(a)+(b)}", L"([a] + [b])"},
    ShapeCase{L"{(a)(b+c)}", L"([(a)(b] + [c)])"}));  // a group right behind a group is entered

INSTANTIATE_TEST_SUITE_P(Functions, TextFormulaShape, testing::Values(
    ShapeCase{L"{R(A5,10)}", L"R(A5, 10)"},
    ShapeCase{L"{R(A5,2)}", L"R(A5)"},  // the last piece has one character
    ShapeCase{L"{R(A5, 2)}", L"R(A5, 2)"}, ShapeCase{L"{R(5,10)}", L"R(5, 10)"}, ShapeCase{L"{R(5)}", L"R()"},
    ShapeCase{L"{R()}", L"R()"}, ShapeCase{L"{R(0,5,10)}", L"R(0, 5, 10)"},
    ShapeCase{L"{R(,5)}", L"R(d:0.5)"},  // a comma right behind "(" is no separator
    ShapeCase{L"{R((1,2),30)}", L"R([(1], [2)], 30)"},  // the first search starts inside the group
    ShapeCase{L"{2*R(A5,10)}", L"(2 * R(A5, 10))"}, ShapeCase{L"{NAME(1)}", L"NAME()"},
    ShapeCase{L"{NAME(A1)}", L"NAME(A1)"}, ShapeCase{L"{ID(12)}", L"ID(12)"}, ShapeCase{L"{HPOINT(12)}", L"HPOINT(12)"},
    ShapeCase{L"{r(12)}", L"[r(12)]"}));

class ConditionShape : public testing::TestWithParam<ShapeCase> {};

TEST_P(ConditionShape, ParsesToTree) { EXPECT_EQ(ConditionTree(GetParam().text), GetParam().tree); }

INSTANTIATE_TEST_SUITE_P(Conditions, ConditionShape, testing::Values(
    ShapeCase{L"A > 1", L"(\"A > 1\" > 1)"},
    ShapeCase{L"Длина > 10 && Тип == \"Болт*\"", L"(([Длина] > 10) && ([Тип] == \"Болт*\"))"},
    ShapeCase{L"a == 1 || b == 2 && c == 3", L"((([a] == 1) || ([b] == 2)) && ([c] == 3))"},
    ShapeCase{L"a == 1 && (b == 2 || c == 3)", L"(([a] == 1) && (([b] == 2) || ([c] == 3)))"},
    ShapeCase{L"a == b == c", L"([a] == ([b] == [c]))"}, ShapeCase{L"a==b", L"([a] == [b])"},
    ShapeCase{L"a!=b", L"([a] != [b])"}, ShapeCase{L"a<=b", L"([a] <= [b])"}, ShapeCase{L"a<b", L"([a] < [b])"},
    ShapeCase{L"a>=b", L"([a] >= [b])"}, ShapeCase{L"a>b", L"([a] > [b])"}, ShapeCase{L"a^^b", L"([a] ^^ [b])"},
    ShapeCase{L"a!%b", L"([a] !% [b])"}, ShapeCase{L"a%b", L"([a] % [b])"}, ShapeCase{L"a||b", L"([a] || [b])"},
    ShapeCase{L"a + 1 == b * 2", L"(([a] + 1) == ([b] * 2))"}, ShapeCase{L"(a == 1)", L"([a] == 1)"},
    ShapeCase{L"a == \"x y\"", L"([a] == \"x y\")"}, ShapeCase{L"\"a==b\"", L"\"a==b\""},
    ShapeCase{L"a = = b", L"[a = = b]"},
    ShapeCase{L"1 ==", L"[1 ==]"},  // an operator ending the range is no operator
    ShapeCase{L"a &&", L"[a &&]"}, ShapeCase{L"HPOINT > 5", L"([elevation] > 5)"},
    ShapeCase{L"1 > R(A5)", L"(1 > R(A5))"}, ShapeCase{L"a", L"[a]"}, ShapeCase{L"", L"null"},
    ShapeCase{L"   ", L"null"}, ShapeCase{L"(  )", L"null"}));

TEST(ParseConditionFormula, ReadsOnlyItsRange) {
  const std::wstring_view text = L"xx a == 1 yy";
  EXPECT_EQ(PrintFormula(ParseConditionFormula(text, 3, 9).get()), L"([a] == 1)");
  EXPECT_EQ(PrintFormula(ParseConditionFormula(text, 5, 5).get()), L"null");
  EXPECT_EQ(PrintFormula(ParseConditionFormula(text, 2, 3).get()), L"null");
  EXPECT_EQ(PrintFormula(ParseConditionFormula(L"a==1", 0, 1000).get()), L"([a] == 1)");
}

enum class Entry { Text, Condition };

struct FailureCase {
  Entry entry;
  const wchar_t* text;
  const wchar_t* message;
};

void PrintTo(const FailureCase& c, std::ostream* out) {
  *out << (c.entry == Entry::Text ? "text " : "condition ") << Utf8(c.text);
}

class ParseFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(ParseFailure, ThrowsTheMessage) {
  const FailureCase& c = GetParam();
  const std::wstring_view text = c.text;
  try {
    FormulaPtr tree = c.entry == Entry::Text ? ParseTextFormula(text) : ParseConditionFormula(text, 0, text.size());
    ADD_FAILURE() << "parsed to " << Utf8(PrintFormula(tree.get()));
  } catch (const FormulaError& error) {
    EXPECT_EQ(error.Text(), c.message);
  }
}

constexpr const wchar_t* kBraces = L"Ошибка записи формулы";
constexpr const wchar_t* kEmptyOperand = L"Ошибка записи формулы: ";
constexpr const wchar_t* kBrackets = L"Ошибка синтаксиса. Несоответствие открывающих и закрывающих скобок!";
constexpr const wchar_t* kQuotes = L"Ошибка синтаксиса. Несоответствие открывающих и закрывающих кавычек!";
constexpr const wchar_t* kFunction = L"Ошибка синтаксиса. Неправильная запись функции!";

INSTANTIATE_TEST_SUITE_P(Braces, ParseFailure, testing::Values(
    FailureCase{Entry::Text, L"a}b", kBraces}, FailureCase{Entry::Text, L"{a", kBraces},
    FailureCase{Entry::Text, L"}a{", kBraces}, FailureCase{Entry::Text, L"{A1}x}", kBraces},
    FailureCase{Entry::Text, L"{A1+1}{2", kBraces}));

INSTANTIATE_TEST_SUITE_P(Groups, ParseFailure, testing::Values(
    FailureCase{Entry::Text, L"{(a}", kBrackets}, FailureCase{Entry::Text, L"{1+(2*3}", kBrackets},
    FailureCase{Entry::Text, L"{R(}", kBrackets}, FailureCase{Entry::Text, L"{R(1,(2)}", kBrackets},
    FailureCase{Entry::Text, L"{\"}\"}", kQuotes},  // the first "}" closes the braces
    FailureCase{Entry::Text, L"{\"a\"b\"}", kQuotes}, FailureCase{Entry::Text, L"{x\"}", kQuotes},
    FailureCase{Entry::Text, L"{A1+\"}", kQuotes}, FailureCase{Entry::Condition, L"\"a", kQuotes},
    FailureCase{Entry::Condition, L"a == \"b", kQuotes}, FailureCase{Entry::Condition, L"(a", kBrackets},
    FailureCase{Entry::Condition, L"a == (b || c", kBrackets}));

INSTANTIATE_TEST_SUITE_P(Functions, ParseFailure, testing::Values(
    FailureCase{Entry::Text, L"{R(A5,10)*2}", kFunction}, FailureCase{Entry::Text, L"{R(A5,10) }", kFunction},
    FailureCase{Entry::Text, L"{(R(A5,10))}", kFunction}, FailureCase{Entry::Text, L"{R(R(1),2)}", kFunction},
    FailureCase{Entry::Text, L"{-R(1)x}", kFunction},  // the right side of a failed "-" is still parsed
    FailureCase{Entry::Text, L"{R( ,10)}", kFunction}, FailureCase{Entry::Text, L"{R(1,,10)}", kFunction},
    FailureCase{Entry::Text, L"{R(1,   )}", kFunction}, FailureCase{Entry::Condition, L"R(A5) > 1", kFunction}));

INSTANTIATE_TEST_SUITE_P(ConditionOperands, ParseFailure, testing::Values(
    FailureCase{Entry::Condition, L"== 1", kEmptyOperand}, FailureCase{Entry::Condition, L"&& a", kEmptyOperand},
    FailureCase{Entry::Condition, L"a == 1 &&  == 2", kEmptyOperand},
    FailureCase{Entry::Condition, L"() == 1", kEmptyOperand},
    FailureCase{Entry::Condition, L"a == ( )", kEmptyOperand}));

}  // namespace
