// Rows of folder tables on real catalogs: the first size and its column 11,
// identifiers unique in the whole packet, exact look-up, index ranges,
// deletion, and the three separate transactions of adding a size.
#include <string>
#include <vector>

#include "CatalogFixture.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"

namespace lxtest {
namespace {

constexpr const wchar_t* kIdDescription = L"Идентификатор элемента (для идентификации и сортировки в спецификации)";

class TableSizes : public TableFixture {
 protected:
  Texts StoredIdentifiers() { return Sql().Texts(L"SELECT IDENTIFIER FROM STANDARDSIZE ORDER BY ID"); }
  std::wstring Added(LxFolderTable* table, const std::wstring& identifier) {
    LxStdSize* size = table_AddStdSize(table, identifier.c_str());
    return size == nullptr ? L"-" : stdsize_GetID(size);
  }
};

TEST_F(TableSizes, TheFirstSizeMakesItsTemplateAndColumn11) {
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  ASSERT_NE(size, nullptr);
  EXPECT_STREQ(stdsize_GetID(size), L"M5");
  EXPECT_EQ(stdsize_GetTable(size), table_);
  ASSERT_EQ(table_GetAttributeCount(table_), 1);
  LxAttribute* id = table_GetAttribute(table_, 0);
  EXPECT_STREQ(attribute_GetName(id), L"ID_specification");
  EXPECT_STREQ(attribute_GetDescription(id), kIdDescription);
  EXPECT_EQ(attribute_GetNumber(id), 11);
  EXPECT_EQ(attribute_GetType(id), 3);
  EXPECT_EQ(Shown(size, id), L"s:M5");
  EXPECT_EQ(table_GetStdSizeCount(table_), 1);
  EXPECT_EQ(table_GetStdSize(table_, 0), size);

  // The template is named after the size; the size row, the column row and
  // the size's value of 11 are stored.
  EXPECT_EQ(StoredTemplateNames(folderId_), Texts{L"M5"});
  EXPECT_EQ(stdsize_GetTemplateID(size), Sql().Int(L"SELECT ID FROM OBJECT WHERE NAME = 'M5'"));
  EXPECT_EQ(Sql().Texts(L"SELECT o.NAME FROM STANDARDSIZE sz JOIN OBJECT o ON o.ID = sz.OBJECTID"), Texts{L"M5"});
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME || '|' || oa.ATTRTYPE || '|' || COALESCE(oa.CONCRETEVALUEID, 'null')"),
            Texts{L"ID_specification|3|null"});
  EXPECT_EQ(Stored(folderId_, 11, L"ad.DESCRIPTION"), Texts{kIdDescription});
  EXPECT_EQ(StoredSizeValues(folderId_, 11), Texts{L"M5=||M5"});
}

TEST_F(TableSizes, IdentifiersAreUniqueInTheWholePacket) {
  LxFolder* nuts = folder_AddChildFolder(root_, L"Гайки");
  LxFolder* deep = folder_AddChildFolder(nuts, L"Мелкие");
  LxFolderTable* rootTable = folder_GetTable(root_);
  LxFolderTable* deepTable = folder_GetTable(deep);
  EXPECT_EQ(Added(deepTable, L"M5"), L"M5");
  EXPECT_EQ(Added(table_, L"M5"), L"M5 (0)");
  EXPECT_EQ(Added(rootTable, L"M5"), L"M5 (1)");
  EXPECT_EQ(Added(table_, L"M5 (1)"), L"M5 (2)");
  // Identifiers compare exactly.
  EXPECT_EQ(Added(table_, L"m5"), L"m5");
  // Another packet is another name space.
  LxFolderTable* otherTable = folder_GetTable(packet_GetRootFolder(provider_AddPacket(provider_, L"Другой")));
  EXPECT_EQ(Added(otherTable, L"M5"), L"M5");
  // Every size gets a template of its own, named after the free identifier,
  // and the templates share the one column 11.
  EXPECT_EQ(StoredTemplateNames(folderId_), (Texts{L"M5 (0)", L"M5 (2)", L"m5"}));
  EXPECT_EQ(table_GetAttributeCount(table_), 1);
  EXPECT_EQ(StoredIdentifiers(), (Texts{L"M5", L"M5 (0)", L"M5 (1)", L"M5 (2)", L"m5", L"M5"}));
  EXPECT_EQ(StoredSizeValues(folderId_, 11), (Texts{L"M5 (0)=||M5 (0)", L"M5 (2)=||M5 (2)", L"m5=||m5"}));
  EXPECT_EQ(SizeIds(table_), (Texts{L"M5 (0)", L"M5 (2)", L"m5"}));
}

TEST_F(TableSizes, ATemplateNameIsMadeFreeInItsTableOnly) {
  // A template without sizes whose name equals the identifier asked for.
  Sql().Execute({TemplateRow(501, L"M7", folderId_)});
  ReloadAndWalk();
  LxStdSize* size = table_AddStdSize(table_, L"M7");
  ASSERT_NE(size, nullptr);
  EXPECT_STREQ(stdsize_GetID(size), L"M7");
  EXPECT_EQ(Sql().Texts(L"SELECT NAME FROM OBJECT ORDER BY NAME"), (Texts{L"M7", L"M7 (0)"}));
  EXPECT_EQ(Sql().Texts(L"SELECT o.NAME FROM STANDARDSIZE sz JOIN OBJECT o ON o.ID = sz.OBJECTID"), Texts{L"M7 (0)"});
}

TEST_F(TableSizes, EmptyAndNullIdentifiersAreRefusedAndFindStdSizeIsExact) {
  EXPECT_FAILS(table_AddStdSize(table_, L""),
               "Индентификатор типоразмера не может быть пустым [CFolderTable::_AddStdSize]");
  EXPECT_FAILS(table_AddStdSize(table_, nullptr));
  EXPECT_EQ(Count(L"OBJECT"), 0);
  EXPECT_TRUE(table_IsEmpty(table_));
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  EXPECT_EQ(table_FindStdSize(table_, L"M5"), size);
  for (const wchar_t* other : {L"m5", L"M5 ", L"M", L"М5" /* Cyrillic М */}) {
    EXPECT_FAILS(table_FindStdSize(table_, other)) << other;
  }
  EXPECT_FAILS(table_FindStdSize(table_, nullptr));
  // Only this table is searched.
  LxFolderTable* other = folder_GetTable(folder_AddChildFolder(root_, L"Гайки"));
  EXPECT_EQ(table_FindStdSize(other, L"M5"), nullptr);
}

TEST_F(TableSizes, SizesAreIndexedThroughTheTemplatesInOrder) {
  Sql().Execute({TemplateRow(501, L"Первый", folderId_), TemplateRow(502, L"Пустой", folderId_),
                 TemplateRow(503, L"Третий", folderId_), SizeRow(601, 501, L"a"), SizeRow(602, 501, L"b"),
                 SizeRow(603, 503, L"c")});
  ReloadAndWalk();
  ASSERT_EQ(table_GetStdSizeCount(table_), 3);
  EXPECT_EQ(SizeIds(table_), (Texts{L"a", L"b", L"c"}));
  EXPECT_EQ(stdsize_GetTemplateID(table_GetStdSize(table_, 2)), 503);
  for (int32_t index : {3, -1}) {
    EXPECT_FAILS(
        table_GetStdSize(table_, index),
        "Индекс " + std::to_string(index) + " выходит за пределы диапазона [0, 3) [CFolderTable::_GetStdSize]");
  }
  EXPECT_FAILS(table_GetStdSize(folder_GetTable(root_), 0),
               "Индекс 0 выходит за пределы диапазона [0, 0) [CFolderTable::_GetStdSize]");
}

TEST_F(TableSizes, DeletingTheLastSizeKeepsItsTemplate) {
  LxStdSize* size = table_AddStdSize(table_, L"M5");
  ASSERT_NE(size, nullptr);
  ASSERT_TRUE(table_DeleteStdSize(table_, size));
  EXPECT_EQ(table_GetStdSizeCount(table_), 0);
  EXPECT_FALSE(table_IsEmpty(table_));
  EXPECT_EQ(table_FindStdSize(table_, L"M5"), nullptr);
  EXPECT_EQ(table_GetAttributeCount(table_), 1);
  EXPECT_EQ(StoredIdentifiers(), Texts{});
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), 0);
  EXPECT_EQ(StoredTemplateNames(folderId_), Texts{L"M5"});
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME"), Texts{L"ID_specification"});
  // The identifier is free again.
  EXPECT_EQ(Added(table_, L"M5"), L"M5");
  EXPECT_EQ(StoredTemplateNames(folderId_), (Texts{L"M5", L"M5 (0)"}));
}

TEST_F(TableSizes, DeletingTakesTheSizesOwnValuesOnly) {
  Sql().Execute({TemplateRow(501, L"Болт", folderId_), SizeRow(601, 501, L"Б1"), SizeRow(602, 501, L"Б2"),
                 AttributeRowSql(501, {21, 1, L"Длина", L"Длина болта", L"3, NULL, NULL"}),
                 SizeValueSql(21, 601, L"10, NULL, NULL"), SizeValueSql(21, 602, L"20, NULL, NULL")});
  ReloadAndWalk();
  ASSERT_TRUE(table_DeleteStdSize(table_, Size(L"Б1")));
  EXPECT_EQ(StoredIdentifiers(), Texts{L"Б2"});
  EXPECT_EQ(StoredSizeValues(folderId_, 21), Texts{L"Б2=20||"});
  EXPECT_EQ(Stored(folderId_, 21, L"oa.CONCRETEVALUEID IS NOT NULL"), Texts{L"TRUE"});
  EXPECT_EQ(SizeIds(table_), Texts{L"Б2"});
  EXPECT_EQ(Shown(Size(L"Б2"), Column(L"Длина")), L"i:20");
}

TEST_F(TableSizes, ASizeOfAnotherTableIsRefused) {
  LxStdSize* stranger = table_AddStdSize(folder_GetTable(folder_AddChildFolder(root_, L"Гайки")), L"Г1");
  ASSERT_NE(stranger, nullptr);
  ASSERT_NE(table_AddStdSize(table_, L"Б1"), nullptr);
  EXPECT_FAILS(table_DeleteStdSize(table_, stranger),
               "Типоразмер не соответствует своему родителю [CFolderTable::_DeleteStdSize]");
  EXPECT_EQ(StoredIdentifiers(), (Texts{L"Г1", L"Б1"}));
  EXPECT_STREQ(stdsize_GetID(stranger), L"Г1");
  EXPECT_FAILS(table_DeleteStdSize(table_, nullptr),
               "Передан нулевой указатель на объект stdSize (fun: table_DeleteStdSize)");
}

TEST_F(TableSizes, AFailedSizeRowLeavesTheCommittedTemplateAndColumn) {
  // STANDARDSIZE.IDENTIFIER holds 256 characters; OBJECT.NAME holds more, so
  // the template and the column 11 are committed before the size row fails.
  const std::wstring identifier(300, L'x');
  EXPECT_TRUE(
      FailedInDatabase(Captured([&] { return table_AddStdSize(table_, identifier.c_str()); }), "table_AddStdSize"));
  EXPECT_EQ(StoredTemplateNames(folderId_), Texts{identifier});
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME"), Texts{L"ID_specification"});
  EXPECT_EQ(StoredIdentifiers(), Texts{});
  EXPECT_EQ(Count(L"ATTRIBUTEVALUE"), 0);
  EXPECT_FALSE(table_IsEmpty(table_));
  EXPECT_EQ(ColumnNames(table_), Texts{L"ID_specification"});
  EXPECT_EQ(table_GetStdSizeCount(table_), 0);

  // Trying again makes a further template under a free name.
  auto [again, againWrites] = Captured([&] { return table_AddStdSize(table_, identifier.c_str()); });
  EXPECT_EQ(again, nullptr);
  EXPECT_EQ(againWrites.size(), 1u);
  EXPECT_EQ(StoredTemplateNames(folderId_), (Texts{identifier, identifier + L" (0)"}));
  EXPECT_EQ(Stored(folderId_, 11, L"an.NAME"), (Texts{L"ID_specification", L"ID_specification"}));
  EXPECT_EQ(Obj(table_)->TemplateCount(), 2u);
  EXPECT_EQ(table_GetAttributeCount(table_), 1);
}

TEST_F(TableSizes, AFailedColumn11LeavesTheCommittedTemplate) {
  // A column that has the name but not the number 11 is in the way.
  ASSERT_NE(table_AddAttribute(table_, L"ID_specification", L"Чужой", 3), nullptr);
  EXPECT_FAILS(table_AddStdSize(table_, L"M5"),
               "Атрибут с таким именем есть: ID_specification [CFolderTable::_AddAttribute]",
               "Не смогли создать 11й атрибут [CFolderTable::_AddStdSize]");
  EXPECT_EQ(StoredTemplateNames(folderId_), (Texts{L"_AddTemplate", L"M5"}));
  EXPECT_EQ(Stored(folderId_, 11, L"oa.ID"), Texts{});
  EXPECT_EQ(Stored(folderId_, 21, L"an.NAME"), (Texts{L"ID_specification", L"ID_specification"}));
  EXPECT_EQ(StoredIdentifiers(), Texts{});
  EXPECT_EQ(Obj(table_)->TemplateCount(), 2u);
  EXPECT_EQ(table_GetStdSizeCount(table_), 0);
}

}  // namespace
}  // namespace lxtest
