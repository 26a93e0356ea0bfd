// Columns and their setters on real catalogs: each setter's order (the
// argument, an unchanged value without database work, clashes in memory,
// the write, then memory), every message, the type rules and formulas.
// Every write is checked in the row of each template of the folder and in
// the copies the templates hold.
#include <functional>
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"
#include "catalog/CTemplate.h"

namespace lxtest {
namespace {

class Attributes : public TableFixture {
 protected:
  // "Болты": templates 501 (S1, S2) and 502 (S3) with the same plain
  // columns 21 "Длина", 22 "Шаг", 23 "Марка" and 24 "Пустой" of type 0; an
  // own value of S1 for 21. "Гайки" has a column 21 "Длина" of its own.
  void SetUp() override {
    TableFixture::SetUp();
    nuts_ = LayNuts(kLength);
    std::vector<std::wstring> rows{TemplateRow(501, L"Болт", folderId_), TemplateRow(502, L"Болт длинный", folderId_),
                                   SizeRow(601, 501, L"S1"), SizeRow(602, 501, L"S2"), SizeRow(603, 502, L"S3")};
    for (std::int32_t templateId : {501, 502}) {
      for (const AttributeRow& row : {kLength, kStep, kGrade, kBlank}) rows.push_back(AttributeRowSql(templateId, row));
    }
    rows.push_back(SizeValueSql(21, 601, L"15, NULL, NULL"));
    for (const std::wstring& row : rows) Sql().Execute(row);
    ReloadAndWalk();
    ASSERT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг", L"Марка", L"Пустой"}));
  }

  // The field of the record of this number in every template of table_.
  Texts Records(std::int32_t number, const std::function<std::wstring(const TemplateAttribute&)>& field) {
    Texts values;
    CFolderTable* table = Obj(table_);
    for (std::size_t i = 0; i < table->TemplateCount(); ++i) {
      const TemplateAttribute* record = table->Template(i)->FindRecord(number);
      values.push_back(record == nullptr ? L"<none>" : field(*record));
    }
    return values;
  }
  const AttributeRow kLength{21, 1, L"Длина", L"Длина болта", L"NULL, NULL, NULL", L"", L"мм", L"L"};
  const AttributeRow kStep{22, 2, L"Шаг", L"Шаг резьбы", L"NULL, NULL, NULL", L"", L"", L"P"};
  const AttributeRow kGrade{23, 3, L"Марка", L"Марка стали"};
  const AttributeRow kBlank{24, 0, L"Пустой", L"Без типа"};
  std::int32_t nuts_ = 0;
};

TEST_F(Attributes, UnchangedValuesTouchNoDatabase) {
  LxAttribute* length = Column(L"Длина");
  EXPECT_EQ(WithoutDatabase([&] {
              return attribute_SetName(length, L"Длина") && attribute_SetDescription(length, L"Длина болта") &&
                     attribute_SetNumber(length, 21) && attribute_SetOldNumber(length, 0) &&
                     attribute_SetMeasure(length, L"мм") && attribute_SetVarName(length, L"L") &&
                     attribute_SetType(length, 1) && attribute_SetType(Column(L"Пустой"), 0);
            }),
            Quietly(true));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг", L"Марка", L"Пустой"}));
}

TEST_F(Attributes, SetNameRefusesEmptyAndTakenNamesAndWritesEveryTemplate) {
  LxAttribute* length = Column(L"Длина");
  EXPECT_FAILS(attribute_SetName(length, L""), "Имя не может быть пустым [CAttribute::_SetName]");
  EXPECT_FAILS(attribute_SetName(length, L"Шаг"),
               "Не смогли задать атрибуту 'Длина' новое имя 'Шаг', т.к. уже есть такой "
               "атрибут [CAttribute::_SetName]");
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), (Texts{L"Длина", L"Длина"}));
  EXPECT_STREQ(attribute_GetName(length), L"Длина");
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг", L"Марка", L"Пустой"}));
  // Only an exact match clashes.
  ASSERT_TRUE(attribute_SetName(length, L"ШАГ"));
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), (Texts{L"ШАГ", L"ШАГ"}));
  EXPECT_EQ(Stored(nuts_, 21, L"an.NAME"), Texts{L"Длина"});
  EXPECT_STREQ(attribute_GetName(length), L"ШАГ");
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.name; }), (Texts{L"ШАГ", L"ШАГ"}));
  EXPECT_EQ(RecordNames(Size(L"S3")), (Texts{L"ШАГ", L"Шаг", L"Марка", L"Пустой"}));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Шаг", L"Марка", L"Пустой", L"ШАГ"}));
  EXPECT_EQ(Shown(Size(L"S1"), length), L"i:15");
}

TEST_F(Attributes, SetDescriptionRefusesEmptyAndTakenOnesAndWritesEveryTemplate) {
  LxAttribute* length = Column(L"Длина");
  EXPECT_FAILS(attribute_SetDescription(length, L""), "Описание не может быть пустым [CAttribute::_SetDescription]");
  EXPECT_FAILS(attribute_SetDescription(length, L"Шаг резьбы"),
               "Не смогли задать атрибуту 'Длина' новое описание 'Шаг резьбы', т.к. уже "
               "есть атрибут с таким описанием [CAttribute::_SetDescription]");
  EXPECT_EQ(Stored(folderId_, 21, L"ad.DESCRIPTION"), (Texts{L"Длина болта", L"Длина болта"}));
  EXPECT_STREQ(attribute_GetDescription(length), L"Длина болта");
  ASSERT_TRUE(attribute_SetDescription(length, L"ШАГ РЕЗЬБЫ"));
  EXPECT_EQ(Stored(folderId_, 21, L"ad.DESCRIPTION"), (Texts{L"ШАГ РЕЗЬБЫ", L"ШАГ РЕЗЬБЫ"}));
  EXPECT_STREQ(attribute_GetDescription(length), L"ШАГ РЕЗЬБЫ");
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.description; }),
            (Texts{L"ШАГ РЕЗЬБЫ", L"ШАГ РЕЗЬБЫ"}));
}

TEST_F(Attributes, SetNumberRefusesATakenNumberAndRenumbersEveryTemplate) {
  LxAttribute* length = Column(L"Длина");
  EXPECT_FAILS(attribute_SetNumber(length, 22),
               "Не смогли задать атрибуту 'Длина' номер '22', т.к. уже есть атрибут с таким "
               "номером [CAttribute::_SetNumber]");
  EXPECT_EQ(Stored(folderId_, 22, L"an.NAME"), (Texts{L"Шаг", L"Шаг"}));
  EXPECT_EQ(attribute_GetNumber(length), 21);
  ASSERT_TRUE(attribute_SetNumber(length, 40));
  EXPECT_EQ(Stored(folderId_, 40, L"an.NAME"), (Texts{L"Длина", L"Длина"}));
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), Texts{});
  EXPECT_EQ(Stored(nuts_, 21, L"an.NAME"), Texts{L"Длина"});
  // Values hang on the row, not on its number.
  EXPECT_EQ(StoredSizeValues(folderId_, 40), Texts{L"S1=15||"});
  EXPECT_EQ(attribute_GetNumber(length), 40);
  EXPECT_EQ(Records(40, [](const TemplateAttribute& r) { return r.name; }), (Texts{L"Длина", L"Длина"}));
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.name; }), (Texts{L"<none>", L"<none>"}));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Шаг", L"Марка", L"Пустой", L"Длина"}));
  // The freed number may be taken again.
  ASSERT_TRUE(attribute_SetNumber(Column(L"Марка"), 21));
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), (Texts{L"Марка", L"Марка"}));
}

TEST_F(Attributes, SetOldNumberMeasureAndVarNameWriteEveryTemplate) {
  LxAttribute* length = Column(L"Длина");
  ASSERT_TRUE(attribute_SetOldNumber(length, 21));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.OLD_NUMBER"), (Texts{L"21", L"21"}));
  EXPECT_EQ(attribute_GetOldNumber(length), 21);
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return std::to_wstring(r.oldNumber); }),
            (Texts{L"21", L"21"}));
  EXPECT_EQ(ColumnNames(table_), (Texts{L"Длина", L"Шаг", L"Марка", L"Пустой"}));
  // Any measure is taken, none included.
  ASSERT_TRUE(attribute_SetMeasure(length, L"см"));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.MEASURE"), (Texts{L"см", L"см"}));
  EXPECT_EQ(Stored(nuts_, 21, L"oa.MEASURE"), Texts{L"мм"});
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.measure; }), (Texts{L"см", L"см"}));
  // Another column may have the same unit.
  ASSERT_TRUE(attribute_SetMeasure(Column(L"Шаг"), L"см"));
  ASSERT_TRUE(attribute_SetMeasure(length, L""));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.MEASURE"), (Texts{L"", L""}));
  EXPECT_STREQ(attribute_GetMeasure(length), L"");
  EXPECT_STREQ(attribute_GetMeasure(Column(L"Шаг")), L"см");
  // A taken variable name is refused, an empty one is not.
  EXPECT_FAILS(attribute_SetVarName(Column(L"Марка"), L"L"),
               "Не смогли задать атрибуту 'Марка' имя переменной 'L', т.к. уже есть атрибут с "
               "таким именем переменной [CAttribute::_SetVarName]");
  EXPECT_EQ(Stored(folderId_, 23, L"oa.VARNAME"), (Texts{L"", L""}));
  // Case counts, and any number of columns may have none.
  ASSERT_TRUE(attribute_SetVarName(Column(L"Марка"), L"l"));
  ASSERT_TRUE(attribute_SetVarName(Column(L"Длина"), L""));
  ASSERT_TRUE(attribute_SetVarName(Column(L"Шаг"), L""));
  EXPECT_EQ(Stored(folderId_, 23, L"oa.VARNAME"), (Texts{L"l", L"l"}));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.VARNAME"), (Texts{L"", L""}));
  EXPECT_EQ(Stored(folderId_, 22, L"oa.VARNAME"), (Texts{L"", L""}));
  EXPECT_EQ(Records(23, [](const TemplateAttribute& r) { return r.varName; }), (Texts{L"l", L"l"}));
}

TEST_F(Attributes, SetTypeRefusesTypeZeroAndStoredValuesUnlessCalculated) {
  LxAttribute* length = Column(L"Длина");
  EXPECT_FAILS(attribute_SetType(length, 0), "Для атрибута задается неверный тип [CAttribute::_SetType]");
  // A freshly loaded record holds at least its type's default.
  EXPECT_FAILS(attribute_SetType(Column(L"Марка"), 1),
               "Для атрибута нельзя сменить тип, т.к. в шаблоне хранится его значение "
               "[CAttribute::_SetType]");
  EXPECT_EQ(Stored(folderId_, 23, L"oa.ATTRTYPE"), (Texts{L"3", L"3"}));
  EXPECT_EQ(attribute_GetType(Column(L"Марка")), 3);
  // A calculated column changes its type whatever its records hold.
  ASSERT_TRUE(attribute_SetFormula(length, L"{A22}"));
  ASSERT_TRUE(attribute_SetType(length, 3));
  EXPECT_EQ(attribute_GetType(length), 3);
  EXPECT_EQ(Stored(folderId_, 21, L"oa.ATTRTYPE"), (Texts{L"3", L"3"}));
  // A column of type 0 needs empty records and no own values.
  LxAttribute* blank = Column(L"Пустой");
  LxStdSize* s1 = Size(L"S1");
  ASSERT_TRUE(stdsize_SetValueI(s1, blank, 3));
  EXPECT_FAILS(attribute_SetType(blank, 1),
               "Для атрибута нельзя сменить тип, т.к. в типоразмере хранится его значение "
               "[CAttribute::_SetType]");
  EXPECT_EQ(Stored(folderId_, 24, L"oa.ATTRTYPE"), (Texts{L"0", L"0"}));

  ASSERT_TRUE(stdsize_RemoveValue(s1, blank));
  ASSERT_TRUE(attribute_SetType(blank, 1));
  EXPECT_EQ(attribute_GetType(blank), 1);
  EXPECT_EQ(Stored(folderId_, 24, L"oa.ATTRTYPE"), (Texts{L"1", L"1"}));
  // Every record now holds the new type's default.
  EXPECT_EQ(Shown(Size(L"S2"), blank), L"i:0");
  EXPECT_EQ(Shown(Size(L"S3"), blank), L"i:0");
}

TEST_F(Attributes, SetFormulaWritesEveryTemplateAndTheReadFollowsIt) {
  LxAttribute* length = Column(L"Длина");
  ASSERT_TRUE(stdsize_SetValueD(Size(L"S1"), Column(L"Шаг"), 1.25));
  ASSERT_TRUE(attribute_SetFormula(length, L"{A22}"));
  EXPECT_STREQ(attribute_GetFormula(length), L"{A22}");
  EXPECT_TRUE(attribute_CanEditForumalaValue(length));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.FORMULA"), (Texts{L"{A22}", L"{A22}"}));
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.formula; }), (Texts{L"{A22}", L"{A22}"}));
  // The own value stays stored, and the read gives the formula's result.
  EXPECT_EQ(StoredSizeValues(folderId_, 21), Texts{L"S1=15||"});
  EXPECT_EQ(Shown(Size(L"S1"), length), L"d:1.25");
  // Unlike the other setters, an unchanged formula is written again.
  EXPECT_TRUE(FailedInDatabase(WithoutDatabase([&] { return attribute_SetFormula(length, L"{A22}"); }),
                               "attribute_SetFormula"));
  EXPECT_STREQ(attribute_GetFormula(length), L"{A22}");

  ASSERT_TRUE(attribute_SetFormula(length, L"{A22+1}"));
  EXPECT_FALSE(attribute_CanEditForumalaValue(length));
  EXPECT_EQ(Shown(Size(L"S1"), length), L"d:2.25");
  // An empty formula makes the column plain again.
  ASSERT_TRUE(attribute_SetFormula(length, L""));
  EXPECT_STREQ(attribute_GetFormula(length), L"");
  EXPECT_TRUE(attribute_CanEditForumalaValue(length));
  EXPECT_EQ(Stored(folderId_, 21, L"oa.FORMULA"), (Texts{L"", L""}));
  EXPECT_EQ(Shown(Size(L"S1"), length), L"i:15");
  EXPECT_TRUE(stdsize_SetValueI(Size(L"S2"), length, 4));
  EXPECT_EQ(Shown(Size(L"S2"), length), L"i:4");
}

TEST_F(Attributes, AFormulaThatDoesNotParseChangesNothing) {
  LxAttribute* length = Column(L"Длина");
  ASSERT_TRUE(attribute_SetFormula(length, L"{A5}"));
  EXPECT_FAILS(attribute_SetFormula(length, L"{A22+1"),
               "Проблема при расшифровке формулы {A22+1 [CAttribute::_SetFormula]");
  EXPECT_STREQ(attribute_GetFormula(length), L"{A5}");
  EXPECT_TRUE(attribute_CanEditForumalaValue(length));  // still the tree of {A5}
  EXPECT_EQ(Stored(folderId_, 21, L"oa.FORMULA"), (Texts{L"{A5}", L"{A5}"}));
  EXPECT_EQ(Records(21, [](const TemplateAttribute& r) { return r.formula; }), (Texts{L"{A5}", L"{A5}"}));
  EXPECT_EQ(Shown(Size(L"S1"), length), L"-");  // the table has no A5
}

}  // namespace
}  // namespace lxtest
