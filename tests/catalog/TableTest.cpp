// Columns of folder tables on real catalogs: automatic numbers, the first
// template, look-ups by name, the index range and deletion with its SQL.
// Every write is read back from the database and from memory.
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"

namespace lxtest {
namespace {

class TableColumns : public TableFixture {};

TEST_F(TableColumns, AnEmptyTableNumbersItsFirstColumn21AndMakesTheAddTemplate) {
  LxAttribute* first = table_AddAttribute(table_, L"Длина", L"Длина болта", 1);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(attribute_GetNumber(first), 21);
  LxAttribute* second = table_AddAttribute(table_, L"Ширина", L"Ширина головки", 2);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(attribute_GetNumber(second), 22);
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME || '/' || ad.DESCRIPTION || '/' || oa.ATTRTYPE"),
            Texts{L"Длина/Длина болта/1"});
  EXPECT_EQ(Stored(folderId_, 22, L"an.NAME || '/' || ad.DESCRIPTION || '/' || oa.ATTRTYPE"),
            Texts{L"Ширина/Ширина головки/2"});
  // A new column has empty measure, variable name and formula, old number 0
  // and no common value.
  EXPECT_EQ(Stored(folderId_, 21, L"oa.OLD_NUMBER || '|' || COALESCE(oa.MEASURE, '-') || '|' || "
                                  L"COALESCE(oa.VARNAME, '-') || '|' || COALESCE(oa.FORMULA, '-') || '|' || "
                                  L"COALESCE(oa.CONCRETEVALUEID, 'null')"),
            Texts{L"0||||null"});
  // The first template of a table takes the first object type and
  // representation, and no model.
  EXPECT_EQ(Sql().Texts(L"SELECT NAME || '|' || OBJECTTYPEID || '|' || REPRESENTATIONID || '|' || "
                        L"COALESCE(MODELID, 'null') || '|' || PACKETID FROM OBJECT WHERE FOLDERID = " +
                        std::to_wstring(folderId_)),
            Texts{L"_AddTemplate|1|4|null|" + std::to_wstring(packetId_)});
  EXPECT_EQ(table_GetStdSizeCount(table_), 0);
  // Indexes outside the columns report the range.
  for (int32_t index : {2, -1}) {
    EXPECT_FAILS(
        table_GetAttribute(table_, index),
        "Индекс " + std::to_string(index) + " выходит за пределы диапазона [0, 2) [CFolderTable::_GetAttribute]");
  }
  // A table with a template but no sizes is not empty after a load either.
  ReloadAndWalk();
  EXPECT_FALSE(table_IsEmpty(table_));
}

TEST_F(TableColumns, NumbersFollowTheLargestNumberAbove20) {
  LayNuts({90, 1, L"Соседний", L"Столбец соседа"}, L"77, NULL, NULL");  // other folders don't count
  Sql().Execute({TemplateRow(501, L"Болт", folderId_), AttributeRowSql(501, {5, 1, L"Пятый", L"Номер пять"})});
  ReloadAndWalk();
  LxAttribute* added = table_AddAttribute(table_, L"Новый", L"Новый столбец", 1);
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(attribute_GetNumber(added), 21);

  Sql().Execute(AttributeRowSql(501, {30, 3, L"Тридцатый", L"Номер тридцать"}));
  ReloadAndWalk();
  added = table_AddAttribute(table_, L"Ещё", L"Ещё столбец", 1);
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(attribute_GetNumber(added), 31);
  EXPECT_EQ(Stored(folderId_, 31, L"an.NAME"), Texts{L"Ещё"});
}

TEST_F(TableColumns, TypeZeroAndNullTextsAreRefusedBeforeAnyTemplateIsMade) {
  EXPECT_FAILS(table_AddAttribute(table_, L"Длина", L"Длина болта", 0),
               "Для атрибута задается неверный тип [CFolderTable::_AddAttribute]");
  EXPECT_FAILS(table_AddAttribute(table_, nullptr, L"d", 1));
  EXPECT_FAILS(table_AddAttribute(table_, L"n", nullptr, 1));
  EXPECT_EQ(Count(L"OBJECT"), 0);
  EXPECT_TRUE(table_IsEmpty(table_));
  EXPECT_EQ(table_GetAttributeCount(table_), 0);
  // A type above 3 is not refused: it is stored as given and has no kind in
  // memory.
  LxAttribute* odd = table_AddAttribute(table_, L"Странный", L"Тип четыре", 4);
  ASSERT_NE(odd, nullptr);
  EXPECT_EQ(attribute_GetType(odd), 0);
  EXPECT_EQ(Stored(folderId_, 21, L"oa.ATTRTYPE"), Texts{L"4"});
}

TEST_F(TableColumns, TheAddTemplateStaysWithoutSizesBesideTheFirstSizesTemplateClearDoesNothing) {
  ASSERT_NE(table_AddAttribute(table_, L"Длина", L"Длина болта", 1), nullptr);
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  ASSERT_NE(size, nullptr);
  EXPECT_EQ(StoredTemplateNames(folderId_), (Texts{L"_AddTemplate", L"M5"}));
  EXPECT_EQ(Sql().Texts(L"SELECT o.NAME FROM STANDARDSIZE sz JOIN OBJECT o ON o.ID = sz.OBJECTID"), Texts{L"M5"});
  // Both templates have both columns, in the database and in memory.
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), (Texts{L"Длина", L"Длина"}));
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME"), (Texts{L"ID_specification", L"ID_specification"}));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Длина", L"ID_specification"}));
  EXPECT_EQ(RecordNames(size), (Texts{L"Длина", L"ID_specification"}));
  EXPECT_EQ(table_GetStdSizeCount(table_), 1);
  // Clear does nothing.
  EXPECT_FAILS(table_Clear(table_));
  EXPECT_EQ(table_GetAttributeCount(table_), 2);
  EXPECT_EQ(table_GetStdSizeCount(table_), 1);
  EXPECT_EQ(Count(L"STANDARDSIZE"), 1);
}

TEST_F(TableColumns, TakenNamesAndNumbersAreRefusedWhereTheyComeFirst) {
  ASSERT_NE(table_AddAttribute(table_, L"Длина", L"Длина болта", 1), nullptr);
  ASSERT_NE(table_AddAttribute(table_, L"Ширина", L"Ширина головки", 1), nullptr);
  EXPECT_FAILS(table_AddAttribute(table_, L"Длина", L"Другое", 1),
               "Атрибут с таким именем есть: Длина [CFolderTable::_AddAttribute]");
  CFolderTable* table = Obj(table_);
  // The columns are walked in order; the first one that clashes in either way
  // decides the message.
  EXPECT_FAILS(CallFrame("test").Call([&] { return table->_AddAttribute(L"Ширина", L"d", 1, 21); }),
               "Атрибут с таким номером есть: 21 [CFolderTable::_AddAttribute]");
  EXPECT_FAILS(CallFrame("test").Call([&] { return table->_AddAttribute(L"Длина", L"d", 1, 22); }),
               "Атрибут с таким именем есть: Длина [CFolderTable::_AddAttribute]");
  EXPECT_EQ(Count(L"OBJECTATTRIBUTE"), 2);
  // Names clash exactly: another case is another name.
  LxAttribute* upper = table_AddAttribute(table_, L"ДЛИНА", L"Длина прописью", 1);
  ASSERT_NE(upper, nullptr);
  EXPECT_EQ(attribute_GetNumber(upper), 23);
}

TEST_F(TableColumns, EveryTemplateGetsTheNewColumnWithItsDefault) {
  Sql().Execute({TemplateRow(501, L"Болт", folderId_), TemplateRow(502, L"Болт длинный", folderId_),
                 SizeRow(601, 501, L"Б1"), SizeRow(602, 502, L"Б2")});
  ReloadAndWalk();
  LxAttribute* text = table_AddAttribute(table_, L"Марка", L"Марка стали", 3);
  LxAttribute* number = table_AddAttribute(table_, L"Шаг", L"Шаг резьбы", 2);
  ASSERT_NE(text, nullptr);
  ASSERT_NE(number, nullptr);
  EXPECT_EQ(Stored(folderId_, 21, L"oa.OBJECTID || ':' || an.NAME"), (Texts{L"501:Марка", L"502:Марка"}));
  EXPECT_EQ(Stored(folderId_, 22, L"oa.OBJECTID || ':' || an.NAME"), (Texts{L"501:Шаг", L"502:Шаг"}));
  for (const wchar_t* id : {L"Б1", L"Б2"}) {
    EXPECT_EQ(RecordNames(Size(id)), (Texts{L"Марка", L"Шаг"})) << id;
    EXPECT_EQ(Shown(Size(id), text), L"s:") << id;
    EXPECT_EQ(Shown(Size(id), number), L"d:0") << id;
  }
}

TEST_F(TableColumns, FindAttributeFoldsLatinAndRussianCaseOnlyAndPrefersTheFirstTwin) {
  // Of case twins the first in name order is found: "W" sorts before "w",
  // whatever the order of adding.
  for (const wchar_t* name : {L"ДЛИНА", L"ёлка", L"width", L"Width", L"Äußere", L"ель"}) {
    ASSERT_NE(table_AddAttribute(table_, name, name, 1), nullptr) << name;
  }
  auto found = [&](const wchar_t* name) -> std::wstring {
    LxAttribute* attribute = table_FindAttribute(table_, name);
    return attribute == nullptr ? L"-" : attribute_GetName(attribute);
  };
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"длина", L"ДЛИНА"},   {L"ДлИнА", L"ДЛИНА"}, {L"ЁЛКА", L"ёлка"},   {L"елка", L"-"},
      {L"ЕЛЬ", L"ель"},       {L"ёль", L"-"},       {L"WIDTH", L"Width"}, {L"äußere", L"-"},
      {L"Äußere", L"Äußere"}, {L"длин", L"-"},      {L"длинаа", L"-"}};
  for (const auto& [asked, name] : cases) EXPECT_EQ(found(asked), name) << testing::PrintToString(std::wstring(asked));
  EXPECT_FAILS(table_FindAttribute(table_, L""));
  EXPECT_FAILS(table_FindAttribute(table_, nullptr));
}

TEST_F(TableColumns, RenameAndRenumberMoveAColumnToTheEnd) {
  for (const wchar_t* name : {L"А", L"Б", L"В"}) ASSERT_NE(table_AddAttribute(table_, name, name, 1), nullptr);
  ASSERT_TRUE(attribute_SetName(Column(L"А"), L"Г"));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Б", L"В", L"Г"}));
  ASSERT_TRUE(attribute_SetNumber(Column(L"Б"), 40));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"В", L"Г", L"Б"}));
  // Other setters leave the order alone.
  ASSERT_TRUE(attribute_SetDescription(Column(L"В"), L"новое описание"));
  ASSERT_TRUE(attribute_SetMeasure(Column(L"В"), L"мм"));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"В", L"Г", L"Б"}));
  // The template's records keep their order.
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  EXPECT_EQ(RecordNames(size), (Texts{L"Г", L"Б", L"В", L"ID_specification"}));
  // The name index follows: the new name is found, the old one is not.
  EXPECT_EQ(table_FindAttribute(table_, L"г"), Column(L"Г"));
  EXPECT_EQ(table_FindAttribute(table_, L"а"), nullptr);
}

class DeletingColumns : public TableColumns {
 protected:
  // Two templates in "Болты" with columns 21 and 22 and own values on every
  // size, and a neighbour folder with a column 21 of its own.
  void SetUp() override {
    TableColumns::SetUp();
    neighbour_ = LayNuts({21, 1, L"Соседний", L"Столбец соседа"}, L"77, NULL, NULL");
    Sql().Execute({TemplateRow(501, L"Болт", folderId_), TemplateRow(502, L"Болт длинный", folderId_),
                   SizeRow(601, 501, L"Б1"), SizeRow(602, 501, L"Б2"), SizeRow(603, 502, L"Б3"),
                   AttributeRowSql(501, {21, 1, L"Длина", L"Длина болта"}),
                   AttributeRowSql(501, {22, 1, L"Шаг", L"Шаг резьбы", L"5, NULL, NULL"}),
                   AttributeRowSql(502, {21, 1, L"Длина", L"Длина болта"}),
                   AttributeRowSql(502, {22, 1, L"Шаг", L"Шаг резьбы", L"5, NULL, NULL"}),
                   SizeValueSql(21, 601, L"10, NULL, NULL"), SizeValueSql(21, 602, L"20, NULL, NULL"),
                   SizeValueSql(21, 603, L"30, NULL, NULL"), SizeValueSql(22, 603, L"7, NULL, NULL")});
    ReloadAndWalk();
  }
  std::int32_t neighbour_ = 0;
};

TEST_F(DeletingColumns, RowsAndValuesOfTheNumberGoInThisFolderOnly) {
  ASSERT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг"}));
  const std::int32_t valueRows = Count(L"ATTRIBUTEVALUE");
  ASSERT_TRUE(table_DeleteAttribute(table_, Column(L"Длина")));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.ID"), Texts{});
  EXPECT_EQ(StoredSizeValues(folderId_, 21), Texts{});
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), valueRows - 3);
  // The other column and the neighbour folder's column 21 stay.
  EXPECT_EQ(Stored(folderId_, 22, L"an.NAME"), (Texts{L"Шаг", L"Шаг"}));
  EXPECT_EQ(StoredSizeValues(folderId_, 22), Texts{L"Б3=7||"});
  EXPECT_EQ(Stored(neighbour_, 21, L"an.NAME"), Texts{L"Соседний"});
  EXPECT_EQ(StoredSizeValues(neighbour_, 21), Texts{L"Г1=77||"});
  // Memory: the column, every template's record and every size's value.
  EXPECT_EQ(ColumnNames(table_), Texts{L"Шаг"});
  for (const wchar_t* id : {L"Б1", L"Б2", L"Б3"}) {
    EXPECT_EQ(RecordNames(Size(id)), Texts{L"Шаг"}) << id;
    EXPECT_EQ(Obj(Size(id))->Values().count(21), 0u) << id;
  }
  EXPECT_EQ(Shown(Size(L"Б3"), Column(L"Шаг")), L"i:7");
  EXPECT_EQ(Shown(Size(L"Б1"), Column(L"Шаг")), L"i:5");
}

TEST_F(DeletingColumns, AColumnOfAnotherTableIsRefused) {
  LxFolderTable* neighbourTable = folder_GetTable(ChildNamed(root_, L"Гайки"));
  LxAttribute* stranger = ColumnOf(neighbourTable, L"Соседний");
  ASSERT_NE(stranger, nullptr);
  EXPECT_FAILS(table_DeleteAttribute(table_, stranger),
               "Атрибут не соответствует своему родителю [CFolderTable::_DeleteAttribute]");
  EXPECT_EQ(Stored(neighbour_, 21, L"an.NAME"), Texts{L"Соседний"});
  EXPECT_EQ(ColumnNames(neighbourTable), Texts{L"Соседний"});
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг"}));
}

TEST_F(TableColumns, DeletedColumn11ComesBackWithTheNextSize) {
  LxStdSize* first = table_AddStdSize(table_, L"M5");
  ASSERT_NE(first, nullptr);
  ASSERT_TRUE(table_DeleteAttribute(table_, Column(L"ID_specification")));
  EXPECT_EQ(table_GetAttributeCount(table_), 0);
  EXPECT_EQ(Stored(folderId_, 11, L"oa.ID"), Texts{});
  EXPECT_EQ(StoredSizeValues(folderId_, 11), Texts{});
  EXPECT_EQ(RecordNames(first), Texts{});

  LxStdSize* second = table_AddStdSize(table_, L"M6");
  ASSERT_NE(second, nullptr);
  ASSERT_EQ(ColumnNames(table_), Texts{L"ID_specification"});
  LxAttribute* again = Column(L"ID_specification");
  EXPECT_EQ(attribute_GetNumber(again), 11);
  // Both templates have the row again; only the new size has a value.
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME"), (Texts{L"ID_specification", L"ID_specification"}));
  EXPECT_EQ(StoredSizeValues(folderId_, 11), Texts{L"M6=||M6"});
  EXPECT_EQ(Shown(second, again), L"s:M6");
  EXPECT_EQ(Shown(first, again), L"s:");
}

}  // namespace
}  // namespace lxtest
