// Values of standard sizes on real catalogs: where a read finds a value
// (formula, own value, template), the view a client gets, writes and
// removals at size level that first spell a template's common value out for
// every size, the refusals in their order, and the rest of the stdsize_
// family. Every write is read back from the database and after a reload.
#include <string>
#include <variant>
#include <vector>

#include "CatalogFixture.h"
#include "api/Handles.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"

namespace lxtest {
namespace {

class Values : public TableFixture {
 protected:
  // Template 501 "Болт" with S1, S2, S3 and the columns below; a folder
  // "Гайки" beside it with a column 21 of its own.
  void SetUp() override {
    TableFixture::SetUp();
    nuts_ = LayNuts({21, 1, L"Длина", L"Длина гайки", L"4, NULL, NULL"});
    const AttributeRow rows[] = {
        {21, 1, L"Длина", L"Длина болта", L"10, NULL, NULL"},
        {22, 2, L"Вес", L"Вес болта", L"NULL, 2.5, NULL"},
        {23, 3, L"Марка", L"Марка стали", L"NULL, NULL, 'Ст3'"},
        {24, 1, L"Диаметр", L"Диаметр резьбы"},
        {25, 2, L"Шаг", L"Шаг резьбы"},
        {26, 3, L"Примечание", L"Примечание"},
        {27, 3, L"Подпись", L"Подпись в спецификации", L"NULL, NULL, NULL", L"x{A22}"},
        {28, 1, L"Сумма", L"Длина и диаметр", L"NULL, NULL, NULL", L"{A21+A24}"},
        {29, 0, L"Пустой", L"Без типа"},
        {30, 3, L"Сломанная", L"Формула без пары", L"NULL, NULL, 'как есть'", L"{A21"},
    };
    Sql().Execute({TemplateRow(501, L"Болт", folderId_), SizeRow(601, 501, L"S1"), SizeRow(602, 501, L"S2"),
                   SizeRow(603, 501, L"S3")});
    for (const AttributeRow& row : rows) Sql().Execute(AttributeRowSql(501, row));
    Sql().Execute({SizeValueSql(24, 602, L"8, NULL, NULL"), SizeValueSql(27, 601, L"NULL, NULL, 'своё'")});
    Walk();
    stranger_ = ColumnOf(folder_GetTable(ChildNamed(root_, L"Гайки")), L"Длина");
    ASSERT_NE(stranger_, nullptr);
  }
  void Walk() {
    ReloadAndWalk();
    s1_ = Size(L"S1");
    s2_ = Size(L"S2");
    s3_ = Size(L"S3");
  }
  Texts ShownByAll(const wchar_t* column) {
    return Texts{Shown(s1_, Column(column)), Shown(s2_, Column(column)), Shown(s3_, Column(column))};
  }
  std::wstring StoredCommonValue(std::int32_t number) {
    return Stored(folderId_, number, L"oa.CONCRETEVALUEID").at(0);
  }

  std::int32_t nuts_ = 0;
  LxStdSize* s1_ = nullptr;
  LxStdSize* s2_ = nullptr;
  LxStdSize* s3_ = nullptr;
  LxAttribute* stranger_ = nullptr;
};

TEST_F(Values, ACommonValueIsReadByEverySizeOfTheTemplate) {
  EXPECT_EQ(ShownByAll(L"Длина"), (Texts{L"i:10", L"i:10", L"i:10"}));
  EXPECT_EQ(ShownByAll(L"Вес"), (Texts{L"d:2.5", L"d:2.5", L"d:2.5"}));
  EXPECT_EQ(ShownByAll(L"Марка"), (Texts{L"s:Ст3", L"s:Ст3", L"s:Ст3"}));
  // Reads need no database.
  EXPECT_EQ(WithoutDatabase([&] { return Shown(s3_, Column(L"Длина")); }), Quietly(std::wstring(L"i:10")));
}

TEST_F(Values, TheViewOfAStringPointsAtTheStoredText) {
  ValueView first{};
  ValueView second{};
  ASSERT_TRUE(stdsize_GetValue(s2_, Column(L"Марка"), nullptr, &first));
  ASSERT_TRUE(stdsize_GetValue(s2_, Column(L"Марка"), nullptr, &second));
  EXPECT_EQ(Described(first), L"s:Ст3");
  EXPECT_EQ(first.length, 3u);
  EXPECT_EQ(first.payload.text, second.payload.text);
  EXPECT_EQ(first.payload.text, std::get<std::wstring>(Obj(s2_)->GetTemplate()->FindRecord(23)->value).c_str());
}

TEST_F(Values, AnOwnValueBeatsTheTemplatesDefault) {
  EXPECT_EQ(ShownByAll(L"Диаметр"), (Texts{L"i:0", L"i:8", L"i:0"}));
  EXPECT_EQ(ShownByAll(L"Шаг"), (Texts{L"d:0", L"d:0", L"d:0"}));
  ValueView view{};
  view.index = 9;
  ASSERT_TRUE(stdsize_GetValue(s1_, Column(L"Примечание"), nullptr, &view));
  EXPECT_EQ(Described(view), L"s:");
  // A cell without any value is false without a message.
  view.index = LX_VALUE_INT;
  view.payload.integer = 77;
  EXPECT_FAILS(stdsize_GetValue(s1_, Column(L"Пустой"), nullptr, &view));
  EXPECT_EQ(Described(view), L"e");
  // An own value counts whatever the column's type.
  ASSERT_TRUE(stdsize_SetValueI(s1_, Column(L"Пустой"), 3));
  EXPECT_EQ(Shown(s1_, Column(L"Пустой")), L"i:3");
  EXPECT_EQ(Shown(s2_, Column(L"Пустой")), L"-");
  EXPECT_EQ(StoredSizeValues(folderId_, 29), Texts{L"S1=3||"});
}

TEST_F(Values, AFormulaBeatsOwnAndTemplateValues) {
  // S1 has an own value under the formula's column; the read ignores it.
  EXPECT_EQ(StoredSizeValues(folderId_, 27), Texts{L"S1=||своё"});
  EXPECT_EQ(ShownByAll(L"Подпись"), (Texts{L"s:x2,50", L"s:x2,50", L"s:x2,50"}));
  EXPECT_EQ(ShownByAll(L"Сумма"), (Texts{L"i:10", L"i:18", L"i:10"}));
  // The client's number format reaches the formula.
  const NumberFormat four{false, 4};
  const NumberFormat trimmed{true, 2};
  EXPECT_EQ(Shown(s1_, Column(L"Подпись"), &four), L"s:x2,5000");
  EXPECT_EQ(Shown(s1_, Column(L"Подпись"), &trimmed), L"s:x2,5");
  // Each read evaluates again: a changed operand shows at once.
  ASSERT_TRUE(stdsize_SetValueD(s2_, Column(L"Вес"), 3.75));
  EXPECT_EQ(Shown(s2_, Column(L"Подпись")), L"s:x3,75");
}

TEST_F(Values, AColumnOfAnotherTableIsRefusedAndTheViewCleared) {
  ValueView view{};
  view.index = LX_VALUE_STRING;
  view.payload.text = L"stale";
  view.length = 5;
  EXPECT_FAILS(stdsize_GetValue(s1_, stranger_, nullptr, &view),
               "Атрибут не соответствует своему родителю [CFolderTable::_GetValue]");
  EXPECT_EQ(Described(view), L"e");

  const std::int32_t rows = Count(L"ATTRIBUTEVALUE");
  EXPECT_FAILS(stdsize_SetValueI(s1_, stranger_, 5),
               "Атрибут не соответствует своему родителю [CFolderTable::_SetValue]");
  EXPECT_FAILS(stdsize_RemoveValue(s1_, stranger_),
               "Атрибут не соответствует своему родителю [CFolderTable::_RemoveValue]");
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), rows);
  EXPECT_EQ(Shown(s1_, Column(L"Длина")), L"i:10");
}

TEST_F(Values, GetValueByNameIgnoresCase) {
  ValueView view{};
  ASSERT_TRUE(stdsize_GetValueByName(s2_, L"дЛИНА", nullptr, &view));
  EXPECT_EQ(Described(view), L"i:10");
  const NumberFormat four{false, 4};
  ASSERT_TRUE(stdsize_GetValueByName(s2_, L"подпись", &four, &view));
  EXPECT_EQ(Described(view), L"s:x2,5000");
  for (const wchar_t* name : {L"Нет такого", L"", static_cast<const wchar_t*>(nullptr)}) {
    view.index = LX_VALUE_INT;
    view.payload.integer = 1;
    EXPECT_FAILS(stdsize_GetValueByName(s2_, name, nullptr, &view));
    if (name != nullptr) {
      EXPECT_EQ(Described(view), L"e");
    }
  }
}

TEST_F(Values, WritingOneSizeSpellsTheCommonValueOutForEverySize) {
  const std::wstring common = StoredCommonValue(21);
  ASSERT_NE(common, L"<null>");
  ASSERT_TRUE(stdsize_SetValueI(s1_, Column(L"Длина"), 12));
  EXPECT_EQ(StoredCommonValue(21), L"<null>");
  EXPECT_EQ(StoredSizeValues(folderId_, 21), (Texts{L"S1=12||", L"S2=10||", L"S3=10||"}));
  // The neighbours' rows refer to the value row the template had.
  EXPECT_EQ(Sql().Texts(L"SELECT CAST(av.CONCRETEVALUEID AS VARCHAR(20)) FROM ATTRIBUTEVALUE av JOIN STANDARDSIZE sz "
                        L"ON sz.ID = av.STANDARDSIZEID JOIN OBJECTATTRIBUTE oa ON oa.ID = av.OBJECTATTRIBUTEID WHERE "
                        L"oa.NUMBER = 21 AND oa.OBJECTID = 501 AND sz.IDENTIFIER <> 'S1'"),
            (Texts{common, common}));
  EXPECT_EQ(ShownByAll(L"Длина"), (Texts{L"i:12", L"i:10", L"i:10"}));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(Obj(s1_)->GetTemplate()->FindRecord(21)->value));
  // Another write moves nothing more.
  ASSERT_TRUE(stdsize_SetValueI(s2_, Column(L"Длина"), 13));
  EXPECT_EQ(StoredSizeValues(folderId_, 21), (Texts{L"S1=12||", L"S2=13||", L"S3=10||"}));
  // A removal after the spelling out leaves the neighbours.
  ASSERT_TRUE(stdsize_RemoveValue(s1_, Column(L"Длина")));
  EXPECT_EQ(StoredSizeValues(folderId_, 21), (Texts{L"S2=13||", L"S3=10||"}));
  EXPECT_EQ(StoredCommonValue(21), L"<null>");
  EXPECT_EQ(ShownByAll(L"Длина"), (Texts{L"-", L"i:13", L"i:10"}));
  // After a load the template's record holds its type's default again.
  Walk();
  EXPECT_EQ(ShownByAll(L"Длина"), (Texts{L"i:0", L"i:13", L"i:10"}));
}

TEST_F(Values, RemovingFromACommonValueSpellsItOutFirst) {
  ASSERT_TRUE(stdsize_RemoveValue(s2_, Column(L"Марка")));
  EXPECT_EQ(StoredCommonValue(23), L"<null>");
  EXPECT_EQ(StoredSizeValues(folderId_, 23), (Texts{L"S1=||Ст3", L"S3=||Ст3"}));
  EXPECT_EQ(ShownByAll(L"Марка"), (Texts{L"s:Ст3", L"-", L"s:Ст3"}));
  Walk();
  EXPECT_EQ(ShownByAll(L"Марка"), (Texts{L"s:Ст3", L"s:", L"s:Ст3"}));
}

TEST_F(Values, EachSetterWritesItsOwnColumn) {
  // A record with only its type's default moves no rows.
  ASSERT_EQ(StoredCommonValue(24), L"<null>");
  ASSERT_TRUE(stdsize_SetValueI(s1_, Column(L"Диаметр"), 5));
  EXPECT_EQ(StoredSizeValues(folderId_, 24), (Texts{L"S1=5||", L"S2=8||"}));
  EXPECT_EQ(Shown(s1_, Column(L"Диаметр")), L"i:5");
  ASSERT_TRUE(stdsize_SetValueD(s1_, Column(L"Шаг"), 1.75));
  ASSERT_TRUE(stdsize_SetValueS(s1_, Column(L"Примечание"), L"новое"));
  EXPECT_EQ(StoredSizeValues(folderId_, 25), Texts{L"S1=|1.750|"});
  EXPECT_EQ(StoredSizeValues(folderId_, 26), Texts{L"S1=||новое"});
  EXPECT_EQ(Shown(s1_, Column(L"Шаг")), L"d:1.75");
  EXPECT_EQ(Shown(s1_, Column(L"Примечание")), L"s:новое");
  // The kind is not checked against the column's type: a text on an integer
  // column is stored as text, and a load reads the integer column of it.
  ASSERT_TRUE(stdsize_SetValueS(s2_, Column(L"Диаметр"), L"abc"));
  EXPECT_EQ(StoredSizeValues(folderId_, 24), (Texts{L"S1=5||", L"S2=||abc"}));
  EXPECT_EQ(Shown(s2_, Column(L"Диаметр")), L"s:abc");
  Walk();
  EXPECT_EQ(Shown(s2_, Column(L"Диаметр")), L"i:0");
}

TEST_F(Values, CalculatedColumnsRefuseWritesAndRemovals) {
  const std::int32_t rows = Count(L"ATTRIBUTEVALUE");
  EXPECT_FAILS(stdsize_SetValueI(s1_, Column(L"Сумма"), 1),
               "Для вычисляемых полей нельзя задавать значение [CFolderTable::_SetValue]");
  EXPECT_FAILS(stdsize_SetValueS(s1_, Column(L"Подпись"), L"x"),
               "Для вычисляемых полей нельзя задавать значение [CFolderTable::_SetValue]");
  EXPECT_FAILS(stdsize_RemoveValue(s1_, Column(L"Подпись")),
               "Для вычисляемых полей нельзя задавать значение [CFolderTable::_RemoveValue]");
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), rows);
  EXPECT_EQ(StoredSizeValues(folderId_, 27), Texts{L"S1=||своё"});
  EXPECT_TRUE(Obj(s1_)->Values().at(27) == Value(std::wstring(L"своё")));
  // A formula that did not parse reads plain but is refused all the same.
  LxAttribute* broken = Column(L"Сломанная");
  EXPECT_STREQ(attribute_GetFormula(broken), L"{A21");
  EXPECT_TRUE(attribute_CanEditForumalaValue(broken));
  EXPECT_EQ(ShownByAll(L"Сломанная"), (Texts{L"s:как есть", L"s:как есть", L"s:как есть"}));
  EXPECT_FAILS(stdsize_SetValueS(s1_, broken, L"другое"),
               "Для вычисляемых полей нельзя задавать значение [CFolderTable::_SetValue]");
  EXPECT_NE(StoredCommonValue(30), L"<null>");
}

TEST_F(Values, AWriteAfterTheTemplateLostItsRowChangesNothing) {
  Sql().Execute(L"DELETE FROM OBJECTATTRIBUTE WHERE OBJECTID = 501 AND NUMBER = 21");
  EXPECT_FAILS(stdsize_SetValueI(s1_, Column(L"Длина"), 5),
               "Почему-то не нашли атрибут у темплейта "
               "[TableOperation::MoveValueFromAtrToTemplateStd]",
               "Проблема при перемещении значения из атрибута в типоразмеры "
               "[TableOperation::SetValue]",
               "Проблема при задании нового значения:\nfolder = Болты\ntemplate = Болт\n"
               "stdSize = S1\natr = Длина\nintVal = 5 [CFolderTable::_SetValue]");
  auto [text, textWrites] = Captured([&] { return stdsize_SetValueS(s2_, Column(L"Длина"), L"пять"); });
  EXPECT_FALSE(text);
  ASSERT_EQ(textWrites.size(), 1u);
  EXPECT_NE(textWrites[0].find("\n>   >   Проблема при задании нового значения:\nfolder = Болты\ntemplate = Болт\n"
                               "stdSize = S2\natr = Длина\nstrVal = пять [CFolderTable::_SetValue]\n"),
            std::string::npos)
      << textWrites[0];
  EXPECT_FAILS(stdsize_RemoveValue(s3_, Column(L"Длина")),
               "Почему-то не нашли атрибут у темплейта "
               "[TableOperation::MoveValueFromAtrToTemplateStd]",
               "Проблема при перемещении значения из атрибута в типоразмеры "
               "[TableOperation::RemoveValue]",
               "Проблема при удалении значения:\nfolder = Болты\ntemplate = Болт\n"
               "stdSize = S3\natr = Длина [CFolderTable::_RemoveValue]");
  EXPECT_EQ(StoredSizeValues(folderId_, 21), Texts{});
  EXPECT_EQ(ShownByAll(L"Длина"), (Texts{L"i:10", L"i:10", L"i:10"}));
}

TEST_F(Values, ASizeWhoseTemplateLacksTheColumnIsRefused) {
  // No export leaves a template without a column's record; take it out of
  // memory to reach the check.
  Obj(s1_)->GetTemplate()->EraseRecord(25);
  EXPECT_FAILS(stdsize_SetValueD(s1_, Column(L"Шаг"), 1.0),
               "Не смогли найти атрибут у типоразмера [CFolderTable::_SetValue]");
  EXPECT_FAILS(stdsize_RemoveValue(s1_, Column(L"Шаг")),
               "Не смогли найти атрибут у типоразмера [CFolderTable::_RemoveValue]");
  EXPECT_EQ(StoredSizeValues(folderId_, 25), Texts{});
}

TEST_F(Values, ANullTextIsRefusedQuietlyAndTheIdentifierAlways) {
  EXPECT_FAILS(stdsize_SetValueS(s1_, Column(L"Марка"), nullptr));
  EXPECT_NE(StoredCommonValue(23), L"<null>");
  // The identifier cannot be set at all.
  EXPECT_FAILS(stdsize_SetID(s1_, L"S9"), " (fun: stdsize_SetID) Неизвестное исключение");
  EXPECT_FAILS(stdsize_SetID(s1_, nullptr));
  EXPECT_STREQ(stdsize_GetID(s1_), L"S1");
  EXPECT_EQ(Count(L"STANDARDSIZE WHERE IDENTIFIER = 'S1'"), 1);
}

TEST_F(Values, AttributeNamesFollowTheTemplatesRecords) {
  ASSERT_EQ(stdsize_GetAttributeCount(s1_), 10);
  EXPECT_EQ(RecordNames(s1_), (Texts{L"Длина", L"Вес", L"Марка", L"Диаметр", L"Шаг", L"Примечание", L"Подпись",
                                     L"Сумма", L"Пустой", L"Сломанная"}));
  // A rename moves the column in the table, not in the template.
  ASSERT_TRUE(attribute_SetName(Column(L"Длина"), L"Длина, мм"));
  EXPECT_STREQ(stdsize_GetAttributeName(s1_, 0), L"Длина, мм");
  EXPECT_STREQ(attribute_GetName(table_GetAttribute(table_, 9)), L"Длина, мм");
  for (int32_t index : {10, -1}) {
    EXPECT_FAILS(stdsize_GetAttributeName(s1_, index), " (fun: stdsize_GetAttributeName) Неизвестное исключение")
        << index;
  }
}

// Tables of one template made for a single test.
class Shapes : public TableFixture {};

TEST_F(Shapes, AFormulaThatFailsToEvaluateFailsTheRead) {
  Sql().Execute({TemplateRow(501, L"Болт", folderId_), SizeRow(601, 501, L"S1"),
                 AttributeRowSql(501, {21, 1, L"Длина", L"Длина болта", L"10, NULL, NULL"}),
                 AttributeRowSql(501, {22, 2, L"Округлено", L"Неверный вызов", L"NULL, NULL, NULL", L"{R(A21,A21,A21)}"})});
  ReloadAndWalk();
  ValueView view{};
  view.index = LX_VALUE_INT;
  view.payload.integer = 5;
  EXPECT_FAILS(stdsize_GetValue(Size(L"S1"), Column(L"Округлено"), nullptr, &view),
               " (fun: stdsize_GetValue) Неизвестное исключение");
  EXPECT_EQ(Described(view), L"e");
  EXPECT_EQ(Shown(Size(L"S1"), Column(L"Длина")), L"i:10");
}

TEST_F(Shapes, AWriteToColumn11LeavesTheIdentifier) {
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  ASSERT_NE(size, nullptr);
  LxAttribute* id = Column(L"ID_specification");
  ASSERT_TRUE(stdsize_SetValueS(size, id, L"M5-бис"));
  EXPECT_EQ(Shown(size, id), L"s:M5-бис");
  EXPECT_STREQ(stdsize_GetID(size), L"M5");
  EXPECT_EQ(StoredSizeValues(folderId_, 11), Texts{L"M5=||M5-бис"});
  EXPECT_EQ(Sql().Texts(L"SELECT IDENTIFIER FROM STANDARDSIZE"), Texts{L"M5"});
  ReloadAndWalk();
  EXPECT_EQ(Shown(Size(L"M5"), Column(L"ID_specification")), L"s:M5-бис");
  EXPECT_STREQ(stdsize_GetID(Size(L"M5")), L"M5");
}

}  // namespace
}  // namespace lxtest
