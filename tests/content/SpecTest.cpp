// Specification records and representation data on real catalogs: both
// belong to the template, so every size of it sees the same; columns are
// parsed as a whole; equal representation blocks are stored once.
#include <string>

#include "ContentFixture.h"

namespace lxtest {
namespace {

using Specs = ContentFixture;

TEST_F(Specs, SizesOfOneTemplateShareOneListReadOnce) {
  Execute(SpecRows(11, 501, L"основная", 7, {L"{A1}", L"Болт {A2}"}));
  Execute(SpecRows(12, 501, L"вторая", 8, {}));
  ASSERT_EQ(stdsize_GetSpecificationCount(s1_), 2);
  EXPECT_EQ(SeenSpecs(s1_), StoredSpecs(501));
  EXPECT_EQ(SeenSpecs(s1_), (Texts{L"вторая|8|1|2|", L"основная|7|1|2|1={A1};2=Болт {A2}"}));
  for (std::int32_t i = 0; i < 2; ++i) EXPECT_EQ(stdsize_GetSpecification(s2_, i), stdsize_GetSpecification(s1_, i));
  EXPECT_FAILS(stdsize_GetSpecification(s2_, 2),
               "Индекс 2 выходит за пределы диапазона [0, 2) [CStandartSize::_GetSpecification]");

  // U has none: 0 without a word, and the empty list is kept like any other.
  EXPECT_EQ(Captured([&] { return stdsize_GetSpecificationCount(u1_); }), Quietly(0));
  Execute(SpecRows(13, 502, L"поздняя", 1, {L"1"}));
  EXPECT_EQ(stdsize_GetSpecificationCount(u1_), 0);
  ReloadAndWalk();
  EXPECT_EQ(SeenSpecs(Size(L"U1")), Texts{L"поздняя|1|1|2|1=1"});
}

TEST_F(Specs, ColumnsAreTakenWholeOrNotAtAll) {
  Execute(SpecRows(21, 501, L"сломанная", 1, {L"{A1}", L"{A2", L"3"}));
  LxSpec* spec = stdsize_GetSpecification(s1_, 0);
  ASSERT_NE(spec, nullptr);
  EXPECT_STREQ(spec_LibName(spec), L"сломанная");
  // One bad formula fails every column call, each time again.
  for (int round = 0; round < 2; ++round) {
    EXPECT_FAILS(spec_ColumnCount(spec), " (fun: spec_ColumnCount) Неизвестное исключение");
    EXPECT_FAILS(spec_ColumnNumber(spec, 0), " (fun: spec_ColumnNumber) Неизвестное исключение");
    EXPECT_FAILS(spec_ColumnFormula(spec, 0), " (fun: spec_ColumnFormula) Неизвестное исключение");
  }
  // Nothing was kept of the good columns: once repaired, all three arrive.
  Sql().Execute(L"UPDATE SPECIFICATIONCOLUMN SET FORMULA = '{A2}' WHERE SPECIFICATIONID = 21 AND COLNUMBER = 2");
  EXPECT_EQ(spec_ColumnCount(spec), 3);
  EXPECT_EQ(SeenSpecs(s1_), Texts{L"сломанная|1|1|2|1={A1};2={A2};3=3"});
  EXPECT_FAILS(spec_ColumnNumber(spec, -1), "Индекс -1 выходит за пределы диапазона [0, 3) [CSpec::_ColumnNumber]");
  EXPECT_FAILS(spec_ColumnFormula(spec, 3), "Индекс 3 выходит за пределы диапазона [0, 3) [CSpec::_ColumnStrFormula]");
}

class Representations : public ContentFixture {
 protected:
  // What stdsize_GetRepresentationData gives, or "<failed>".
  static std::string Read(LxStdSize* size) {
    unsigned char* data = nullptr;
    std::int32_t length = -1;
    if (!stdsize_GetRepresentationData(size, &data, &length)) return "<failed>";
    return std::string(reinterpret_cast<const char*>(data), static_cast<std::size_t>(length));
  }
  static bool Write(LxStdSize* size, std::string bytes) {
    return stdsize_SetRepresentationData(size, reinterpret_cast<unsigned char*>(bytes.data()),
                                         static_cast<std::int32_t>(bytes.size()));
  }
  std::wstring RowOf(std::int32_t templateId) {
    return Sql().Texts(L"SELECT CAST(REPRESENTATIONID AS VARCHAR(12)) FROM OBJECT WHERE ID = " + std::to_wstring(templateId))[0];
  }
};

TEST_F(Representations, EqualBytesAreStoredOnceUnderTheirDigest) {
  const std::int32_t before = Count(L"REPRESENTATION");
  // The MD5 of "abc" is a published test vector.
  const std::wstring digest = L"900150983cd24fb0d6963f7d28e17f72";
  ASSERT_TRUE(Write(s1_, "abc"));
  ASSERT_TRUE(Write(u1_, "abc"));
  EXPECT_EQ(Count(L"REPRESENTATION"), before + 1);
  const Texts row = Sql().Texts(L"SELECT CAST(ID AS VARCHAR(12)) FROM REPRESENTATION WHERE DIGEST = " + Quoted(digest));
  ASSERT_EQ(row.size(), 1u);
  EXPECT_EQ(RowOf(501), row[0]);
  EXPECT_EQ(RowOf(502), row[0]);
  EXPECT_EQ(Read(s2_), "abc");
  EXPECT_EQ(Read(u1_), "abc");

  // A write is followed by a read from the database, not by the bytes just
  // handed over: change the stored row behind the library's back.
  std::string other = "xyz";
  ASSERT_TRUE(Write(s1_, "abc"));
  Sql().Execute(L"UPDATE REPRESENTATION SET DATA = " + StoredLiteral(Bytes(other.begin(), other.end())) +
                L" WHERE ID = " + row[0]);
  EXPECT_EQ(Read(s1_), "xyz");
}

TEST_F(Representations, AVirtualFolderRefusesAndATemplateWithoutOneIsReported) {
  ASSERT_NE(folder_AddChildFolder(root_, L"Группы"), nullptr);
  const std::int32_t groups = FolderId(L"Группы");
  Sql().Execute({TemplateRow(701, L"Первый", groups), TemplateRow(702, L"Второй", groups), SizeRow(801, 701, L"В1"),
                 SizeRow(802, 702, L"В2"),
                 AttributeRowSql(701, {21, 1, L"Длина", L"Длина детали", L"1, NULL, NULL"}),
                 AttributeRowSql(702, {21, 1, L"Длина", L"Длина детали", L"2, NULL, NULL"})});
  ReloadAndWalk();
  LxStdSize* grouped = packet_FindStdSize(packet_, L"В1");
  ASSERT_NE(grouped, nullptr);
  ASSERT_TRUE(folder_IsVirtual(table_GetFolder(stdsize_GetTable(grouped))));
  const std::int32_t rows = Count(L"REPRESENTATION");
  EXPECT_FAILS(Write(grouped, "abc"),
               "Для виртуальных фолдеров нелья задать представление [TableOperation::SetTemplateRepresentationData]",
               "Проблема записи  representation [CStandartSize::_SetRepresentationData]");
  EXPECT_EQ(Count(L"REPRESENTATION"), rows);
  EXPECT_EQ(RowOf(701), L"4");

  // A row that points nowhere, as a catalog without the key may hold.
  Sql().Execute(L"ALTER TABLE OBJECT DROP CONSTRAINT FK_OBJECT_3");
  Sql().Execute(L"UPDATE OBJECT SET REPRESENTATIONID = 999 WHERE ID = 502");
  LxStdSize* u1 = packet_FindStdSize(packet_, L"U1");
  EXPECT_FAILS(Read(u1) == "<failed>" ? 0 : 1,
               "Не смогли получить represitation 502 из базы [PacketOperation::GetRepresitation]",
               "Проблема получения representation из кэша [CStandartSize::_GetRepresentationData]");
}

}  // namespace
}  // namespace lxtest
