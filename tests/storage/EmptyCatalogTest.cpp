// The empty catalog that the library carries: written out as it is, opened
// like any catalog, and checked through the engine's system tables against
// the catalog schema, object by object, and by what its triggers and stored
// procedures do.
#include "CatalogContentOperation.h"
#include "SchemaInspectionOperation.h"
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
#include <map>
#include <set>

namespace {

using lxtest::TestCatalog;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;
using Column = SchemaInspectionOperation::Column;

Column C(const char* name, const char* type, bool notNull = false, const char* defaultSource = "") {
  return {name, type, notNull, defaultSource};
}
constexpr bool NN = true;

const std::map<std::string, std::vector<Column>>& ExpectedTables() {
  static const std::map<std::string, std::vector<Column>> tables = {
      {"FOLDER", {C("ID", "int", NN), C("ID_PARENT", "int"), C("LEFT_BOUND", "int", NN), C("RIGHT_BOUND", "int", NN),
                  C("NAME", "text 1024", NN)}},
      {"PACKET", {C("ID", "int", NN), C("FOLDERID", "int", NN), C("PACKETID", "text 255", NN)}},
      {"OBJECT", {C("ID", "int", NN), C("MODELID", "int"), C("REPRESENTATIONID", "int", NN),
                  C("OBJECTTYPEID", "int", NN), C("FOLDERID", "int", NN), C("PACKETID", "int", NN),
                  C("NAME", "text 1024", NN), C("TEMPLATEID", "int")}},
      {"OBJECTTYPE", {C("ID", "int", NN), C("SVAL", "text 256", NN, "DEFAULT 'UNDISCLOSED'")}},
      {"STANDARDSIZE", {C("ID", "int", NN), C("OBJECTID", "int", NN), C("IDENTIFIER", "text 256", NN),
                        C("OLD_INDEX", "text 256"), C("OLD_NAME", "text 256"), C("DISPLAYORDER", "int", false, "DEFAULT 0")}},
      {"OBJECTATTRIBUTE", {C("ID", "int", NN), C("OBJECTID", "int", NN), C("ATTRIBUTENAMEID", "int", NN),
                           C("ATTRIBUTEDESCRIPTIONID", "int", NN), C("MEASURE", "text 50"), C("VARNAME", "text 50"),
                           C("CONCRETEVALUEID", "int"), C("NUMBER", "small", NN), C("OLD_NUMBER", "small", NN),
                           C("ATTRTYPE", "small"), C("FORMULA", "text 512"), C("ATTRIBUTEGROUPID", "int")}},
      {"ATTRIBUTENAME", {C("ID", "int", NN), C("NAME", "text 128", NN)}},
      {"ATTRIBUTEDESCRIPTION", {C("ID", "int", NN), C("DESCRIPTION", "text 1024", NN)}},
      {"ATTRIBUTEVALUE", {C("OBJECTATTRIBUTEID", "int", NN), C("STANDARDSIZEID", "int", NN),
                          C("CONCRETEVALUEID", "int", NN), C("DISPLAYORDER", "int", false, "DEFAULT 0"), C("ID", "int", NN)}},
      {"CONCRETEVALUE", {C("DOUBLEVAL", "double"), C("ID", "int", NN), C("INTVAL", "int"), C("STRVAL", "text 1024")}},
      {"MODEL", {C("MODEL", "blob"), C("THUMBNAIL", "blob", NN), C("ID", "int", NN), C("MODEL_VERSION", "int", NN),
                 C("DIGEST", "text 256"), C("ORIENTATION", "int")}},
      {"FRAGMENT", {C("THUMBNAIL", "blob", NN), C("FRAGMENT", "blob"), C("ID", "int", NN), C("DIGEST", "text 256")}},
      {"PROJECTION", {C("ID", "int", NN), C("NAME", "text 1024")}},
      {"OBJECTPROJECTION", {C("PROJECTIONID", "int", NN), C("FRAGMENTID", "int", NN), C("OBJECTID", "int", NN),
                            C("VIEW_TYPE", "small"), C("ID", "int", NN)}},
      {"REPRESENTATION", {C("DATA", "blob", NN), C("ID", "int", NN), C("DIGEST", "text 32", NN)}},
      {"SPECIFICATION", {C("ID", "int", NN), C("IDOBJECT", "int", NN), C("STYLENUMBER", "int", NN),
                         C("FIRSTPART", "int", NN), C("SECONDPART", "int", NN), C("LIBNAME", "text 255", NN)}},
      {"SPECIFICATIONCOLUMN", {C("SPECIFICATIONID", "int", NN), C("COLNUMBER", "int", NN),
                               C("FORMULA", "text 1024", NN), C("ID", "int", NN)}},
      {"FILES", {C("DATAFILE", "blob"), C("ID", "int", NN), C("IDEXTENSION", "int"), C("NAME", "text 1024", NN),
                 C("DIGEST", "text 32", NN)}},
      {"FILE_EXTENSION", {C("ID", "int", NN), C("EXTENSION", "text 80", NN)}},
      {"STANDARTSIZE_FILE", {C("STDSIZE_ID", "int", NN), C("FILES_ID", "int", NN), C("ID", "int", NN)}},
      {"BASE_PARAM", {C("ID", "int", NN), C("NAME", "text 128", NN), C("TAG", "text 128", NN), C("VAL", "text 128", NN)}},
      {"INFO", {C("PARAMETER_NAME", "text 255", NN), C("PARAMETER_VALUE", "text 255")}},
      {"ATTRIBUTEGROUP", {C("ID", "int", NN), C("NAME", "text 128", NN)}},
      {"TEMPLATE", {C("ID", "int", NN), C("NAME", "text 128"), C("REPRESENTATION", "blob")}},
      {"TEMPLATEGROUP", {C("ID", "int", NN), C("TEMPLATEID", "int", NN), C("GROUPID", "int", NN),
                         C("DISPLAYORDER", "int")}},
      {"TEMPLATEATTRIBUTE", {C("ID", "int", NN), C("TEMPLATEGROUPID", "int", NN), C("ATTRIBUTENAMEID", "int", NN),
                             C("ATTRIBUTEDESCRIPTIONID", "int", NN), C("DISPLAYORDER", "int"), C("NUMBER", "small"),
                             C("FORMULA", "text 3000"), C("ATTRTYPE", "small"), C("VAL", "text 2048"),
                             C("VARNAME", "text 50")}},
  };
  return tables;
}

// Triggers that take the next value only when the insert gives no ID.
const std::map<std::string, std::string> kIdTriggersIfNull = {
    {"TR_GEN_ATTRIBUTEDESCRIPTION_ID", "ATTRIBUTEDESCRIPTION"}, {"TR_GEN_ATTRIBUTENAME_ID", "ATTRIBUTENAME"},
    {"TR_GEN_CONCRETEVALUE_ID", "CONCRETEVALUE"}, {"TR_GEN_FILES_ID", "FILES"},
    {"TR_GEN_FILE_EXTENSION_ID", "FILE_EXTENSION"}, {"TR_GEN_FOLDER_ID", "FOLDER"},
    {"TR_GEN_FRAGMENT_ID", "FRAGMENT"}, {"TR_GEN_MODEL_ID", "MODEL"},
    {"TR_GEN_OBJECTATTRIBUTE_ID", "OBJECTATTRIBUTE"}, {"TR_GEN_OBJECTTYPE_ID", "OBJECTTYPE"},
    {"TR_GEN_OBJECT_ID", "OBJECT"}, {"TR_GEN_PACKET_ID", "PACKET"}, {"TR_GEN_PROJECTION_ID", "PROJECTION"},
    {"TR_GEN_REPRESENTATION_ID", "REPRESENTATION"}, {"TR_GEN_SPECIFICATION_ID", "SPECIFICATION"},
    {"TR_GEN_STANDARDSIZE_ID", "STANDARDSIZE"}, {"TR_GET_BASE_PARAM_ID", "BASE_PARAM"}};
// Triggers that always take the next value.
const std::map<std::string, std::string> kIdTriggersAlways = {
    {"TR_GEN_TEMPLATE_ID", "TEMPLATE"}, {"TR_GEN_ATTRIBUTEGROUP_ID", "ATTRIBUTEGROUP"},
    {"TR_GEN_TEMPLATEGROUP_ID", "TEMPLATEGROUP"}, {"TR_GEN_TEMPLATEATTRIBUTE_ID", "TEMPLATEATTRIBUTE"},
    {"TR_GEN_OBJECTPROJECTION_ID", "OBJECTPROJECTION"}, {"TR_GEN_SPECIFICATIONCOLUMN_ID", "SPECIFICATIONCOLUMN"},
    {"TR_GEN_STANDARTSIZE_FILE_ID", "STANDARTSIZE_FILE"}, {"TR_GEN_ATTRIBUTEVALUE_ID", "ATTRIBUTEVALUE"}};

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

TEST(EmptyCatalogImage, IsAFirebirdDatabaseOfTheCatalogsFormat) {
  const auto image = EmptyCatalogImage();
  ASSERT_GT(image.size(), 16384u);
  EXPECT_EQ(image.size() % 16384, 0u);

  TestCatalog catalog;
  EXPECT_EQ(std::filesystem::file_size(catalog.File()), image.size());
  const auto facts = SchemaInspectionOperation(catalog.Provider()).Facts();
  EXPECT_EQ(facts.pageSize, 16384);
  EXPECT_EQ(facts.odsMajor, 12);
  EXPECT_EQ(facts.odsMinor, 0);
  EXPECT_EQ(facts.dialect, 3);
  EXPECT_EQ(facts.characterSet, "NONE");
}

TEST(EmptyCatalogSchema, EveryTableHasItsColumnsInStoredOrder) {
  TestCatalog catalog;
  SchemaInspectionOperation schema(catalog.Provider());
  std::vector<std::string> expectedNames;
  for (const auto& [table, columns] : ExpectedTables()) {
    expectedNames.push_back(table);
    EXPECT_THAT(schema.Columns(table), ElementsAreArray(columns)) << table;
  }
  EXPECT_EQ(schema.Tables(), expectedNames);
}

TEST(EmptyCatalogSchema, KeysChecksAndIndexes) {
  TestCatalog catalog;
  SchemaInspectionOperation schema(catalog.Provider());

  std::map<std::string, SchemaInspectionOperation::Key> expectedKeys;
  for (const auto& [table, columns] : ExpectedTables()) {
    if (table == "INFO") continue;
    expectedKeys[table == "PROJECTION" ? "PK_VIEW" : "PK_" + table] = {"PRIMARY KEY", table, "ID"};
  }
  expectedKeys["PK_INFO"] = {"PRIMARY KEY", "INFO", "PARAMETER_NAME"};
  expectedKeys["UNQ_OBJECT_ATTRNAME"] = {"UNIQUE", "OBJECTATTRIBUTE", "OBJECTID,ATTRIBUTENAMEID"};
  expectedKeys["UNQ_PROJECTION_1"] = {"UNIQUE", "PROJECTION", "NAME"};
  EXPECT_EQ(schema.Keys(), expectedKeys);

  EXPECT_EQ(schema.Checks(), (std::map<std::string, std::string>{
                                 {"CHECK_FOLDER_1", "FOLDER: CHECK (ID<>ID_PARENT)"},
                                 {"CHECK_OBJECTPROJECTION_1", "OBJECTPROJECTION: CHECK (VIEW_TYPE < 3)"}}));
  EXPECT_EQ(schema.PlainIndexes(), (std::map<std::string, std::string>{
                                       {"CONCRETEVALUE_INT", "CONCRETEVALUE.INTVAL"},
                                       {"CONCRETEVALUE_DOUBLE", "CONCRETEVALUE.DOUBLEVAL"},
                                       {"CONCRETEVALUE_STR", "CONCRETEVALUE.STRVAL"},
                                       {"STANDARDSIZE_IDENTIFIER_IDX", "STANDARDSIZE.IDENTIFIER"}}));
}

TEST(EmptyCatalogSchema, ForeignKeysWithTheirRules) {
  TestCatalog catalog;
  using FK = SchemaInspectionOperation::ForeignKey;
  const std::string cascade = "CASCADE", restrict = "RESTRICT", setNull = "SET NULL";
  const std::map<std::string, FK> expected = {
      {"FK_FOLDER_1", {"FOLDER", "ID_PARENT", "FOLDER", cascade, cascade}},
      {"FK_PACKET_1", {"PACKET", "FOLDERID", "FOLDER", cascade, cascade}},
      {"FK_OBJECT_FOLDER", {"OBJECT", "FOLDERID", "FOLDER", cascade, cascade}},
      {"FK_OBJECT_2", {"OBJECT", "PACKETID", "PACKET", restrict, restrict}},
      {"FK_OBJECT_3", {"OBJECT", "REPRESENTATIONID", "REPRESENTATION", restrict, restrict}},
      {"FK_OBJECT_1", {"OBJECT", "OBJECTTYPEID", "OBJECTTYPE", cascade, setNull}},
      {"FK_OBJECT_MODEL", {"OBJECT", "MODELID", "MODEL", cascade, setNull}},
      {"INTEG_81", {"OBJECT", "TEMPLATEID", "TEMPLATE", cascade, setNull}},
      {"FK_STANDARDSIZE_1", {"STANDARDSIZE", "OBJECTID", "OBJECT", cascade, cascade}},
      {"FK_OBJECTATTRIBUTE_1", {"OBJECTATTRIBUTE", "OBJECTID", "OBJECT", cascade, cascade}},
      {"FK_OBJECTATTRIBUTE_2", {"OBJECTATTRIBUTE", "ATTRIBUTEDESCRIPTIONID", "ATTRIBUTEDESCRIPTION", restrict, restrict}},
      {"FK_OBJECTATTRIBUTE_4", {"OBJECTATTRIBUTE", "ATTRIBUTENAMEID", "ATTRIBUTENAME", restrict, restrict}},
      {"FK_OBJECTATTRIBUTE_5", {"OBJECTATTRIBUTE", "CONCRETEVALUEID", "CONCRETEVALUE", cascade, setNull}},
      {"INTEG_82", {"OBJECTATTRIBUTE", "ATTRIBUTEGROUPID", "ATTRIBUTEGROUP", cascade, setNull}},
      {"FK_OBJECTATTRIBUTE", {"ATTRIBUTEVALUE", "OBJECTATTRIBUTEID", "OBJECTATTRIBUTE", cascade, cascade}},
      {"FK_IDSTANDARTSIZE", {"ATTRIBUTEVALUE", "STANDARDSIZEID", "STANDARDSIZE", cascade, cascade}},
      {"FK_IDCONCRETEVALUE", {"ATTRIBUTEVALUE", "CONCRETEVALUEID", "CONCRETEVALUE", cascade, cascade}},
      {"FK_OBJECTPROJECTION_1", {"OBJECTPROJECTION", "FRAGMENTID", "FRAGMENT", cascade, cascade}},
      {"FK_OBJECTPROJECTION_2", {"OBJECTPROJECTION", "PROJECTIONID", "PROJECTION", cascade, cascade}},
      {"FK_OBJECTPROJECTION_3", {"OBJECTPROJECTION", "OBJECTID", "OBJECT", cascade, cascade}},
      {"FK_SPECIFICATION_0", {"SPECIFICATION", "IDOBJECT", "OBJECT", cascade, cascade}},
      {"FK_SPECIFICATIONCOLUMN_1", {"SPECIFICATIONCOLUMN", "SPECIFICATIONID", "SPECIFICATION", cascade, cascade}},
      {"FK_STANDARTSIZE_FILE_1", {"STANDARTSIZE_FILE", "STDSIZE_ID", "STANDARDSIZE", cascade, cascade}},
      {"FK_STANDARTSIZE_FILE_2", {"STANDARTSIZE_FILE", "FILES_ID", "FILES", cascade, cascade}},
      {"FK_FILES_1", {"FILES", "IDEXTENSION", "FILE_EXTENSION", cascade, setNull}},
      {"INTEG_83", {"TEMPLATEGROUP", "TEMPLATEID", "TEMPLATE", cascade, cascade}},
      {"INTEG_84", {"TEMPLATEGROUP", "GROUPID", "ATTRIBUTEGROUP", cascade, cascade}},
      {"INTEG_85", {"TEMPLATEATTRIBUTE", "TEMPLATEGROUPID", "TEMPLATEGROUP", cascade, cascade}},
      {"INTEG_86", {"TEMPLATEATTRIBUTE", "ATTRIBUTENAMEID", "ATTRIBUTENAME", cascade, cascade}},
      {"INTEG_87", {"TEMPLATEATTRIBUTE", "ATTRIBUTEDESCRIPTIONID", "ATTRIBUTEDESCRIPTION", cascade, cascade}},
  };
  EXPECT_EQ(SchemaInspectionOperation(catalog.Provider()).ForeignKeys(), expected);
}

TEST(EmptyCatalogSchema, GeneratorsStandAtTheirStartValues) {
  TestCatalog catalog;
  SchemaInspectionOperation schema(catalog.Provider());
  const std::set<std::string> names = {
      "GEN_ATTRIBUTEDESCRIPTION_ID", "GEN_ATTRIBUTENAME_ID", "GEN_CONCRETEVALUE_ID", "GEN_FILES_ID",
      "GEN_FILE_EXTENSION_ID", "GEN_FOLDER_ID", "GEN_FRAGMENT_ID", "GEN_MODEL_ID", "GEN_OBJECTATTRIBUTE_ID",
      "GEN_OBJECTIDENTIFIER_ID", "GEN_OBJECTTYPE_ID", "GEN_OBJECT_ID", "GEN_PACKET_ID", "GEN_PROJECTION_ID",
      "GEN_REPRESENTATION_ID", "GEN_SPECIFICATION_ID", "GEN_STANDARDSIZE_ID", "GEN_STANDARTSIZE_ID",
      "GET_BASE_PARAM_ID", "GEN_TEMPLATE_ID", "GEN_ATTRIBUTEGROUP_ID", "GEN_TEMPLATEGROUP_ID",
      "GEN_TEMPLATEATTRIBUTE_ID", "GEN_OBJECTPROJECTION_ID", "GEN_SPECIFICATIONCOLUMN_ID",
      "GEN_STANDARTSIZE_FILE_ID", "GEN_ATTRIBUTEVALUE_ID"};
  const auto generators = schema.Generators();
  EXPECT_EQ(std::set<std::string>(generators.begin(), generators.end()), names);
  EXPECT_EQ(generators.size(), names.size());
  const std::map<std::string, std::int64_t> moved = {
      {"GEN_PROJECTION_ID", 6}, {"GEN_REPRESENTATION_ID", 4}, {"GET_BASE_PARAM_ID", 1}};
  for (const auto& name : names) {
    const auto start = moved.find(name);
    EXPECT_EQ(schema.GeneratorValue(name), start == moved.end() ? 0 : start->second) << name;
  }
}

TEST(EmptyCatalogSchema, TriggersAreActiveOnTheirTables) {
  TestCatalog catalog;
  std::map<std::string, SchemaInspectionOperation::Trigger> expected;
  constexpr std::int32_t kBeforeInsert = 1;
  for (const auto* group : {&kIdTriggersIfNull, &kIdTriggersAlways}) {
    for (const auto& [trigger, table] : *group) expected[trigger] = {table, kBeforeInsert, true};
  }
  expected["TR_GEN_FOLDER_BOUND"] = {"FOLDER", kBeforeInsert, true};
  auto triggers = SchemaInspectionOperation(catalog.Provider()).Triggers();
  // One trigger for two events: its type code is the engine's combination,
  // checked by behaviour in StandardProjectionsCannotChange.
  ASSERT_TRUE(triggers.count("TR_PROJECTION_STD_MODIFY"));
  EXPECT_EQ(triggers["TR_PROJECTION_STD_MODIFY"].table, "PROJECTION");
  EXPECT_TRUE(triggers["TR_PROJECTION_STD_MODIFY"].active);
  triggers.erase("TR_PROJECTION_STD_MODIFY");
  EXPECT_EQ(triggers, expected);
}

TEST(EmptyCatalogSchema, IdentifierTriggersFillTheId) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  EXPECT_EQ(content.AddAttributeName(std::nullopt, L"a"), 1);
  EXPECT_EQ(content.AddAttributeName(50, L"b"), 50);  // an ID given is kept
  EXPECT_EQ(content.AddAttributeName(std::nullopt, L"c"), 2);
  EXPECT_EQ(content.AddTemplateRow(std::nullopt), 1);
  EXPECT_EQ(content.AddTemplateRow(50), 2);  // an ID given is replaced
  const std::int32_t folder = content.AddFolder(L"root", std::nullopt);
  const std::int32_t packet = content.AddPacket(folder, L"packet");
  EXPECT_EQ(folder, 1);
  EXPECT_EQ(packet, 1);
  EXPECT_EQ(content.AddTemplate(folder, packet, L"template"), 1);
  EXPECT_EQ(content.AddProjection(L"сбоку"), 7);
}

TEST(EmptyCatalogSchema, FolderBoundsNest) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::int32_t a = content.AddFolder(L"A", std::nullopt);
  EXPECT_EQ(content.FolderBounds(a), "1,2");
  const std::int32_t b = content.AddFolder(L"B", std::nullopt);
  EXPECT_EQ(content.FolderBounds(b), "3,4");
  const std::int32_t a1 = content.AddFolder(L"A1", a);
  EXPECT_EQ(content.FolderBounds(a1), "2,3");
  const std::int32_t a2 = content.AddFolder(L"A2", a);
  EXPECT_EQ(content.FolderBounds(a2), "4,5");
  EXPECT_EQ(content.FolderBounds(a), "1,6");
  EXPECT_EQ(content.FolderBounds(b), "7,8");
  EXPECT_THAT([&] { content.AddFolder(L"orphan", 12345); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("Folder not found")));
  EXPECT_THAT([&] { content.MakeFolderItsOwnParent(a); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("CHECK_FOLDER_1")));
}

TEST(EmptyCatalogSchema, StandardProjectionsCannotChange) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::string refusal = WideToCp1251(L"Изменить стандартную проекцию невозможно");
  for (std::int32_t id = 1; id <= 6; ++id) {
    EXPECT_THAT([&] { content.RenameProjection(id, L"другая"); },
                ThrowsMessage<IBPP::Exception>(HasSubstr("UNABLE_CHANGE_STD_PROJECTION")));
    EXPECT_THAT([&] { content.DeleteProjection(id); }, ThrowsMessage<IBPP::Exception>(HasSubstr(refusal)));
  }
  const std::int32_t own = content.AddProjection(L"сбоку");
  content.RenameProjection(own, L"сбоку слева");
  content.DeleteProjection(own);
  EXPECT_EQ(content.Projections().size(), 6u);
}

TEST(EmptyCatalogSchema, ExceptionsAreDeclared) {
  TestCatalog catalog;
  const auto exceptions = SchemaInspectionOperation(catalog.Provider()).Exceptions();
  ASSERT_EQ(exceptions.size(), 3u);
  EXPECT_EQ(exceptions.at("FOLDER_NOT_FOUND"), "Folder not found");
  EXPECT_EQ(Cp1251ToWide(exceptions.at("UNABLE_CHANGE_PROJECTION_VIEW")), L"Изменить вид проекции невозможно");
  EXPECT_EQ(Cp1251ToWide(exceptions.at("UNABLE_CHANGE_STD_PROJECTION")),
            L"Изменить стандартную проекцию невозможно");
}

TEST(EmptyCatalogSchema, ProceduresHaveTheirParameters) {
  TestCatalog catalog;
  SchemaInspectionOperation schema(catalog.Provider());
  EXPECT_THAT(schema.Procedures(), ElementsAre("CREATE_ATTR_VAL", "CREATE_OBJ_ATTR", "GET_ATTR_DESCR", "GET_ATTR_NAME",
                                               "GET_CONCR_VAL", "INSERT_ADDITIONALFILE"));
  EXPECT_THAT(schema.ProcedureParameters("GET_ATTR_NAME"), ElementsAre("in NAME text 128", "out ID int"));
  EXPECT_THAT(schema.ProcedureParameters("GET_ATTR_DESCR"), ElementsAre("in DESCRIPTION text 1024", "out ID int"));
  EXPECT_THAT(schema.ProcedureParameters("GET_CONCR_VAL"),
              ElementsAre("in IVAL int", "in DVAL double", "in SVAL text 2048", "out ID_CONCRVAL int"));
  EXPECT_THAT(schema.ProcedureParameters("CREATE_OBJ_ATTR"),
              ElementsAre("in ID_OBJ int", "in ATTR_NUM int", "in OLD_ATTR_NUM int", "in ATTR_TYPE small",
                          "in NAME text 128", "in DESCRIPTION text 1024", "in MEASURE text 50", "in VARNAME text 50",
                          "in FORMULA text 512", "in IVAL int", "in DVAL double", "in SVAL text 1024", "out ID int"));
  EXPECT_THAT(schema.ProcedureParameters("CREATE_ATTR_VAL"),
              ElementsAre("in ATTR_NUM int", "in STDSIZE_ID int", "in IVAL int", "in DVAL double", "in SVAL text 1024"));
  EXPECT_THAT(schema.ProcedureParameters("INSERT_ADDITIONALFILE"),
              ElementsAre("in NEWFILENAME text 1024", "in FILEEXTENSION text 80", "in FILEBLOB blob",
                          "in NEWFILEDIGEST text 32", "in IDSTANDARTSIZE int", "out IDFILE int"));
}

TEST(EmptyCatalogProcedures, DictionariesHoldOneRowPerText) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::int32_t width = content.GetAttributeNameId(L"Ширина");
  EXPECT_EQ(content.GetAttributeNameId(L"Ширина"), width);
  EXPECT_NE(content.GetAttributeNameId(L"Ширина "), width);  // exactly the text
  EXPECT_NE(content.GetAttributeNameId(L"ширина"), width);
  const std::int32_t description = content.GetAttributeDescriptionId(L"Ширина сечения, мм");
  EXPECT_EQ(content.GetAttributeDescriptionId(L"Ширина сечения, мм"), description);
}

TEST(EmptyCatalogProcedures, ConcreteValuesAreNeverShared) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  EXPECT_EQ(content.GetConcreteValue(std::nullopt, std::nullopt, std::nullopt), std::nullopt);
  EXPECT_EQ(content.CountConcreteValues(), 0);
  const auto first = content.GetConcreteValue(5, std::nullopt, std::nullopt);
  const auto second = content.GetConcreteValue(5, std::nullopt, std::nullopt);
  ASSERT_TRUE(first && second);
  EXPECT_NE(*first, *second);
  EXPECT_TRUE(content.GetConcreteValue(std::nullopt, 1.5, std::nullopt));
  EXPECT_TRUE(content.GetConcreteValue(std::nullopt, std::nullopt, L"текст"));
  EXPECT_EQ(content.CountConcreteValues(), 4);
}

TEST(EmptyCatalogProcedures, AttributesAndSizeValues) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::int32_t folder = content.AddFolder(L"root", std::nullopt);
  const std::int32_t templateId = content.AddTemplate(folder, content.AddPacket(folder, L"p"), L"Отвод");
  const std::int32_t size = content.AddStandardSize(templateId, L"100");

  const std::int32_t width = content.CreateObjectAttribute(templateId, 21, L"Ширина", L"Ширина, мм", 100);
  const std::int32_t height = content.CreateObjectAttribute(templateId, 22, L"Высота", L"Высота, мм", std::nullopt);
  EXPECT_TRUE(content.AttributeValueId(width).has_value());
  EXPECT_EQ(content.AttributeValueId(height), std::nullopt);
  EXPECT_THAT([&] { content.CreateObjectAttribute(templateId, 23, L"Ширина", L"другое", std::nullopt); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("UNQ_OBJECT_ATTRNAME")));

  content.SetSizeValue(21, size, 150);
  EXPECT_THAT(content.SizeValues(size), ElementsAre(150));
  const std::int32_t valuesBefore = content.CountConcreteValues();
  content.SetSizeValue(21, size, 175);  // the row is repointed, the old value stays
  EXPECT_THAT(content.SizeValues(size), ElementsAre(175));
  EXPECT_EQ(content.CountConcreteValues(), valuesBefore + 1);
}

TEST(EmptyCatalogProcedures, AdditionalFilesAreSharedByDigest) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::int32_t folder = content.AddFolder(L"root", std::nullopt);
  const std::int32_t templateId = content.AddTemplate(folder, content.AddPacket(folder, L"p"), L"Отвод");
  const std::int32_t first = content.AddStandardSize(templateId, L"100");
  const std::int32_t second = content.AddStandardSize(templateId, L"200");
  const unsigned char bytes[] = {'%', 'P', 'D', 'F'};
  const std::string digest(32, 'a');
  const std::int32_t file = content.InsertAdditionalFile(L"паспорт.pdf", L"pdf", bytes, digest, first);
  EXPECT_EQ(content.InsertAdditionalFile(L"паспорт.pdf", L"pdf", bytes, digest, second), file);
  EXPECT_EQ(content.FileCounts(), "1,1,2");
}

TEST(EmptyCatalogRules, ChecksAndForeignKeysAct) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  const std::int32_t folder = content.AddFolder(L"root", std::nullopt);
  const std::int32_t packet = content.AddPacket(folder, L"p");
  const std::int32_t templateId = content.AddTemplate(folder, packet, L"Отвод");
  content.AddStandardSize(templateId, L"100");
  const std::int32_t fragment = content.AddFragment();
  content.AddObjectProjection(templateId, 1, fragment, 2);
  EXPECT_THAT([&] { content.AddObjectProjection(templateId, 1, fragment, 3); },
              ThrowsMessage<IBPP::Exception>(HasSubstr("CHECK_OBJECTPROJECTION_1")));
  EXPECT_THAT([&] { content.DeletePacket(packet); }, ThrowsMessage<IBPP::Exception>(HasSubstr("FK_OBJECT_2")));

  content.DeleteFolder(folder);  // takes the packet, the template and its size with it
  EXPECT_EQ(content.CountTemplates(), 0);
  EXPECT_EQ(content.CountStandardSizes(), 0);
}

TEST(EmptyCatalogRows, FirstRowsArePresent) {
  TestCatalog catalog;
  CatalogContentOperation content(catalog.Provider());
  EXPECT_THAT(content.BaseParams(), ElementsAre(L"1: VERSION||1"));
  EXPECT_THAT(content.InfoRows(), ElementsAre(L"version|11"));
  EXPECT_THAT(content.ObjectTypes(), ElementsAre(L"1: SEGMENT", L"2: VENTBOX", L"3: ELEMENT"));
  EXPECT_THAT(content.Projections(), ElementsAre(L"1: сверху", L"2: спереди", L"3: сзади", L"4: слева",
                                                 L"5: справа", L"6: снизу"));
}

TEST(EmptyCatalogRows, FirstRepresentationIsAStoredPropertiesDocument) {
  TestCatalog catalog;
  const auto representations = CatalogContentOperation(catalog.Provider()).Representations();
  ASSERT_EQ(representations.size(), 1u);
  const auto& first = representations.front();
  EXPECT_EQ(first.id, 4);

  const std::vector<unsigned char> document = Unpack(first.stored);
  ASSERT_FALSE(document.empty()) << "not a length and an LZO1Y stream";
  EXPECT_EQ(first.digest, Md5Hex(document));

  std::ifstream source(LX_REPRESENTATION_DOCUMENT, std::ios::binary);
  const std::vector<unsigned char> expected((std::istreambuf_iterator<char>(source)), std::istreambuf_iterator<char>());
  EXPECT_EQ(document, expected) << "schema/representation.xml and the row in catalog.sql differ";

  pugi::xml_document xml;
  ASSERT_TRUE(xml.load_buffer(document.data(), document.size(), pugi::parse_default, pugi::encoding_utf8));
  const pugi::xml_node properties = xml.child("properties");
  ASSERT_TRUE(properties);
  std::set<std::string> kinds;
  for (const pugi::xml_node group : properties.children("group")) {
    EXPECT_FALSE(std::string(group.attribute("name").value()).empty());
    for (const pugi::xml_node element : group.children()) {
      kinds.insert(element.name());
      EXPECT_TRUE(element.attribute("title")) << element.name();
      EXPECT_TRUE(element.attribute("param")) << element.name();
      if (std::string(element.name()) == "combo") {
        EXPECT_THAT(element.attribute("values").value(), HasSubstr("|"));
      }
    }
  }
  EXPECT_EQ(kinds, (std::set<std::string>{"check", "combo", "edit"}));
}

}  // namespace
