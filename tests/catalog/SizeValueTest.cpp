// GetSizeValue on objects made in memory: which of formula, own value and
// template value decides, and where the answer is kept.
#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "FakeFormulaSource.h"

#include "catalog/CAttribute.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/SizeValue.h"
#include "formula/NumberText.h"

namespace {

class SizeValue : public ::testing::Test {
 protected:
  SizeValue() : owner_(1, L"T", 0, L"", nullptr), size_(7, L"S", &owner_) {}
  // A column 21 whose template record holds `common`; the column is made
  // from the record, so it has the record's formula.
  CAttribute& Column(const Value& common, const std::wstring& formula = L"") {
    owner_.Records().clear();
    owner_.Records().push_back(TemplateAttribute{21, 0, L"A", L"", L"", L"", formula, common});
    column_ = std::make_unique<CAttribute>(owner_.Records().front(), nullptr);
    return *column_;
  }
  const Value* Read(const CAttribute& column, IFormulaDataSource* source = nullptr) {
    return GetSizeValue(column, size_, kDefaultNumberFormat, source);
  }

  CTemplate owner_;
  CStandartSize size_;
  std::unique_ptr<CAttribute> column_;
};

TEST_F(SizeValue, AnOwnValueCountsWhateverItsKindEvenWithoutTheRecord) {
  const CAttribute& column = Column(Value{5});
  size_.Values()[21] = Value{};
  const Value* value = Read(column);
  ASSERT_EQ(value, &size_.Values()[21]);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(*value));
  // Without the template's record only an own value is found.
  owner_.Records().clear();
  EXPECT_EQ(Read(column), &size_.Values()[21]);
  size_.Values().erase(21);
  EXPECT_EQ(Read(column), nullptr);
}

TEST_F(SizeValue, AFormulaBeatsBothAndIsKeptAmongTheCalculatedValues) {
  const CAttribute& column = Column(Value{5}, L"{2+3}");
  size_.Values()[21] = Value{9};
  const Value* value = Read(column);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value, &size_.Calculated().at(21));
  EXPECT_TRUE(*value == Value{5});
  // Each read evaluates again into the same place.
  size_.Calculated()[21] = Value{-1};
  EXPECT_EQ(Read(column), value);
  EXPECT_TRUE(*value == Value{5});
  EXPECT_TRUE(size_.Values()[21] == Value{9});
}

TEST_F(SizeValue, AGivenSourceIsTheOneTheFormulaReads) {
  const CAttribute& column = Column(Value{}, L"{A3+A4}");
  lxtest::FakeFormulaSource source({{3, Value{300}}, {4, Value{400}}}, {});
  const Value* value = Read(column, &source);
  ASSERT_NE(value, nullptr);
  EXPECT_TRUE(*value == Value{700});
  EXPECT_EQ(source.Reads(), (std::vector<std::wstring>{L"A3", L"A4"}));
}

}  // namespace
