// The empty catalog that the library carries: the same schema as the schema
// script makes on a fresh database, the format and first rows the library
// relies on, and what its triggers and stored procedures do with new rows.
// Each behaviour test works in one scope that is never committed.
#include "CatalogSql.h"
#include "ChildProcess.h"
#include "TestCatalog.h"

#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"
#include "storage/ibpp/Exception.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>
#include <openssl/evp.h>
#include <pugixml.hpp>

#include <fstream>
#include <iterator>

namespace {

using lxtest::SqlScope;
using lxtest::TestCatalog;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

std::vector<unsigned char> Unpack(const std::vector<unsigned char>& stored) {
  if (stored.size() < 4) return {};
  const std::uint32_t length = stored[0] | stored[1] << 8 | stored[2] << 16 | static_cast<std::uint32_t>(stored[3]) << 24;
  std::vector<unsigned char> content(length);
  lzo_uint produced = length;
  if (lzo_init() != LZO_E_OK ||
      lzo1y_decompress_safe(stored.data() + 4, stored.size() - 4, content.data(), &produced, nullptr) != LZO_E_OK ||
      produced != length)
    return {};
  return content;
}

std::string Md5Hex(const std::vector<unsigned char>& bytes) {
  unsigned char digest[EVP_MAX_MD_SIZE];
  unsigned int length = 0;
  EVP_Digest(bytes.data(), bytes.size(), digest, &length, EVP_md5(), nullptr);
  std::string text;
  static const char kDigits[] = "0123456789abcdef";
  for (unsigned int i = 0; i < length; ++i) {
    text += kDigits[digest[i] >> 4];
    text += kDigits[digest[i] & 15];
  }
  return text;
}

// The schema, and where each generator stands.
std::vector<std::string> SchemaAndGenerators(lxtest::CatalogSql& sql) {
  std::vector<std::string> lines = sql.Schema();
  for (const std::wstring& generator : sql.Texts(L"SELECT TRIM(RDB$GENERATOR_NAME) FROM RDB$GENERATORS "
                                                 L"WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0")) {
    lines.push_back(WideToUtf8(generator) + " = " +
                    std::to_string(sql.Int(L"SELECT GEN_ID(" + generator + L", 0) FROM RDB$DATABASE")));
  }
  return lines;
}

// A new empty catalog and one scope on it that is never committed.
class EmptyCatalog : public ::testing::Test {
 protected:
  TestCatalog catalog_;
  SqlScope sql{catalog_.Provider()};
};

TEST(EmptyCatalogImage, IsTheSchemaScriptRunOnAFreshDatabase) {
  if (TestCatalog::ThroughServer()) GTEST_SKIP() << "two embedded files, the same through a server or not";
  lxtest::EmbeddedCatalog image;
  lxtest::TempDir folder;
  const std::filesystem::path scripted = folder.path() / "scripted.fdb";
  std::filesystem::create_directory(folder.path() / "lock");
  const lxtest::ChildResult run = lxtest::RunChild(LX_MAKE_EMPTY_CATALOG, {LX_CATALOG_SCRIPT, scripted.string()},
                                                   {"FIREBIRD_LOCK=" + (folder.path() / "lock").string()});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  lxtest::CatalogSql script(L"", Utf8ToWide(scripted.string()), L"SYSDBA", L"");
  const std::vector<std::string> expected = SchemaAndGenerators(script);
  EXPECT_THAT(expected, ::testing::Contains("table FOLDER"));
  EXPECT_EQ(SchemaAndGenerators(image.Sql()), expected);
}

TEST_F(EmptyCatalog, IsAFirebirdDatabaseOfTheCatalogsFormatWithItsFirstRows) {
  const auto image = EmptyCatalogImage();
  ASSERT_GT(image.size(), 16384u);
  EXPECT_EQ(image.size() % 16384, 0u);
  EXPECT_EQ(sql.Texts(L"SELECT MON$PAGE_SIZE || ' ' || MON$ODS_MAJOR || '.' || MON$ODS_MINOR || ' dialect ' || "
                      L"MON$SQL_DIALECT || ' ' || TRIM(RDB$CHARACTER_SET_NAME) FROM MON$DATABASE, RDB$DATABASE"),
            std::vector<std::wstring>{L"16384 12.0 dialect 3 NONE"});

  EXPECT_THAT(sql.Texts(L"SELECT ID || ': ' || NAME || '|' || TAG || '|' || VAL FROM BASE_PARAM ORDER BY ID"),
              ElementsAre(L"1: VERSION||1"));
  EXPECT_THAT(sql.Texts(L"SELECT PARAMETER_NAME || '|' || PARAMETER_VALUE FROM INFO"), ElementsAre(L"version|11"));
  EXPECT_THAT(sql.Texts(L"SELECT ID || ': ' || SVAL FROM OBJECTTYPE ORDER BY ID"),
              ElementsAre(L"1: SEGMENT", L"2: VENTBOX", L"3: ELEMENT"));
  EXPECT_THAT(sql.Texts(L"SELECT ID || ': ' || NAME FROM PROJECTION ORDER BY ID"),
              ElementsAre(L"1: сверху", L"2: спереди", L"3: сзади", L"4: слева", L"5: справа", L"6: снизу"));
  EXPECT_THAT(sql.Texts(L"SELECT GEN_ID(GEN_PROJECTION_ID, 0) || ' ' || GEN_ID(GEN_REPRESENTATION_ID, 0) || ' ' || "
                        L"GEN_ID(GET_BASE_PARAM_ID, 0) || ' ' || GEN_ID(GEN_FOLDER_ID, 0) FROM RDB$DATABASE"),
              ElementsAre(L"6 4 1 0"));
  // The messages of FOLDER_NOT_FOUND, UNABLE_CHANGE_PROJECTION_VIEW and
  // UNABLE_CHANGE_STD_PROJECTION.
  EXPECT_THAT(sql.Texts(L"SELECT RDB$MESSAGE FROM RDB$EXCEPTIONS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 "
                        L"ORDER BY RDB$EXCEPTION_NAME"),
              ElementsAre(L"Folder not found", L"Изменить вид проекции невозможно",
                          L"Изменить стандартную проекцию невозможно"));
}

TEST_F(EmptyCatalog, FirstRepresentationIsAStoredPropertiesDocument) {
  EXPECT_THAT(sql.Texts(L"SELECT ID || ' ' || DIGEST FROM REPRESENTATION"), ElementsAre(HasSubstr(L"4 ")));
  const std::vector<unsigned char> document = Unpack(sql.Blob(L"SELECT DATA FROM REPRESENTATION"));
  ASSERT_FALSE(document.empty()) << "not a length and an LZO1Y stream";
  EXPECT_EQ(sql.Texts(L"SELECT DIGEST FROM REPRESENTATION"), std::vector<std::wstring>{Utf8ToWide(Md5Hex(document))});

  std::ifstream source(LX_REPRESENTATION_DOCUMENT, std::ios::binary);
  const std::vector<unsigned char> expected((std::istreambuf_iterator<char>(source)), std::istreambuf_iterator<char>());
  EXPECT_EQ(document, expected) << "schema/representation.xml and the row in catalog.sql differ";
  pugi::xml_document xml;
  EXPECT_TRUE(xml.load_buffer(document.data(), document.size(), pugi::parse_default, pugi::encoding_utf8));
  EXPECT_TRUE(xml.child("properties").child("group")) << "not a properties document";
}

// A folder, a packet in it and a template of the packet in the folder.
struct Tree {
  explicit Tree(SqlScope& sql)
      : folder(sql.Int(L"INSERT INTO FOLDER (NAME) VALUES ('root') RETURNING ID")),
        packet(sql.Int(L"INSERT INTO PACKET (FOLDERID, PACKETID) VALUES (" + std::to_wstring(folder) +
                       L", 'p') RETURNING ID")),
        templateId(sql.Int(L"INSERT INTO OBJECT (REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) "
                           L"VALUES (4, 1, " + std::to_wstring(folder) + L", " + std::to_wstring(packet) +
                           L", 'Отвод') RETURNING ID")) {}
  std::int32_t folder, packet, templateId;
  std::wstring Size(const wchar_t* identifier) const {
    return L"INSERT INTO STANDARDSIZE (OBJECTID, IDENTIFIER) VALUES (" + std::to_wstring(templateId) + L", '" +
           identifier + L"') RETURNING ID";
  }
};

TEST_F(EmptyCatalog, IdentifierTriggersFillTheId) {
  EXPECT_EQ(sql.Int(L"INSERT INTO ATTRIBUTENAME (NAME) VALUES ('a') RETURNING ID"), 1);
  EXPECT_EQ(sql.Int(L"INSERT INTO ATTRIBUTENAME (ID, NAME) VALUES (50, 'b') RETURNING ID"), 50);  // kept
  EXPECT_EQ(sql.Int(L"INSERT INTO ATTRIBUTENAME (NAME) VALUES ('c') RETURNING ID"), 2);
  EXPECT_EQ(sql.Int(L"INSERT INTO TEMPLATE (NAME) VALUES ('t') RETURNING ID"), 1);
  EXPECT_EQ(sql.Int(L"INSERT INTO TEMPLATE (ID, NAME) VALUES (50, 't') RETURNING ID"), 2);  // replaced
  const Tree tree(sql);
  EXPECT_EQ(tree.folder, 1);
  EXPECT_EQ(tree.packet, 1);
  EXPECT_EQ(tree.templateId, 1);
  EXPECT_EQ(sql.Int(L"INSERT INTO PROJECTION (NAME) VALUES ('сбоку') RETURNING ID"), 7);
}

TEST_F(EmptyCatalog, FolderBoundsNest) {
  auto add = [&](const wchar_t* name, const std::wstring& parent) {
    return std::to_wstring(
        sql.Int(L"INSERT INTO FOLDER (NAME, ID_PARENT) VALUES ('" + std::wstring(name) + L"', " + parent +
                L") RETURNING ID"));
  };
  const std::wstring a = add(L"A", L"NULL"), b = add(L"B", L"NULL"), a1 = add(L"A1", a), a2 = add(L"A2", a);
  EXPECT_THAT(sql.Texts(L"SELECT NAME || ' ' || LEFT_BOUND || ',' || RIGHT_BOUND FROM FOLDER ORDER BY ID"),
              ElementsAre(L"A 1,6", L"B 7,8", L"A1 2,3", L"A2 4,5"));
  EXPECT_THAT([&] { add(L"orphan", L"12345"); }, ThrowsMessage<IBPP::Exception>(HasSubstr("Folder not found")));
  EXPECT_THAT([&] { sql.Run(L"UPDATE FOLDER SET ID_PARENT = ID WHERE ID = " + a); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("CHECK_FOLDER_1")));
}

TEST_F(EmptyCatalog, StandardProjectionsCannotChange) {
  const std::string refusal = WideToCp1251(L"Изменить стандартную проекцию невозможно");
  for (int id = 1; id <= 6; ++id) {
    const std::wstring where = L" WHERE ID = " + std::to_wstring(id);
    EXPECT_THAT([&] { sql.Run(L"UPDATE PROJECTION SET NAME = 'другая'" + where); },
                ThrowsMessage<IBPP::Exception>(HasSubstr("UNABLE_CHANGE_STD_PROJECTION")));
    EXPECT_THAT([&] { sql.Run(L"DELETE FROM PROJECTION" + where); }, ThrowsMessage<IBPP::Exception>(HasSubstr(refusal)));
  }
  const std::wstring own = std::to_wstring(sql.Int(L"INSERT INTO PROJECTION (NAME) VALUES ('сбоку') RETURNING ID"));
  sql.Run(L"UPDATE PROJECTION SET NAME = 'сбоку слева' WHERE ID = " + own);
  sql.Run(L"DELETE FROM PROJECTION WHERE ID = " + own);
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM PROJECTION"), 6);
}

TEST_F(EmptyCatalog, DictionariesHoldOneRowPerTextAndValuesAreNeverShared) {
  const std::int32_t width = sql.Int(L"EXECUTE PROCEDURE GET_ATTR_NAME('Ширина')");
  EXPECT_GT(width, 0);
  EXPECT_EQ(sql.Int(L"EXECUTE PROCEDURE GET_ATTR_NAME('Ширина')"), width);
  EXPECT_NE(sql.Int(L"EXECUTE PROCEDURE GET_ATTR_NAME('Ширина ')"), width);  // exactly the text
  EXPECT_NE(sql.Int(L"EXECUTE PROCEDURE GET_ATTR_NAME('ширина')"), width);
  const std::int32_t description = sql.Int(L"EXECUTE PROCEDURE GET_ATTR_DESCR('Ширина сечения, мм')");
  EXPECT_EQ(sql.Int(L"EXECUTE PROCEDURE GET_ATTR_DESCR('Ширина сечения, мм')"), description);

  EXPECT_EQ(sql.Int(L"EXECUTE PROCEDURE GET_CONCR_VAL(NULL, NULL, NULL)"), 0);  // no value, no row
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM CONCRETEVALUE"), 0);
  const std::int32_t first = sql.Int(L"EXECUTE PROCEDURE GET_CONCR_VAL(5, NULL, NULL)");
  EXPECT_GT(first, 0);
  EXPECT_NE(sql.Int(L"EXECUTE PROCEDURE GET_CONCR_VAL(5, NULL, NULL)"), first);
  EXPECT_GT(sql.Int(L"EXECUTE PROCEDURE GET_CONCR_VAL(NULL, 1.5, NULL)"), 0);
  EXPECT_GT(sql.Int(L"EXECUTE PROCEDURE GET_CONCR_VAL(NULL, NULL, 'текст')"), 0);
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM CONCRETEVALUE"), 4);
}

TEST_F(EmptyCatalog, AttributesSizeValuesAndAdditionalFiles) {
  const Tree tree(sql);
  const std::wstring size = std::to_wstring(sql.Int(tree.Size(L"100")));
  const std::wstring call = L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + std::to_wstring(tree.templateId);
  const std::int32_t width = sql.Int(call + L", 21, 0, 1, 'Ширина', 'Ширина, мм', 'mm', '', '', 100, NULL, NULL)");
  const std::int32_t height = sql.Int(call + L", 22, 0, 1, 'Высота', 'Высота, мм', 'mm', '', '', NULL, NULL, NULL)");
  const std::wstring valueOf = L"SELECT COALESCE(CONCRETEVALUEID, 0) FROM OBJECTATTRIBUTE WHERE ID = ";
  EXPECT_GT(sql.Int(valueOf + std::to_wstring(width)), 0);
  EXPECT_EQ(sql.Int(valueOf + std::to_wstring(height)), 0);
  EXPECT_THAT([&] { sql.Run(call + L", 23, 0, 1, 'Ширина', 'другое', 'mm', '', '', NULL, NULL, NULL)"); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("UNQ_OBJECT_ATTRNAME")));

  const std::wstring sizeValues = L"SELECT CV.INTVAL || '' FROM ATTRIBUTEVALUE AV JOIN CONCRETEVALUE CV ON CV.ID = "
                                  L"AV.CONCRETEVALUEID WHERE AV.STANDARDSIZEID = " + size;
  sql.Run(L"EXECUTE PROCEDURE CREATE_ATTR_VAL(21, " + size + L", 150, NULL, NULL)");
  EXPECT_THAT(sql.Texts(sizeValues), ElementsAre(L"150"));
  const std::int32_t valuesBefore = sql.Int(L"SELECT COUNT(*) FROM CONCRETEVALUE");
  sql.Run(L"EXECUTE PROCEDURE CREATE_ATTR_VAL(21, " + size + L", 175, NULL, NULL)");
  EXPECT_THAT(sql.Texts(sizeValues), ElementsAre(L"175"));  // the row is repointed, the old value stays
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM CONCRETEVALUE"), valuesBefore + 1);

  // Additional files are shared by digest.
  const std::wstring addFile = L"EXECUTE PROCEDURE INSERT_ADDITIONALFILE('паспорт.pdf', 'pdf', x'25504446', '" +
                               std::wstring(32, L'a') + L"', ";
  const std::int32_t file = sql.Int(addFile + size + L")");
  EXPECT_GT(file, 0);
  EXPECT_EQ(sql.Int(addFile + std::to_wstring(sql.Int(tree.Size(L"200"))) + L")"), file);
  EXPECT_THAT(sql.Texts(L"SELECT (SELECT COUNT(*) FROM FILES) || ',' || (SELECT COUNT(*) FROM FILE_EXTENSION) || ',' "
                        L"|| (SELECT COUNT(*) FROM STANDARTSIZE_FILE) FROM RDB$DATABASE"),
              ElementsAre(L"1,1,2"));
}

TEST_F(EmptyCatalog, ChecksAndForeignKeysAct) {
  const Tree tree(sql);
  sql.Run(tree.Size(L"100"));
  const std::wstring fragment = std::to_wstring(sql.Int(L"INSERT INTO FRAGMENT (THUMBNAIL) VALUES (x'42') RETURNING ID"));
  const std::wstring projection = L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) "
                                  L"VALUES (1, " + fragment + L", " + std::to_wstring(tree.templateId) + L", ";
  sql.Run(projection + L"2)");
  EXPECT_THAT([&] { sql.Run(projection + L"3)"); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("CHECK_OBJECTPROJECTION_1")));
  EXPECT_THAT([&] { sql.Run(L"DELETE FROM PACKET WHERE ID = " + std::to_wstring(tree.packet)); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("FK_OBJECT_2")));

  sql.Run(L"DELETE FROM FOLDER WHERE ID = " + std::to_wstring(tree.folder));  // takes packet, template and size
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM OBJECT"), 0);
  EXPECT_EQ(sql.Int(L"SELECT COUNT(*) FROM STANDARDSIZE"), 0);
}

}  // namespace
