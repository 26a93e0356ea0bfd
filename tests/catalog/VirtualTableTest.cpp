// Tables of virtual folders on real catalogs: "Группы" holds two templates
// whose common values differ, so its load splits it into the virtual folders
// "0" and "1". Reads, values and columns of their own work; every write that
// would change a template or a column is refused.
#include <functional>
#include <string>
#include <utility>

#include "CatalogFixture.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"

namespace lxtest {
namespace {

class VirtualTables : public TableFixture {
 protected:
  // Template 701 holds В1 and В3, template 702 holds В2; both have the
  // column 21 "Длина" (common value 1 and 2) and 22 "Вычисл" = {A21}.
  void SetUp() override {
    TableFixture::SetUp();
    ASSERT_NE(folder_AddChildFolder(root_, L"Группы"), nullptr);
    groups_ = FolderId(L"Группы");
    const AttributeRow calculated{22, 3, L"Вычисл", L"Вычисляемое", L"NULL, NULL, NULL", L"{A21}"};
    Sql().Execute({TemplateRow(701, L"Первый", groups_), TemplateRow(702, L"Второй", groups_),
                   SizeRow(801, 701, L"В1"), SizeRow(802, 702, L"В2"), SizeRow(803, 701, L"В3"),
                   AttributeRowSql(701, {21, 1, L"Длина", L"Длина детали", L"1, NULL, NULL"}),
                   AttributeRowSql(701, calculated),
                   AttributeRowSql(702, {21, 1, L"Длина", L"Длина детали", L"2, NULL, NULL"}),
                   AttributeRowSql(702, calculated)});
    ReloadAndWalk();
    LxFolder* groups = ChildNamed(root_, L"Группы");
    ASSERT_EQ(folder_GetChildFolderCount(groups), 2);
    first_ = folder_GetTable(ChildNamed(groups, L"0"));
    second_ = folder_GetTable(ChildNamed(groups, L"1"));
    // The load has no order, so either group may come first.
    if (table_FindStdSize(first_, L"В1") == nullptr) std::swap(first_, second_);
    ASSERT_NE(table_FindStdSize(first_, L"В1"), nullptr);
    ASSERT_TRUE(folder_IsVirtual(table_GetFolder(first_)));
    length_ = ColumnOf(first_, L"Длина");
    calculated_ = ColumnOf(first_, L"Вычисл");
  }

  std::int32_t groups_ = 0;
  LxFolderTable* first_ = nullptr;
  LxFolderTable* second_ = nullptr;
  LxAttribute* length_ = nullptr;
  LxAttribute* calculated_ = nullptr;
};

TEST_F(VirtualTables, AColumnGoesToThisTablesTemplatesOnly) {
  LxAttribute* added = table_AddAttribute(first_, L"Шаг", L"Шаг резьбы", 2);
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(attribute_GetNumber(added), 23);
  EXPECT_EQ(Stored(groups_, 23, L"oa.OBJECTID || ':' || an.NAME"), Texts{L"701:Шаг"});
  EXPECT_EQ(ColumnNames(first_), (Texts{L"Длина", L"Вычисл", L"Шаг"}));
  EXPECT_EQ(ColumnNames(second_), (Texts{L"Длина", L"Вычисл"}));
  EXPECT_EQ(RecordNames(table_FindStdSize(second_, L"В2")), (Texts{L"Длина", L"Вычисл"}));
  EXPECT_EQ(Shown(table_FindStdSize(first_, L"В1"), added), L"d:0");
}

TEST_F(VirtualTables, ASizeTakesValuesOfItsOwnAndCanBeSplitOff) {
  ASSERT_TRUE(stdsize_SetValueI(packet_FindStdSize(packet_, L"В1"), length_, 5));
  EXPECT_EQ(StoredSizeValues(groups_, 21), (Texts{L"В1=5||", L"В3=1||"}));
  EXPECT_EQ(Shown(packet_FindStdSize(packet_, L"В1"), length_), L"i:5");
  // A size can be split off its template.
  LxStdSize* size = packet_FindStdSize(packet_, L"В3");
  CFolderTable* table = Obj(first_);
  ASSERT_TRUE(Captured([&] { return CallFrame("test").Call([&] { return table->CreateTemplateFor(Obj(size)); }); })
                  .first);
  const std::int32_t id = stdsize_GetTemplateID(size);
  EXPECT_EQ(stdsize_GetTable(size), first_);
  EXPECT_EQ(SizeIds(first_), (Texts{L"В1", L"В3"}));
  EXPECT_EQ(Sql().Texts(L"SELECT NAME || '|' || FOLDERID FROM OBJECT WHERE ID = " + std::to_wstring(id)),
            Texts{L"Первый (0)|" + std::to_wstring(groups_)});
  EXPECT_EQ(Shown(size, length_), L"i:1");
}

TEST_F(VirtualTables, ASizeNeedsATemplateThatAVirtualTableCannotMakeButItsIdIsTaken) {
  const std::int32_t objects = Count(L"OBJECT");
  EXPECT_FAILS(table_AddStdSize(first_, L"Новый"),
               "Для виртуальных фолдеров создание темплейтов невозможно "
               "[TableOperation::CreateNewTemplate]",
               "Проблема с базой, не смогли создать новый темплейт "
               "[CFolderTable::CreateNewTemplate]",
               "Не смогли создать шаблон для нового типоразмера [CFolderTable::_AddStdSize]");
  EXPECT_EQ(Count(L"OBJECT"), objects);
  EXPECT_EQ(Count(L"STANDARDSIZE WHERE IDENTIFIER = 'Новый'"), 0);
  EXPECT_EQ(SizeIds(first_), (Texts{L"В1", L"В3"}));
  // The identifiers of a virtual table's sizes are taken in the packet.
  LxStdSize* size = table_AddStdSize(table_, L"В1");
  ASSERT_NE(size, nullptr);
  EXPECT_STREQ(stdsize_GetID(size), L"В1 (0)");
}

TEST_F(VirtualTables, DeletingAColumnAndSettingATypeAreRefusedWithTwoMessages) {
  EXPECT_FAILS(table_DeleteAttribute(first_, length_),
               "Для виртуальных фолдеров удаление атрибутов невозможно "
               "[TableOperation::DeleteAttribute]",
               "Проблемы при удалении атрибута:\nname = Длина\nfolder = 0\npacket = Пакет "
               "[CFolderTable::_DeleteAttribute]");
  EXPECT_EQ(Stored(groups_, 21, L"oa.OBJECTID"), (Texts{L"701", L"702"}));
  EXPECT_EQ(ColumnNames(first_), (Texts{L"Длина", L"Вычисл"}));
  LxStdSize* size = packet_FindStdSize(packet_, L"В1");
  EXPECT_FAILS(stdsize_SetType(size, L"ELEMENT"),
               "Для виртуальных фолдеров нелья задать тип [TableOperation::SetTemplateType]",
               "Проблема задания типа типоразмера в базе [CStandartSize::_SetType]");
  EXPECT_STREQ(stdsize_GetType(size), L"SEGMENT");
  EXPECT_EQ(Sql().Int(L"SELECT OBJECTTYPEID FROM OBJECT WHERE ID = 701"), 1);
}

TEST_F(VirtualTables, EveryColumnWriteIsRefusedWithTwoMessages) {
  auto stored = [&] {
    return std::make_pair(StoredColumns(L"oa.OBJECTID = 701"), StoredColumns(L"oa.OBJECTID = 702"));
  };
  const auto before = stored();
  struct Case {
    std::function<bool()> set;
    std::string message;
  };
  const std::string refusal = "Для виртуальных фолдеров изменение атрибутов невозможно [AttributeOperation::SetAtrParam]";
  const Case cases[] = {
      {[&] { return attribute_SetName(length_, L"Новое"); },
       "Не смогли переимновать атрибут 'Длина' из-за проблем с базой [CAttribute::_SetName]"},
      {[&] { return attribute_SetDescription(length_, L"Новое описание"); },
       "Не смогли задать атрибуту 'Длина' описание 'Новое описание' из-за проблем с базой "
       "[CAttribute::_SetDescription]"},
      {[&] { return attribute_SetNumber(length_, 40); },
       "Не смогли задать атрибуту 'Длина' номер '40' из-за проблем с базой [CAttribute::_SetNumber]"},
      {[&] { return attribute_SetOldNumber(length_, 5); },
       "Не смогли задать атрибуту 'Длина' 'old' номер '5' из-за проблем с базой [CAttribute::_SetOldNumber]"},
      {[&] { return attribute_SetMeasure(length_, L"см"); },
       "Не смогли задать атрибуту 'Длина' единицу измерения 'см' из-за проблем с базой [CAttribute::_SetMeasure]"},
      {[&] { return attribute_SetVarName(length_, L"X"); },
       "Не смогли задать атрибуту 'Длина' имя переменной 'X' из-за проблем с базой [CAttribute::_SetVarName]"},
      {[&] { return attribute_SetType(calculated_, 1); }, "Не смогли сменить тип атрибута [CAttribute::_SetType]"},
      {[&] { return attribute_SetFormula(length_, L"{A5}"); },
       "Не смогли задать атрибуту 'Длина' формулу '{A5}' из-за проблем с базой [CAttribute::_SetFormula]"},
  };
  for (const Case& c : cases) EXPECT_FAILS(c.set(), refusal, c.message);
  EXPECT_EQ(stored(), before);
  // The dictionary row for the new name was made before the refusal; it stays.
  EXPECT_EQ(Count(L"ATTRIBUTENAME WHERE NAME = 'Новое'"), 1);
  EXPECT_STREQ(attribute_GetName(length_), L"Длина");
  EXPECT_STREQ(attribute_GetDescription(length_), L"Длина детали");
  EXPECT_EQ(attribute_GetNumber(length_), 21);
  EXPECT_EQ(attribute_GetOldNumber(length_), 0);
  EXPECT_STREQ(attribute_GetMeasure(length_), L"");
  EXPECT_STREQ(attribute_GetVarName(length_), L"");
  EXPECT_EQ(attribute_GetType(calculated_), 3);
  EXPECT_STREQ(attribute_GetFormula(length_), L"");
  EXPECT_EQ(ColumnNames(first_), (Texts{L"Длина", L"Вычисл"}));
  EXPECT_EQ(Shown(packet_FindStdSize(packet_, L"В1"), calculated_), L"i:1");
}

}  // namespace
}  // namespace lxtest
