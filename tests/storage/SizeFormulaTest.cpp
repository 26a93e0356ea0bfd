// Calculated columns on loaded sizes: references the table lacks, the guard
// that ends cycles, and the unique values of a packet. What a formula reads
// and the number format it gets are tested with the values (ValueTest).
#include "CatalogFixture.h"
#include "DebugOutput.h"
#include "Shapes.h"

using lxtest::Captured;
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

// A reference to a column the table lacks is empty and silent. The guard: a
// cycle ends with empty and one message, and so does a formula that reads
// more than fifty times, from the fifty-first read on.
TEST_F(SizeFormula, MissingReferencesCyclesAndOverFiftyReadsGiveEmpty) {
  std::wstring fifty = L"{A21";
  for (int i = 1; i < 50; ++i) fifty += L"+A21";
  const std::wstring fiftyOne = fifty + L"+A21}";
  fifty += L"}";
  LxFolderTable* table = Table({L"{A31}", L"{A30}", fifty, fiftyOne, L"М{A77}x{Нет такого}"});
  LxStdSize* size = table_FindStdSize(table, L"Б-12");
  auto [missing, missingWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт34")); });
  EXPECT_EQ(missing, L"s:Мx");
  EXPECT_TRUE(missingWrites.empty());

  auto [text, writes] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт30")); });
  EXPECT_EQ(text, L"<none>");
  EXPECT_EQ(writes, Writes{">LxDataAcces: Зацикливание формулы в Б-12"});
  // A new read is a new source: the message comes again, once.
  auto [again, againWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт31")); });
  EXPECT_EQ(againWrites.size(), 1u);

  auto [fiftyReads, fiftyWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт32")); });
  EXPECT_EQ(fiftyReads, L"i:600");
  EXPECT_TRUE(fiftyWrites.empty());
  auto [over, overWrites] = Captured([&] { return ValueText(size, table_FindAttribute(table, L"Расчёт33")); });
  EXPECT_EQ(over, L"<none>");
  EXPECT_EQ(overWrites, Writes{">LxDataAcces: Зацикливание формулы в Б-12"});
}

TEST_F(SizeFormula, UniqueValuesOfAPacketAreSortedOnceEachAndIncludeFormulas) {
  ASSERT_NE(Table({L"{A21*0+5}"}), nullptr);
  LxPacket* packet = provider_GetPacketByName(provider_, L"Крепёж");
  EXPECT_STREQ(packet_GetAttributeUniqueValues(packet, L"длина", L';'), L"12;16");
  EXPECT_STREQ(packet_GetAttributeUniqueValues(packet, L"Диаметр", L'|'), L"7,90");
  const wchar_t* calculated = packet_GetAttributeUniqueValues(packet, L"Расчёт30", L',');
  EXPECT_STREQ(calculated, L"5");
  const wchar_t* none = packet_GetAttributeUniqueValues(packet, L"Нет такого", L',');
  ASSERT_NE(none, nullptr);
  EXPECT_STREQ(none, L"");
  EXPECT_EQ(none, calculated) << "one static text per export";
}

}  // namespace
