#include "CatalogFixture.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "platform/TextCodec.h"

namespace lxtest {
namespace {

std::wstring N(std::int32_t number) { return std::to_wstring(number); }

std::wstring Environment(const char* name, const wchar_t* fallback = L"") {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? std::wstring(fallback) : Utf8ToWide(value);
}

bool ThroughServer() { return !Environment("LX_TEST_SERVER").empty(); }

}  // namespace

std::filesystem::path Path(const std::wstring& path) { return WideToUtf8(path); }

std::wstring Quoted(const std::wstring& text) {
  std::wstring quoted = L"'";
  for (wchar_t ch : text) {
    quoted += ch;
    if (ch == L'\'') quoted += ch;
  }
  return quoted + L"'";
}

Connection Connection::FromEnvironment() {
  return Connection{Environment("LX_TEST_SERVER"), Environment("LX_TEST_USER", L"SYSDBA"),
                    Environment("LX_TEST_PASSWORD", L"masterkey")};
}

CatalogFixture::CatalogFixture() : connection_(Connection::FromEnvironment()) {
  static std::atomic<int> pools{0};
  const std::wstring poolName = L"CatalogTest" + std::to_wstring(getpid()) + L"-" + std::to_wstring(pools++);
  pool_ = lxAddLibraryProviderPool(poolName.c_str(), L"/lib/catalog-test.ulb");
  database_ = NewCatalogFile("catalog.fdb");
  sql_ = std::make_unique<CatalogSql>(connection_.server, database_, connection_.user, connection_.password);
  provider_ = Attach(database_);
}

CatalogFixture::~CatalogFixture() {
  lxDeleteProviderPool(pool_);
  if (ThroughServer()) {
    std::error_code ignored;
    std::filesystem::remove(WideToUtf8(database_), ignored);
  }
}

std::wstring CatalogFixture::NewCatalogFile(const std::string& name) {
  static std::atomic<int> files{0};
  std::filesystem::path file = folder_.path() / name;
  if (ThroughServer()) {
    file = std::filesystem::path(WideToUtf8(Environment("LX_TEST_DB_DIR"))) /
           (std::to_string(getpid()) + "-" + std::to_string(files++) + "-" + name);
  }
  const std::wstring path = Utf8ToWide(file.string());
  if (!lxCreateEmptyFDB(path.c_str())) ADD_FAILURE() << "lxCreateEmptyFDB failed for " << file;
  return path;
}

LxDataProvider* CatalogFixture::Attach(const std::wstring& file) {
  return pool_AddProvider(pool_, connection_.server.c_str(), file.c_str(), connection_.user.c_str(),
                          connection_.password.c_str());
}


void TableFixture::SetUp() {
  ASSERT_NE(provider_, nullptr);
  packet_ = provider_AddPacket(provider_, kPacket);
  ASSERT_NE(packet_, nullptr);
  root_ = packet_GetRootFolder(packet_);
  folder_ = folder_AddChildFolder(root_, kFolder);
  ASSERT_NE(folder_, nullptr);
  table_ = folder_GetTable(folder_);
  ASSERT_NE(table_, nullptr);
  packetId_ = Sql().Int(L"SELECT ID FROM PACKET WHERE PACKETID = " + Quoted(kPacket));
  folderId_ = FolderId(kFolder);
}

std::wstring TableFixture::TemplateRow(std::int32_t id, const std::wstring& name, std::int32_t folderId,
                                         std::int32_t objectType, std::int32_t representation,
                                         const std::wstring& model) const {
  return L"INSERT INTO OBJECT (ID, NAME, MODELID, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID) VALUES (" +
         N(id) + L", " + Quoted(name) + L", " + model + L", " + N(objectType) + L", " + N(packetId_) + L", " +
         N(folderId) + L", " + N(representation) + L")";
}

std::wstring TableFixture::SizeRow(std::int32_t id, std::int32_t templateId, const std::wstring& identifier) {
  return L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (" + N(id) + L", " + N(templateId) + L", " +
         Quoted(identifier) + L")";
}

std::wstring TableFixture::AttributeRowSql(std::int32_t templateId, const AttributeRow& row) {
  return L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + N(templateId) + L", " + N(row.number) + L", " + N(row.oldNumber) +
         L", " + N(row.type) + L", " + Quoted(row.name) + L", " + Quoted(row.description) + L", " +
         Quoted(row.measure) + L", " + Quoted(row.varName) + L", " + Quoted(row.formula) + L", " + row.values + L")";
}

std::wstring TableFixture::SizeValueSql(std::int32_t number, std::int32_t sizeId, const std::wstring& values) {
  return L"EXECUTE PROCEDURE CREATE_ATTR_VAL(" + N(number) + L", " + N(sizeId) + L", " + values + L")";
}

std::int32_t TableFixture::LayNuts(const AttributeRow& column, const std::wstring& ownValue) {
  EXPECT_NE(folder_AddChildFolder(root_, L"Гайки"), nullptr);
  const std::int32_t id = FolderId(L"Гайки");
  Sql().Execute({TemplateRow(900, L"Гайка", id), SizeRow(950, 900, L"Г1"), AttributeRowSql(900, column)});
  if (!ownValue.empty()) Sql().Execute(SizeValueSql(column.number, 950, ownValue));
  return id;
}

Texts TableFixture::StoredTemplateNames(std::int32_t folderId) {
  return Sql().Texts(L"SELECT NAME FROM OBJECT WHERE FOLDERID = " + N(folderId) + L" ORDER BY ID");
}

void TableFixture::ReloadAndWalk() {
  ASSERT_TRUE(Reload());
  packet_ = provider_GetPacketByName(provider_, kPacket);
  ASSERT_NE(packet_, nullptr);
  root_ = packet_GetRootFolder(packet_);
  folder_ = ChildNamed(root_, kFolder);
  ASSERT_NE(folder_, nullptr);
  table_ = folder_GetTable(folder_);
  ASSERT_NE(table_, nullptr);
}

LxFolder* CatalogFixture::ChildNamed(LxFolder* parent, const std::wstring& name) {
  for (int32_t i = 0; i < folder_GetChildFolderCount(parent); ++i) {
    LxFolder* child = folder_GetChildFolder(parent, i);
    if (name == folder_GetName(child)) return child;
  }
  ADD_FAILURE() << "no child folder named " << ::testing::PrintToString(name);
  return nullptr;
}

LxAttribute* TableFixture::ColumnOf(LxFolderTable* table, const std::wstring& name) {
  for (int32_t i = 0; i < table_GetAttributeCount(table); ++i) {
    LxAttribute* attribute = table_GetAttribute(table, i);
    if (name == attribute_GetName(attribute)) return attribute;
  }
  return nullptr;
}

std::vector<std::wstring> TableFixture::ColumnNames(LxFolderTable* table) {
  std::vector<std::wstring> names;
  for (int32_t i = 0; i < table_GetAttributeCount(table); ++i) names.push_back(attribute_GetName(table_GetAttribute(table, i)));
  return names;
}

std::vector<std::wstring> TableFixture::SizeIds(LxFolderTable* table) {
  std::vector<std::wstring> ids;
  for (int32_t i = 0; i < table_GetStdSizeCount(table); ++i) ids.push_back(stdsize_GetID(table_GetStdSize(table, i)));
  return ids;
}

std::vector<std::wstring> TableFixture::RecordNames(LxStdSize* size) {
  std::vector<std::wstring> names;
  for (int32_t i = 0; i < stdsize_GetAttributeCount(size); ++i) names.push_back(stdsize_GetAttributeName(size, i));
  return names;
}

std::wstring TableFixture::Shown(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format) {
  ValueView view{};
  return stdsize_GetValue(size, attribute, format, &view) ? Described(view) : L"-";
}

std::wstring TableFixture::Described(const ValueView& view) {
  std::wostringstream text;
  switch (view.index) {
    case LX_VALUE_INT: text << L"i:" << view.payload.integer; break;
    case LX_VALUE_DOUBLE: text << L"d:" << view.payload.number; break;
    case LX_VALUE_STRING:
      if (view.payload.text == nullptr) return L"s:<null>";
      text << L"s:" << std::wstring(view.payload.text, view.length);
      if (view.payload.text[view.length] != L'\0') text << L"<unterminated>";
      return text.str();
    case LX_VALUE_EMPTY: return view.payload.text == nullptr && view.length == 0 ? L"e" : L"e<not cleared>";
    default: text << L"?" << static_cast<int>(view.index); break;
  }
  if (view.length != 0) text << L"<length " << view.length << L">";
  return text.str();
}

std::int32_t CatalogFixture::FolderId(const std::wstring& name) {
  return Sql().Int(L"SELECT ID FROM FOLDER WHERE NAME = " + Quoted(name));
}

std::vector<std::wstring> TableFixture::Stored(std::int32_t folderId, std::int32_t number,
                                                 const std::wstring& expression) {
  return Sql().Texts(L"SELECT COALESCE(CAST(" + expression +
                     L" AS VARCHAR(1024)), '<null>') FROM OBJECTATTRIBUTE oa JOIN OBJECT o ON o.ID = oa.OBJECTID "
                     L"LEFT JOIN ATTRIBUTENAME an ON an.ID = oa.ATTRIBUTENAMEID LEFT JOIN ATTRIBUTEDESCRIPTION ad ON "
                     L"ad.ID = oa.ATTRIBUTEDESCRIPTIONID WHERE o.FOLDERID = " +
                     N(folderId) + L" AND oa.NUMBER = " + N(number) + L" ORDER BY o.ID");
}

Texts TableFixture::StoredColumns(const std::wstring& condition) {
  return Sql().Texts(L"SELECT oa.NUMBER || '|' || oa.OLD_NUMBER || '|' || oa.ATTRTYPE || '|' || an.NAME || '|' || "
                     L"ad.DESCRIPTION || '|' || COALESCE(oa.MEASURE, '') || '|' || COALESCE(oa.VARNAME, '') || '|' || "
                     L"COALESCE(oa.FORMULA, '') FROM OBJECTATTRIBUTE oa JOIN OBJECT o ON o.ID = oa.OBJECTID JOIN "
                     L"ATTRIBUTENAME an ON an.ID = oa.ATTRIBUTENAMEID JOIN ATTRIBUTEDESCRIPTION ad ON ad.ID = "
                     L"oa.ATTRIBUTEDESCRIPTIONID WHERE " +
                     condition + L" ORDER BY oa.OBJECTID, oa.NUMBER");
}

std::vector<std::wstring> TableFixture::StoredSizeValues(std::int32_t folderId, std::int32_t number) {
  return Sql().Texts(
      L"SELECT sz.IDENTIFIER || '=' || COALESCE(CAST(cv.INTVAL AS VARCHAR(20)), '') || '|' || "
      L"COALESCE(CAST(CAST(cv.DOUBLEVAL AS NUMERIC(18, 3)) AS VARCHAR(30)), '') || '|' || COALESCE(cv.STRVAL, '') "
      L"FROM ATTRIBUTEVALUE av JOIN OBJECTATTRIBUTE oa ON oa.ID = av.OBJECTATTRIBUTEID JOIN OBJECT o ON o.ID = "
      L"oa.OBJECTID JOIN STANDARDSIZE sz ON sz.ID = av.STANDARDSIZEID JOIN CONCRETEVALUE cv ON cv.ID = "
      L"av.CONCRETEVALUEID WHERE o.FOLDERID = " +
      N(folderId) + L" AND oa.NUMBER = " + N(number) + L" ORDER BY sz.IDENTIFIER");
}

}  // namespace lxtest
