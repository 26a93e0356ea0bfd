// Calculated columns on loaded sizes: what a formula reads, the client's
// number format travelling down, and the guard that ends cycles.
#include "CatalogFixture.h"
#include "DebugOutput.h"
#include "Shapes.h"

using lxtest::Captured;
using lxtest::FlushText;
using lxtest::Writes;
namespace shapes = lxtest::shapes;
using lxtest::ValueText;

namespace {

class SizeFormula : public lxtest::CatalogFixture {
 protected:
  // One folder "Болты" with one template: columns 21 (integer, own values),
  // 22 (double, common 7.9) and the given calculated columns from 30 on.
  LxFolderTable* Table(std::initializer_list<std::wstring> formulas) {
    Sql().Execute({shapes::Folder(1, L"Крепёж"), shapes::Packet(1, L"Крепёж", 1), shapes::Folder(2, L"Болты", 1),
                   shapes::Template(10, 2, 1, L"T"), shapes::Column(10, 21, 1, L"Длина"),
                   shapes::Column(10, 22, 2, L"Диаметр", L"7.9"), shapes::Size(100, 10, L"Б-12"),
                   shapes::SizeValue(100, 21, 1, L"12"), shapes::Size(101, 10, L"Б-16"),
                   shapes::SizeValue(101, 21, 1, L"16")});
    std::int32_t number = 30;
    for (const std::wstring& formula : formulas) {
      Sql().Execute(shapes::Column(10, number, 3, L"Расчёт" + std::to_wstring(number), L"NULL", formula));
      ++number;
    }
    EXPECT_TRUE(Reload());
    LxPacket* packet = provider_GetPacketByName(provider_, L"Крепёж");
    return folder_GetTable(folder_GetChildFolder(packet_GetRootFolder(packet), 0));
  }
};

TEST_F(SizeFormula, ArithmeticReadsTheSizesOwnValues) {
  LxFolderTable* table = Table({L"{A21*2+1}"});
  LxAttribute* calculated = table_FindAttribute(table, L"Расчёт30");
  EXPECT_EQ(ValueText(table_FindStdSize(table, L"Б-12"), calculated), L"i:25");
  EXPECT_EQ(ValueText(table_FindStdSize(table, L"Б-16"), calculated), L"i:33");
  EXPECT_FALSE(attribute_CanEditForumalaValue(calculated));
}

TEST_F(SizeFormula, TextFormulaPrintsNumbersUnderTheClientsFormat) {
  LxFolderTable* table = Table({L"Болт М{A21}x{A22}"});
  LxStdSize* size = table_FindStdSize(table, L"Б-12");
  LxAttribute* calculated = table_FindAttribute(table, L"Расчёт30");
  EXPECT_EQ(ValueText(size, calculated, nullptr), L"s:Болт М12x7,90");
  const NumberFormat integerForm{false, 0};
  EXPECT_EQ(ValueText(size, calculated, &integerForm), L"s:Болт М12x7");
  // The view points at the last evaluation's result and stays valid until
  // the next read of the column on this size.
  ValueView view{};
  ASSERT_TRUE(stdsize_GetValue(size, calculated, nullptr, &view));
  const std::wstring seen(view.payload.text, view.length);
  EXPECT_EQ(seen, L"Болт М12x7,90");
}

TEST_F(SizeFormula, FormulaBeatsAnOwnValueOfItsColumn) {
  LxFolderTable* table = Table({L"{A21+100}"});
  Sql().Execute(shapes::SizeValue(100, 30, 3, L"'собственное'"));
  ASSERT_TRUE(Reload());
  LxPacket* packet = provider_GetPacketByName(provider_, L"Крепёж");
  table = folder_GetTable(folder_GetChildFolder(packet_GetRootFolder(packet), 0));
  EXPECT_EQ(ValueText(table_FindStdSize(table, L"Б-12"), table_FindAttribute(table, L"Расчёт30")), L"i:112");
}

TEST_F(SizeFormula, ReferenceToAColumnTheTableLacksIsEmptyAndSilent) {
  LxFolderTable* table = Table({L"М{A77}x{Нет такого}"});
  auto [text, writes] = Captured([&] { return ValueText(table_FindStdSize(table, L"Б-12"), table_FindAttribute(table, L"Расчёт30")); });
  EXPECT_EQ(text, L"s:Мx");
  EXPECT_TRUE(writes.empty());
}

TEST_F(SizeFormula, CycleEndsWithEmptyAndOneMessage) {
  LxFolderTable* table = Table({L"{A31}", L"{A30}"});
  LxStdSize* size = table_FindStdSize(table, L"Б-16");
  auto [text, writes] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт30")); });
  EXPECT_EQ(text, L"<none>");
  EXPECT_EQ(writes, Writes{">LxDataAcces: Зацикливание формулы в Б-16"});
  // A new read is a new source: the message comes again, once.
  auto [again, againWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт31")); });
  EXPECT_EQ(againWrites.size(), 1u);
}

TEST_F(SizeFormula, MoreThanFiftyReadsGiveEmptyFromTheFiftyFirstOn) {
  std::wstring fifty = L"{A21";
  for (int i = 1; i < 50; ++i) fifty += L"+A21";
  const std::wstring fiftyOne = fifty + L"+A21}";
  fifty += L"}";
  LxFolderTable* table = Table({fifty, fiftyOne});
  LxStdSize* size = table_FindStdSize(table, L"Б-12");
  auto [fiftyReads, writes] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт30")); });
  EXPECT_EQ(fiftyReads, L"i:600");
  EXPECT_TRUE(writes.empty());
  auto [over, overWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт31")); });
  EXPECT_EQ(overWrites, Writes{">LxDataAcces: Зацикливание формулы в Б-12"});
}

TEST_F(SizeFormula, UniqueValuesOfAPacketAreSortedOnceEachAndIncludeFormulas) {
  LxFolderTable* table = Table({L"{A21*0+5}"});
  LxPacket* packet = provider_GetPacketByName(provider_, L"Крепёж");
  EXPECT_STREQ(packet_GetAttributeUniqueValues(packet, L"длина", L';'), L"12;16");
  EXPECT_STREQ(packet_GetAttributeUniqueValues(packet, L"Диаметр", L'|'), L"7,90");
  const wchar_t* calculated = packet_GetAttributeUniqueValues(packet, L"Расчёт30", L',');
  EXPECT_STREQ(calculated, L"5");
  const wchar_t* none = packet_GetAttributeUniqueValues(packet, L"Нет такого", L',');
  ASSERT_NE(none, nullptr);
  EXPECT_STREQ(none, L"");
  EXPECT_EQ(none, calculated) << "one static text per export";
  ASSERT_NE(table, nullptr);
}

}  // namespace
