#include "CatalogContentOperation.h"

#include "storage/BlobTransfer.h"
#include "storage/DbText.h"

#include "NullableParameters.h"

#include <stdexcept>

namespace {

std::int32_t Int(const IBPP::Statement& statement, int column) {
  std::int32_t value = 0;
  statement.Get(column, value);
  return value;
}

std::wstring WideText(const IBPP::Statement& statement, int column) {
  std::wstring text;
  GetDbText(statement, column, text);
  return text;
}

std::int32_t ReturnedId(const IBPP::Statement& statement) {
  std::int32_t id = 0;
  statement.Get("ID", id);
  return id;
}

std::int32_t SingleInt(IBPP::Statement& statement) {
  if (!statement.Fetch()) throw std::runtime_error("the query gave no row");
  return Int(statement, 1);
}

// Rows of "id: text" from a two-column query.
std::vector<std::wstring> IdTextRows(IBPP::Statement& statement) {
  std::vector<std::wstring> rows;
  while (statement.Fetch()) rows.push_back(std::to_wstring(Int(statement, 1)) + L": " + WideText(statement, 2));
  return rows;
}

}  // namespace

std::vector<std::wstring> CatalogContentOperation::BaseParams() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT ID, NAME, TAG, VAL FROM BASE_PARAM ORDER BY ID");
  std::vector<std::wstring> rows;
  while (statement.Fetch()) {
    rows.push_back(std::to_wstring(Int(statement, 1)) + L": " + WideText(statement, 2) + L"|" +
                   WideText(statement, 3) + L"|" + WideText(statement, 4));
  }
  return rows;
}

std::vector<std::wstring> CatalogContentOperation::InfoRows() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT PARAMETER_NAME, PARAMETER_VALUE FROM INFO ORDER BY PARAMETER_NAME");
  std::vector<std::wstring> rows;
  while (statement.Fetch()) rows.push_back(WideText(statement, 1) + L"|" + WideText(statement, 2));
  return rows;
}

std::vector<std::wstring> CatalogContentOperation::ObjectTypes() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT ID, SVAL FROM OBJECTTYPE ORDER BY ID");
  return IdTextRows(statement);
}

std::vector<std::wstring> CatalogContentOperation::Projections() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT ID, NAME FROM PROJECTION ORDER BY ID");
  return IdTextRows(statement);
}

std::vector<CatalogContentOperation::Representation> CatalogContentOperation::Representations() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT ID, DIGEST, DATA FROM REPRESENTATION ORDER BY ID");
  std::vector<Representation> rows;
  while (statement.Fetch()) {
    Representation row;
    row.id = Int(statement, 1);
    statement.Get(2, row.digest);
    IBPP::Blob data = NewBlob();
    statement.Get(3, data);
    row.stored = ReadWholeBlob(data);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::int32_t CatalogContentOperation::AddAttributeName(std::optional<std::int32_t> id, const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO ATTRIBUTENAME (ID, NAME) VALUES (?, ?) RETURNING ID");
  SetOrNull(statement, 1, id);
  SetDbText(statement, 2, name);
  statement.Execute();
  return ReturnedId(statement);
}

std::int32_t CatalogContentOperation::AddTemplateRow(std::optional<std::int32_t> id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO TEMPLATE (ID, NAME) VALUES (?, 'template') RETURNING ID");
  SetOrNull(statement, 1, id);
  statement.Execute();
  return ReturnedId(statement);
}

std::int32_t CatalogContentOperation::AddFolder(const std::wstring& name, std::optional<std::int32_t> parent) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO FOLDER (NAME, ID_PARENT) VALUES (?, ?) RETURNING ID");
  SetDbText(statement, 1, name);
  SetOrNull(statement, 2, parent);
  statement.Execute();
  return ReturnedId(statement);
}

std::string CatalogContentOperation::FolderBounds(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT LEFT_BOUND, RIGHT_BOUND FROM FOLDER WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  if (!statement.Fetch()) throw std::runtime_error("no such folder");
  return std::to_string(Int(statement, 1)) + "," + std::to_string(Int(statement, 2));
}

void CatalogContentOperation::MakeFolderItsOwnParent(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("UPDATE FOLDER SET ID_PARENT = ID WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
}

void CatalogContentOperation::DeleteFolder(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("DELETE FROM FOLDER WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
}

std::int32_t CatalogContentOperation::AddPacket(std::int32_t folder, const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO PACKET (FOLDERID, PACKETID) VALUES (?, ?) RETURNING ID");
  statement.Set(1, folder);
  SetDbText(statement, 2, name);
  statement.Execute();
  return ReturnedId(statement);
}

void CatalogContentOperation::DeletePacket(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("DELETE FROM PACKET WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
}

std::int32_t CatalogContentOperation::AddTemplate(std::int32_t folder, std::int32_t packet, const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare(
      "INSERT INTO OBJECT (REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) VALUES (4, 1, ?, ?, ?) "
      "RETURNING ID");
  statement.Set(1, folder);
  statement.Set(2, packet);
  SetDbText(statement, 3, name);
  statement.Execute();
  return ReturnedId(statement);
}

std::int32_t CatalogContentOperation::AddStandardSize(std::int32_t templateId, const std::wstring& identifier) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO STANDARDSIZE (OBJECTID, IDENTIFIER) VALUES (?, ?) RETURNING ID");
  statement.Set(1, templateId);
  SetDbText(statement, 2, identifier);
  statement.Execute();
  return ReturnedId(statement);
}

std::int32_t CatalogContentOperation::CountTemplates() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT COUNT(*) FROM OBJECT");
  return SingleInt(statement);
}

std::int32_t CatalogContentOperation::CountStandardSizes() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT COUNT(*) FROM STANDARDSIZE");
  return SingleInt(statement);
}

std::int32_t CatalogContentOperation::AddProjection(const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO PROJECTION (NAME) VALUES (?) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Execute();
  return ReturnedId(statement);
}

void CatalogContentOperation::RenameProjection(std::int32_t id, const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("UPDATE PROJECTION SET NAME = ? WHERE ID = ?");
  SetDbText(statement, 1, name);
  statement.Set(2, id);
  statement.Execute();
}

void CatalogContentOperation::DeleteProjection(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("DELETE FROM PROJECTION WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
}

std::int32_t CatalogContentOperation::AddFragment() {
  const unsigned char thumbnailBytes[] = {0x42};
  IBPP::Blob thumbnail = NewBlob();
  WriteWholeBlob(thumbnail, thumbnailBytes);
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO FRAGMENT (THUMBNAIL) VALUES (?) RETURNING ID");
  statement.Set(1, thumbnail);
  statement.Execute();
  return ReturnedId(statement);
}

void CatalogContentOperation::AddObjectProjection(std::int32_t templateId, std::int32_t projection,
                                                  std::int32_t fragment, std::int32_t viewType) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (?, ?, ?, ?)");
  statement.Set(1, projection);
  statement.Set(2, fragment);
  statement.Set(3, templateId);
  statement.Set(4, viewType);
  statement.Execute();
}

std::int32_t CatalogContentOperation::GetAttributeNameId(const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE GET_ATTR_NAME(?)");
  SetDbText(statement, 1, name);
  statement.Execute();
  return ReturnedId(statement);
}

std::int32_t CatalogContentOperation::GetAttributeDescriptionId(const std::wstring& description) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE GET_ATTR_DESCR(?)");
  SetDbText(statement, 1, description);
  statement.Execute();
  return ReturnedId(statement);
}

std::optional<std::int32_t> CatalogContentOperation::GetConcreteValue(std::optional<std::int32_t> integer,
                                                                      std::optional<double> real,
                                                                      std::optional<std::wstring> text) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE GET_CONCR_VAL(?, ?, ?)");
  SetOrNull(statement, 1, integer);
  SetOrNull(statement, 2, real);
  SetOrNull(statement, 3, text);
  statement.Execute();
  std::int32_t id = 0;
  if (statement.Get("ID_CONCRVAL", id)) return std::nullopt;
  return id;
}

std::int32_t CatalogContentOperation::CountConcreteValues() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT COUNT(*) FROM CONCRETEVALUE");
  return SingleInt(statement);
}

std::int32_t CatalogContentOperation::CreateObjectAttribute(std::int32_t templateId, std::int32_t number,
                                                            const std::wstring& name, const std::wstring& description,
                                                            std::optional<std::int32_t> integer) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE CREATE_OBJ_ATTR(?, ?, 0, 1, ?, ?, 'mm', '', '', ?, NULL, NULL)");
  statement.Set(1, templateId);
  statement.Set(2, number);
  SetDbText(statement, 3, name);
  SetDbText(statement, 4, description);
  SetOrNull(statement, 5, integer);
  statement.Execute();
  return ReturnedId(statement);
}

std::optional<std::int32_t> CatalogContentOperation::AttributeValueId(std::int32_t attribute) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT CONCRETEVALUEID FROM OBJECTATTRIBUTE WHERE ID = ?");
  statement.Set(1, attribute);
  statement.Execute();
  if (!statement.Fetch()) throw std::runtime_error("no such attribute");
  std::int32_t id = 0;
  if (statement.Get(1, id)) return std::nullopt;
  return id;
}

void CatalogContentOperation::SetSizeValue(std::int32_t number, std::int32_t size, std::int32_t value) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE CREATE_ATTR_VAL(?, ?, ?, NULL, NULL)");
  statement.Set(1, number);
  statement.Set(2, size);
  statement.Set(3, value);
  statement.Execute();
}

std::vector<std::int32_t> CatalogContentOperation::SizeValues(std::int32_t size) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare(
      "SELECT CV.INTVAL FROM ATTRIBUTEVALUE AV JOIN CONCRETEVALUE CV ON CV.ID = AV.CONCRETEVALUEID "
      "WHERE AV.STANDARDSIZEID = ? ORDER BY AV.ID");
  statement.Set(1, size);
  statement.Execute();
  std::vector<std::int32_t> values;
  while (statement.Fetch()) values.push_back(Int(statement, 1));
  return values;
}

std::int32_t CatalogContentOperation::InsertAdditionalFile(const std::wstring& name, const std::wstring& extension,
                                                           std::span<const unsigned char> bytes,
                                                           const std::string& digest, std::int32_t size) {
  IBPP::Blob file = NewBlob();
  WriteWholeBlob(file, bytes);
  IBPP::Statement statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE INSERT_ADDITIONALFILE(?, ?, ?, ?, ?)");
  SetDbText(statement, 1, name);
  SetDbText(statement, 2, extension);
  statement.Set(3, file);
  statement.Set(4, std::string_view(digest));
  statement.Set(5, size);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get("IDFILE", id);
  return id;
}

std::string CatalogContentOperation::FileCounts() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT (SELECT COUNT(*) FROM FILES), (SELECT COUNT(*) FROM FILE_EXTENSION), "
      "(SELECT COUNT(*) FROM STANDARTSIZE_FILE) FROM RDB$DATABASE");
  if (!statement.Fetch()) throw std::runtime_error("no counts");
  return std::to_string(Int(statement, 1)) + "," + std::to_string(Int(statement, 2)) + "," +
         std::to_string(Int(statement, 3));
}
