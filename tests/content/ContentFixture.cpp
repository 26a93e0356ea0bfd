#include "ContentFixture.h"

#include <sstream>

namespace lxtest {
namespace {

std::wstring Quoted(const std::wstring& text) {
  std::wstring quoted = L"'";
  for (wchar_t ch : text) {
    quoted += ch;
    if (ch == L'\'') quoted += ch;
  }
  return quoted + L"'";
}

std::wstring N(std::int32_t number) { return std::to_wstring(number); }

}  // namespace

void ContentFixture::SetUp() {
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

std::wstring ContentFixture::TemplateRow(std::int32_t id, const std::wstring& name, std::int32_t folderId,
                                         std::int32_t objectType, std::int32_t representation,
                                         const std::wstring& model) const {
  return L"INSERT INTO OBJECT (ID, NAME, MODELID, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID) VALUES (" +
         N(id) + L", " + Quoted(name) + L", " + model + L", " + N(objectType) + L", " + N(packetId_) + L", " +
         N(folderId) + L", " + N(representation) + L")";
}

std::wstring ContentFixture::SizeRow(std::int32_t id, std::int32_t templateId, const std::wstring& identifier) {
  return L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (" + N(id) + L", " + N(templateId) + L", " +
         Quoted(identifier) + L")";
}

std::wstring ContentFixture::AttributeRowSql(std::int32_t templateId, const AttributeRow& row) {
  return L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + N(templateId) + L", " + N(row.number) + L", " + N(row.oldNumber) +
         L", " + N(row.type) + L", " + Quoted(row.name) + L", " + Quoted(row.description) + L", " +
         Quoted(row.measure) + L", " + Quoted(row.varName) + L", " + Quoted(row.formula) + L", " + row.values + L")";
}

std::wstring ContentFixture::SizeValueSql(std::int32_t number, std::int32_t sizeId, const std::wstring& values) {
  return L"EXECUTE PROCEDURE CREATE_ATTR_VAL(" + N(number) + L", " + N(sizeId) + L", " + values + L")";
}

void ContentFixture::ReloadAndWalk() {
  ASSERT_TRUE(Reload());
  packet_ = provider_GetPacketByName(provider_, kPacket);
  ASSERT_NE(packet_, nullptr);
  root_ = packet_GetRootFolder(packet_);
  folder_ = ChildNamed(root_, kFolder);
  ASSERT_NE(folder_, nullptr);
  table_ = folder_GetTable(folder_);
  ASSERT_NE(table_, nullptr);
}

LxFolder* ContentFixture::ChildNamed(LxFolder* parent, const std::wstring& name) {
  for (int32_t i = 0; i < folder_GetChildFolderCount(parent); ++i) {
    LxFolder* child = folder_GetChildFolder(parent, i);
    if (name == folder_GetName(child)) return child;
  }
  ADD_FAILURE() << "no child folder named " << ::testing::PrintToString(name);
  return nullptr;
}

LxAttribute* ContentFixture::ColumnOf(LxFolderTable* table, const std::wstring& name) {
  for (int32_t i = 0; i < table_GetAttributeCount(table); ++i) {
    LxAttribute* attribute = table_GetAttribute(table, i);
    if (name == attribute_GetName(attribute)) return attribute;
  }
  return nullptr;
}

std::vector<std::wstring> ContentFixture::ColumnNames(LxFolderTable* table) {
  std::vector<std::wstring> names;
  for (int32_t i = 0; i < table_GetAttributeCount(table); ++i) names.push_back(attribute_GetName(table_GetAttribute(table, i)));
  return names;
}

std::vector<std::wstring> ContentFixture::SizeIds(LxFolderTable* table) {
  std::vector<std::wstring> ids;
  for (int32_t i = 0; i < table_GetStdSizeCount(table); ++i) ids.push_back(stdsize_GetID(table_GetStdSize(table, i)));
  return ids;
}

std::vector<std::wstring> ContentFixture::RecordNames(LxStdSize* size) {
  std::vector<std::wstring> names;
  for (int32_t i = 0; i < stdsize_GetAttributeCount(size); ++i) names.push_back(stdsize_GetAttributeName(size, i));
  return names;
}

std::wstring ContentFixture::Shown(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format) {
  ValueView view{};
  if (!stdsize_GetValue(size, attribute, format, &view)) return L"-";
  std::wostringstream text;
  switch (view.index) {
    case LX_VALUE_INT: text << L"i:" << view.payload.integer; break;
    case LX_VALUE_DOUBLE: text << L"d:" << view.payload.number; break;
    case LX_VALUE_STRING: text << L"s:" << std::wstring(view.payload.text, view.length); break;
    case LX_VALUE_EMPTY: text << L"e"; break;
    default: text << L"?" << static_cast<int>(view.index); break;
  }
  return text.str();
}

std::int32_t ContentFixture::FolderId(const std::wstring& name) {
  return Sql().Int(L"SELECT ID FROM FOLDER WHERE NAME = " + Quoted(name));
}

std::int32_t ContentFixture::SizeId(const std::wstring& identifier) {
  return Sql().Int(L"SELECT ID FROM STANDARDSIZE WHERE IDENTIFIER = " + Quoted(identifier));
}

std::vector<std::wstring> ContentFixture::Stored(std::int32_t folderId, std::int32_t number,
                                                 const std::wstring& expression) {
  return Sql().Texts(L"SELECT COALESCE(CAST(" + expression +
                     L" AS VARCHAR(1024)), '<null>') FROM OBJECTATTRIBUTE oa JOIN OBJECT o ON o.ID = oa.OBJECTID "
                     L"LEFT JOIN ATTRIBUTENAME an ON an.ID = oa.ATTRIBUTENAMEID LEFT JOIN ATTRIBUTEDESCRIPTION ad ON "
                     L"ad.ID = oa.ATTRIBUTEDESCRIPTIONID WHERE o.FOLDERID = " +
                     N(folderId) + L" AND oa.NUMBER = " + N(number) + L" ORDER BY o.ID");
}

std::vector<std::wstring> ContentFixture::StoredSizeValues(std::int32_t folderId, std::int32_t number) {
  return Sql().Texts(
      L"SELECT sz.IDENTIFIER || '=' || COALESCE(CAST(cv.INTVAL AS VARCHAR(20)), '') || '|' || "
      L"COALESCE(CAST(CAST(cv.DOUBLEVAL AS NUMERIC(18, 3)) AS VARCHAR(30)), '') || '|' || COALESCE(cv.STRVAL, '') "
      L"FROM ATTRIBUTEVALUE av JOIN OBJECTATTRIBUTE oa ON oa.ID = av.OBJECTATTRIBUTEID JOIN OBJECT o ON o.ID = "
      L"oa.OBJECTID JOIN STANDARDSIZE sz ON sz.ID = av.STANDARDSIZEID JOIN CONCRETEVALUE cv ON cv.ID = "
      L"av.CONCRETEVALUEID WHERE o.FOLDERID = " +
      N(folderId) + L" AND oa.NUMBER = " + N(number) + L" ORDER BY sz.IDENTIFIER");
}

}  // namespace lxtest
