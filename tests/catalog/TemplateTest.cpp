// Templates on real catalogs: a new template copies from the table's first
// one, a size that must part from its neighbours gets a full copy of its
// template, and the object type, which all sizes of a template share.
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"

namespace lxtest {
namespace {

class Templates : public TableFixture {
 protected:
  // Template 501 "T" in "Болты": model 300, object type 2 (VENTBOX),
  // representation 5, columns 21 (integer, common value 10), 22 (text),
  // 23 (text, formula), sizes S1, S2, S3 with an own value of S2, two
  // projections and one specification.
  void LayTemplateT() {
    Sql().Execute({L"INSERT INTO MODEL (ID, THUMBNAIL, MODEL_VERSION, DIGEST) VALUES (300, x'00', 1, 'модель')",
                   L"INSERT INTO REPRESENTATION (ID, DATA, DIGEST) VALUES (5, x'01', 'r5')",
                   L"INSERT INTO FRAGMENT (ID, THUMBNAIL, DIGEST) VALUES (400, x'00', 'f400')",
                   L"INSERT INTO FRAGMENT (ID, THUMBNAIL, DIGEST) VALUES (401, x'00', 'f401')",
                   TemplateRow(501, L"T", folderId_, 2, 5, L"300"),
                   AttributeRowSql(501, kLength), AttributeRowSql(501, kGrade), AttributeRowSql(501, kLabel),
                   SizeRow(601, 501, L"S1"), SizeRow(602, 501, L"S2"), SizeRow(603, 501, L"S3"),
                   SizeValueSql(22, 602, L"NULL, NULL, 'Ст3'"),
                   L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (1, 400, 501, 0)",
                   L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (2, 401, 501, 2)",
                   L"INSERT INTO SPECIFICATION (IDOBJECT, STYLENUMBER, FIRSTPART, SECONDPART, LIBNAME) "
                   L"VALUES (501, 7, 1, 2, 'основная')"});
  }
  // Template 502 "U" after it: the same columns and common values, object
  // type 3, the stock representation, no model, a specification of its own.
  void LayTemplateU() {
    Sql().Execute({TemplateRow(502, L"U", folderId_, 3, 4), AttributeRowSql(502, kLength),
                   AttributeRowSql(502, kGrade), AttributeRowSql(502, kLabel), SizeRow(604, 502, L"U1"),
                   L"INSERT INTO SPECIFICATION (IDOBJECT, STYLENUMBER, FIRSTPART, SECONDPART, LIBNAME) "
                   L"VALUES (502, 8, 3, 4, 'вторая')"});
  }
  // One line per row of the template: the attribute rows by number, then
  // projections, specifications.
  Texts CommonValueIdsOf(std::int32_t templateId) {
    return Sql().Texts(L"SELECT oa.NUMBER || ':' || COALESCE(oa.CONCRETEVALUEID, 'null') FROM OBJECTATTRIBUTE oa "
                       L"WHERE oa.OBJECTID = " +
                       std::to_wstring(templateId) + L" ORDER BY oa.NUMBER");
  }
  Texts ProjectionsOf(std::int32_t templateId) {
    return Sql().Texts(L"SELECT PROJECTIONID || '|' || FRAGMENTID || '|' || VIEW_TYPE FROM OBJECTPROJECTION WHERE "
                       L"OBJECTID = " +
                       std::to_wstring(templateId) + L" ORDER BY PROJECTIONID");
  }
  Texts SpecificationsOf(std::int32_t templateId) {
    return Sql().Texts(L"SELECT LIBNAME || '|' || STYLENUMBER || '|' || FIRSTPART || '|' || SECONDPART FROM "
                       L"SPECIFICATION WHERE IDOBJECT = " +
                       std::to_wstring(templateId) + L" ORDER BY STYLENUMBER");
  }
  // Model, object type, representation, folder and packet of the row.
  std::wstring ObjectRow(std::int32_t templateId) {
    const Texts rows = Sql().Texts(L"SELECT NAME || '|' || COALESCE(MODELID, 'null') || '|' || OBJECTTYPEID || '|' || "
                                   L"REPRESENTATIONID || '|' || FOLDERID || '|' || PACKETID FROM OBJECT WHERE ID = " +
                                   std::to_wstring(templateId));
    return rows.empty() ? L"<none>" : rows[0];
  }
  std::wstring Tail() const { return L"|" + std::to_wstring(folderId_) + L"|" + std::to_wstring(packetId_); }
  // Splits the size off its template within a frame, as the exports that
  // need it will.
  std::pair<bool, Writes> SplitOff(LxStdSize* size) {
    CFolderTable* table = Obj(stdsize_GetTable(size));
    return Captured([&] {
      return CallFrame("test").Call([&] { return table->CreateTemplateFor(Obj(size)); });
    });
  }

  const AttributeRow kLength{21, 1, L"Длина", L"Длина болта", L"10, NULL, NULL", L"", L"мм", L"L", 3};
  const AttributeRow kGrade{22, 3, L"Марка", L"Марка стали"};
  const AttributeRow kLabel{23, 3, L"Подпись", L"Подпись в спецификации", L"NULL, NULL, NULL", L"Болт {A21}"};
};

TEST_F(Templates, ANewTemplateCopiesTheFirstTemplateWithoutModelValuesOrProjections) {
  LayTemplateT();
  LayTemplateU();
  ReloadAndWalk();
  ASSERT_EQ(SizeIds(table_), (Texts{L"S1", L"S2", L"S3", L"U1"}));
  LxStdSize* size = table_AddStdSize(table_, L"N");
  ASSERT_NE(size, nullptr);
  const std::int32_t id = stdsize_GetTemplateID(size);
  EXPECT_EQ(ObjectRow(id), L"N|null|2|5" + Tail());
  // The column 11 was added to all three templates after the copy.
  Texts expected = StoredColumns(L"oa.OBJECTID = 501");
  EXPECT_EQ(expected.size(), 4u);
  EXPECT_EQ(StoredColumns(L"oa.OBJECTID = " + std::to_wstring(id)), expected);
  EXPECT_EQ(CommonValueIdsOf(id), (Texts{L"11:null", L"21:null", L"22:null", L"23:null"}));
  EXPECT_EQ(ProjectionsOf(id), Texts{});
  EXPECT_EQ(SpecificationsOf(id), Texts{L"основная|7|1|2"});
  // The first template itself is untouched.
  EXPECT_EQ(ObjectRow(501), L"T|300|2|5" + Tail());
  EXPECT_EQ(ProjectionsOf(501).size(), 2u);
  EXPECT_EQ(SpecificationsOf(501), Texts{L"основная|7|1|2"});

  // Memory: the first template's type and records, no model and no value.
  const CTemplate* made = Obj(size)->GetTemplate();
  EXPECT_EQ(made->GetModelId(), 0);
  EXPECT_EQ(Obj(Size(L"S1"))->GetTemplate()->GetModelId(), 300);
  EXPECT_STREQ(stdsize_GetType(size), L"VENTBOX");
  EXPECT_EQ(RecordNames(size), (Texts{L"Длина", L"Марка", L"Подпись", L"ID_specification"}));
  EXPECT_EQ(Shown(size, Column(L"Длина")), L"-");
  EXPECT_EQ(Shown(Size(L"S1"), Column(L"Длина")), L"i:10");
  EXPECT_EQ(SizeIds(table_), (Texts{L"S1", L"S2", L"S3", L"U1", L"N"}));

  // After a load the new template's record holds its type's default; since
  // its common value now differs, the folder splits.
  ReloadAndWalk();
  LxStdSize* loaded = packet_FindStdSize(packet_, L"N");
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(Shown(loaded, ColumnOf(stdsize_GetTable(loaded), L"Длина")), L"i:0");
}

TEST_F(Templates, TheFirstTemplateOfATableTakesTheFirstTypeInTheDatabaseOnly) {
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  ASSERT_NE(size, nullptr);
  EXPECT_STREQ(stdsize_GetType(size), L"");
  EXPECT_EQ(ObjectRow(stdsize_GetTemplateID(size)), L"M5|null|1|4" + Tail());
  ReloadAndWalk();
  EXPECT_STREQ(stdsize_GetType(Size(L"M5")), L"SEGMENT");
}

TEST_F(Templates, SplittingCopiesTheWholeTemplateAndMovesTheSize) {
  LayTemplateT();
  ReloadAndWalk();
  LxStdSize* s2 = Size(L"S2");
  ASSERT_NE(s2, nullptr);
  EXPECT_EQ(Shown(s2, Column(L"Длина")), L"i:10");
  auto [split, writes] = SplitOff(s2);
  ASSERT_TRUE(split);
  EXPECT_TRUE(writes.empty());
  const std::int32_t id = stdsize_GetTemplateID(s2);
  EXPECT_NE(id, 501);
  EXPECT_EQ(stdsize_GetTemplateID(Size(L"S1")), 501);
  EXPECT_EQ(stdsize_GetTemplateID(Size(L"S3")), 501);

  // A full copy: model, type, representation, attribute rows with their
  // common values, projections and specifications.
  EXPECT_EQ(ObjectRow(id), L"T (0)|300|2|5" + Tail());
  EXPECT_EQ(StoredColumns(L"oa.OBJECTID = " + std::to_wstring(id)), StoredColumns(L"oa.OBJECTID = 501"));
  EXPECT_EQ(CommonValueIdsOf(id), CommonValueIdsOf(501));
  EXPECT_NE(CommonValueIdsOf(id)[0], L"21:null");
  EXPECT_EQ(ProjectionsOf(id), (Texts{L"1|400|0", L"2|401|2"}));
  EXPECT_EQ(SpecificationsOf(id), Texts{L"основная|7|1|2"});
  EXPECT_EQ(Sql().Texts(L"SELECT IDENTIFIER || ':' || OBJECTID FROM STANDARDSIZE ORDER BY IDENTIFIER"),
            (Texts{L"S1:501", L"S2:" + std::to_wstring(id), L"S3:501"}));
  // The old template keeps all of its own.
  EXPECT_EQ(ObjectRow(501), L"T|300|2|5" + Tail());
  EXPECT_EQ(ProjectionsOf(501).size(), 2u);

  // Memory: the size reads what it read before, from its new template.
  const CTemplate* owner = Obj(s2)->GetTemplate();
  EXPECT_EQ(owner->GetName(), L"T (0)");
  EXPECT_EQ(owner->GetModelId(), 300);
  EXPECT_EQ(owner->GetTable(), Obj(table_));
  EXPECT_STREQ(stdsize_GetType(s2), L"VENTBOX");
  EXPECT_EQ(Shown(s2, Column(L"Длина")), L"i:10");
  EXPECT_EQ(Shown(s2, Column(L"Марка")), L"s:Ст3");
  EXPECT_EQ(RecordNames(s2), (Texts{L"Длина", L"Марка", L"Подпись"}));
  EXPECT_EQ(SizeIds(table_), (Texts{L"S1", L"S3", L"S2"}));
}

TEST_F(Templates, ALoneSizeNeedsNoSplitAndFurtherSplitsCountTheNameOn) {
  LayTemplateT();
  ReloadAndWalk();
  ASSERT_TRUE(SplitOff(Size(L"S2")).first);
  const std::int32_t id = stdsize_GetTemplateID(Size(L"S2"));
  // S2 is alone in its template now: splitting it again does no database work.
  CFolderTable* table = Obj(table_);
  CStandartSize* alone = Obj(Size(L"S2"));
  auto [split, writes] =
      WithoutDatabase([&] { return CallFrame("test").Call([&] { return table->CreateTemplateFor(alone); }); });
  EXPECT_TRUE(split);
  EXPECT_TRUE(writes.empty());
  EXPECT_EQ(stdsize_GetTemplateID(Size(L"S2")), id);

  ASSERT_TRUE(SplitOff(Size(L"S3")).first);
  EXPECT_EQ(Obj(Size(L"S3"))->GetTemplate()->GetName(), L"T (1)");
  EXPECT_EQ(ObjectRow(stdsize_GetTemplateID(Size(L"S3"))), L"T (1)|300|2|5" + Tail());
  EXPECT_EQ(stdsize_GetTemplateID(Size(L"S1")), 501);
}

class ObjectTypes : public Templates {
 protected:
  void SetUp() override {
    Templates::SetUp();
    LayTemplateT();
    LayTemplateU();
    ReloadAndWalk();
  }
  Texts StoredTypes() { return Sql().Texts(L"SELECT ID || ':' || SVAL FROM OBJECTTYPE ORDER BY ID"); }
  std::int32_t StoredTypeIdOf(std::int32_t templateId) {
    return Sql().Int(L"SELECT OBJECTTYPEID FROM OBJECT WHERE ID = " + std::to_wstring(templateId));
  }
  std::int32_t Generator() {
    return Sql().Int(L"SELECT CAST(GEN_ID(GEN_OBJECTTYPE_ID, 0) AS INTEGER) FROM RDB$DATABASE");
  }
};

TEST_F(ObjectTypes, AKnownTextReusesItsRowForAllSizesOfTheTemplate) {
  // An unchanged type touches nothing; a null text fails without a message.
  EXPECT_EQ(WithoutDatabase([&] { return stdsize_SetType(Size(L"S1"), L"VENTBOX"); }), Quietly(true));
  EXPECT_FAILS(stdsize_SetType(Size(L"S1"), nullptr));
  EXPECT_STREQ(stdsize_GetType(Size(L"S1")), L"VENTBOX");
  ASSERT_TRUE(stdsize_SetType(Size(L"S1"), L"ELEMENT"));
  EXPECT_EQ(StoredTypes(), (Texts{L"1:SEGMENT", L"2:VENTBOX", L"3:ELEMENT"}));
  EXPECT_EQ(StoredTypeIdOf(501), 3);
  EXPECT_EQ(StoredTypeIdOf(502), 3);  // it had that type already
  for (const wchar_t* id : {L"S1", L"S2", L"S3"}) EXPECT_STREQ(stdsize_GetType(Size(id)), L"ELEMENT") << id;
  ASSERT_TRUE(stdsize_SetType(Size(L"S2"), L"SEGMENT"));
  EXPECT_EQ(StoredTypeIdOf(501), 1);
  EXPECT_EQ(StoredTypeIdOf(502), 3);
  EXPECT_STREQ(stdsize_GetType(Size(L"S3")), L"SEGMENT");
  EXPECT_STREQ(stdsize_GetType(Size(L"U1")), L"ELEMENT");
}

TEST_F(ObjectTypes, TheFirstNewTextRepairsTheGenerator) {
  ASSERT_EQ(Generator(), 0);
  EXPECT_EQ(Captured([&] { return stdsize_SetType(Size(L"S2"), L"Фланец"); }), Quietly(true));
  EXPECT_EQ(StoredTypes(), (Texts{L"1:SEGMENT", L"2:VENTBOX", L"3:ELEMENT", L"4:Фланец"}));
  EXPECT_EQ(Generator(), 4);
  EXPECT_EQ(StoredTypeIdOf(501), 4);
  EXPECT_EQ(StoredTypeIdOf(502), 3);
  for (const wchar_t* id : {L"S1", L"S2", L"S3"}) EXPECT_STREQ(stdsize_GetType(Size(id)), L"Фланец") << id;
  EXPECT_STREQ(stdsize_GetType(Size(L"U1")), L"ELEMENT");
  // The next new text needs no repair.
  ASSERT_TRUE(stdsize_SetType(Size(L"U1"), L"Заглушка"));
  EXPECT_EQ(StoredTypes().back(), L"5:Заглушка");
  EXPECT_EQ(StoredTypeIdOf(502), 5);
  EXPECT_STREQ(stdsize_GetType(Size(L"U1")), L"Заглушка");
}

}  // namespace
}  // namespace lxtest
