// A data provider on a real catalog: its probe, parameters, dictionaries
// and the exports that change nothing.
#include <filesystem>

#include "CatalogFixture.h"
#include "platform/TextCodec.h"

namespace lxtest {
namespace {

class Provider : public CatalogFixture {};

TEST_F(Provider, IsEditableOnAWritableCatalogLeavesNoTraceAndIsASilentNoWithout) {
  const std::int32_t foldersBefore = Count(L"FOLDER");
  const std::int32_t generatorBefore = Sql().Int(L"SELECT GEN_ID(GEN_FOLDER_ID, 0) FROM RDB$DATABASE");
  EXPECT_EQ(Captured([&] { return provider_IsEditable(provider_); }), Quietly(true));
  EXPECT_EQ(Count(L"FOLDER"), foldersBefore);
  // The probe's insert did run: it drew an id.
  EXPECT_GT(Sql().Int(L"SELECT GEN_ID(GEN_FOLDER_ID, 0) FROM RDB$DATABASE"), generatorBefore);
  // A silent no when the catalog is gone.
  std::filesystem::remove(WideToUtf8(database_));
  EXPECT_FAILS(provider_IsEditable(provider_));
}

TEST_F(Provider, ParamIsReadOnceAndKeptAtOneAddressANullTextFailsSilently) {
  const wchar_t* first = provider_GetParam(provider_, L"VERSION", L"");
  ASSERT_NE(first, nullptr);
  EXPECT_STREQ(first, L"1");
  // The database changes, but the second read does no database work.
  Sql().Execute(L"UPDATE BASE_PARAM SET VAL = '2' WHERE NAME = 'VERSION'");
  auto [second, writes] = Captured([&] { return provider_GetParam(provider_, L"VERSION", L""); });
  EXPECT_EQ(second, first);
  EXPECT_STREQ(second, L"1");
  EXPECT_TRUE(writes.empty());
  EXPECT_FAILS(provider_GetParam(provider_, L"VERSION", nullptr));
}

TEST_F(Provider, MissingParamOrTableGivesBothReportsAndIsAskedAgainNextTime) {
  EXPECT_FAILS(provider_GetParam(provider_, L"Размер", L"tag"),
               "В таблице BASE_PARAM нет параметра Размер [BaseOperation::GetParam]",
               "Не смогли получить параметр из за проблем с базой [CDataProvider::_GetParam]");
  Sql().Execute(L"INSERT INTO BASE_PARAM (NAME, TAG, VAL) VALUES ('Размер', 'tag', 'большой')");
  const wchar_t* later = provider_GetParam(provider_, L"Размер", L"tag");
  ASSERT_NE(later, nullptr);
  EXPECT_STREQ(later, L"большой");
  EXPECT_EQ(provider_GetParam(provider_, L"Размер", L"other"), nullptr) << "the tag is part of the key";
  // A catalog without the table gives two reports in order.
  Sql().Execute(L"DROP TABLE BASE_PARAM");
  EXPECT_FAILS(provider_GetParam(provider_, L"VERSION", L""), "В базе нет таблицы BASE_PARAM [BaseOperation::GetParam]",
               "Не смогли получить параметр из за проблем с базой [CDataProvider::_GetParam]");
}

TEST_F(Provider, DictionaryCrossingUsesOnlyPairsThatAnAttributeCarries) {
  Sql().Execute({L"EXECUTE PROCEDURE GET_ATTR_NAME('Диаметр')", L"EXECUTE PROCEDURE GET_ATTR_DESCR('Условный проход')",
                 L"INSERT INTO FOLDER (NAME) VALUES ('f')",
                 L"INSERT INTO PACKET (PACKETID, FOLDERID) VALUES ('p', (SELECT MAX(ID) FROM FOLDER))",
                 L"INSERT INTO OBJECT (REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) "
                 L"VALUES (4, 1, (SELECT MAX(ID) FROM FOLDER), (SELECT MAX(ID) FROM PACKET), 't')",
                 L"EXECUTE PROCEDURE CREATE_OBJ_ATTR((SELECT MAX(ID) FROM OBJECT), 21, 21, 1, 'Ду', 'Наружный диаметр', "
                 L"'мм', NULL, NULL, 100, NULL, NULL)"});
  EXPECT_STREQ(provider_GetDescByAtrName(provider_, L"Ду"), L"Наружный диаметр");
  EXPECT_STREQ(provider_GetAttrNameByDesc(provider_, L"Наружный диаметр"), L"Ду");
  // In the dictionaries, but carried by no attribute.
  EXPECT_STREQ(provider_GetDescByAtrName(provider_, L"Диаметр"), L"");
  EXPECT_STREQ(provider_GetAttrNameByDesc(provider_, L"Условный проход"), L"");
  const wchar_t* unknown = provider_GetDescByAtrName(provider_, L"Нет такого");
  ASSERT_NE(unknown, nullptr);
  EXPECT_STREQ(unknown, L"");
}

TEST_F(Provider, DeleteUnusedModelsAndFragmentsKeepsWhatIsUsed) {
  Sql().Execute({L"INSERT INTO MODEL (ID, THUMBNAIL, MODEL_VERSION) VALUES (1, '', 1)",
                 L"INSERT INTO MODEL (ID, THUMBNAIL, MODEL_VERSION) VALUES (2, '', 1)",
                 L"INSERT INTO FRAGMENT (ID, THUMBNAIL) VALUES (1, '')",
                 L"INSERT INTO FOLDER (NAME) VALUES ('f')",
                 L"INSERT INTO PACKET (PACKETID, FOLDERID) VALUES ('p', (SELECT MAX(ID) FROM FOLDER))",
                 L"INSERT INTO OBJECT (MODELID, REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) "
                 L"VALUES (2, 4, 1, (SELECT MAX(ID) FROM FOLDER), (SELECT MAX(ID) FROM PACKET), 't')"});
  EXPECT_TRUE(provider_DeleteUnusedQmxandQfx(provider_));
  EXPECT_EQ(Sql().Texts(L"SELECT CAST(ID AS VARCHAR(10)) FROM MODEL"), std::vector<std::wstring>{L"2"});
  EXPECT_EQ(Count(L"FRAGMENT"), 0);
}

TEST_F(Provider, DeletePacketIsNotAvailableAndBadArgumentsReportThemselves) {
  LxPacket* packet = provider_AddPacket(provider_, L"Вечный");
  ASSERT_NE(packet, nullptr);
  EXPECT_FAILS(provider_DeletePacket(provider_, packet), " (fun: provider_DeletePacket) Неизвестное исключение");
  EXPECT_EQ(provider_GetPacketCount(provider_), 1);
  EXPECT_EQ(Count(L"PACKET"), 1);
  // A bad index reports itself.
  EXPECT_FAILS(provider_GetPacket(provider_, -1),
               "Индекс -1 выходит за пределы диапазона [0, 1) [CDataProvider::_GetPacket]");
}

}  // namespace
}  // namespace lxtest
