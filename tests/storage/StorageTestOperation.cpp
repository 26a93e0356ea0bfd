#include "StorageTestOperation.h"

#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"

#include "NullableParameters.h"

#include <stdexcept>

namespace {

constexpr const char* kInsertFolder = "INSERT INTO FOLDER (NAME, ID_PARENT) VALUES (?, ?) RETURNING ID";

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

}  // namespace

std::int32_t StorageTestOperation::AddValue(std::optional<std::int32_t> integer, std::optional<double> real,
                                            std::optional<std::wstring> text) {
  CommitGuard writing(*this);
  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO CONCRETEVALUE (INTVAL, DOUBLEVAL, STRVAL) VALUES (?, ?, ?) RETURNING ID");
  SetOrNull(statement, 1, integer);
  SetOrNull(statement, 2, real);
  SetOrNull(statement, 3, text);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get("ID", id);
  writing.Commit();
  return id;
}

StorageTestOperation::StoredValue StorageTestOperation::ReadValue(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT INTVAL, DOUBLEVAL, STRVAL FROM CONCRETEVALUE WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such value row");
  StoredValue value{-1, -1.0, L"sentinel"};
  value.integerNull = statement.Get(1, value.integer);
  value.realNull = statement.Get(2, value.real);
  value.textNull = GetDbText(statement, 3, value.text);
  return value;
}

StorageTestOperation::StoredValue StorageTestOperation::ReadValueByName(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT STRVAL, DOUBLEVAL, INTVAL FROM CONCRETEVALUE WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such value row");
  StoredValue value{-1, -1.0, L"sentinel"};
  value.integerNull = statement.Get("INTVAL", value.integer);
  value.realNull = statement.Get("DOUBLEVAL", value.real);
  value.textNull = GetDbText(statement, "STRVAL", value.text);
  return value;
}

std::string StorageTestOperation::ReadValueBytes(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT STRVAL FROM CONCRETEVALUE WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such value row");
  std::string bytes;
  statement.Get(1, bytes);
  return bytes;
}

void StorageTestOperation::AddTwoFolders(const std::wstring& first, const std::wstring& second,
                                         const std::function<void()>& between) {
  CommitGuard writing(*this);
  IBPP::Statement statement = NewStatement();
  statement.Prepare(kInsertFolder);
  SetDbText(statement, 1, first);
  statement.SetNull(2);
  statement.Execute();
  between();
  SetDbText(statement, 1, second);
  statement.SetNull(2);
  statement.Execute();
  writing.Commit();
}

void StorageTestOperation::AddFolderThenOrphan(const std::wstring& first) {
  CommitGuard writing(*this);
  IBPP::Statement statement = NewStatement();
  statement.Prepare(kInsertFolder);
  SetDbText(statement, 1, first);
  statement.SetNull(2);
  statement.Execute();
  SetDbText(statement, 1, L"orphan");
  statement.Set(2, std::int32_t{999999});
  statement.Execute();
  writing.Commit();
}

std::int32_t StorageTestOperation::AddCommittedFolder(const std::wstring& name) {
  CommitGuard writing(*this);
  IBPP::Statement statement = NewStatement();
  statement.Prepare(kInsertFolder);
  SetDbText(statement, 1, name);
  statement.SetNull(2);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get("ID", id);
  writing.Commit();
  return id;
}

void StorageTestOperation::RenameFolderUncommitted(std::int32_t id, const std::wstring& name) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("UPDATE FOLDER SET NAME = ? WHERE ID = ?");
  SetDbText(statement, 1, name);
  statement.Set(2, id);
  statement.Execute();
}

std::wstring StorageTestOperation::FolderName(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT NAME FROM FOLDER WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such folder");
  std::wstring name;
  GetDbText(statement, 1, name);
  return name;
}

std::int32_t StorageTestOperation::CountFolders() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT COUNT(*) FROM FOLDER");
  Require(statement.Fetch(), "COUNT gave no row");
  std::int32_t count = -1;
  statement.Get(1, count);
  return count;
}

std::int32_t StorageTestOperation::CurrentAttachment() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT CURRENT_CONNECTION FROM RDB$DATABASE");
  Require(statement.Fetch(), "no row from RDB$DATABASE");
  std::int32_t id = 0;
  statement.Get(1, id);
  return id;
}

std::vector<std::int32_t> StorageTestOperation::UserAttachments() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT MON$ATTACHMENT_ID FROM MON$ATTACHMENTS WHERE MON$SYSTEM_FLAG = 0 ORDER BY 1");
  std::vector<std::int32_t> ids;
  while (statement.Fetch()) {
    std::int32_t id = 0;
    statement.Get(1, id);
    ids.push_back(id);
  }
  return ids;
}

std::int32_t StorageTestOperation::AddModel(std::span<const unsigned char> model) {
  CommitGuard writing(*this);
  IBPP::Blob modelBlob = NewBlob();
  WriteWholeBlob(modelBlob, model);
  const unsigned char thumbnailBytes[] = {1, 2, 3};
  IBPP::Blob thumbnail = NewBlob();
  WriteWholeBlob(thumbnail, thumbnailBytes);

  IBPP::Statement statement = NewStatement();
  statement.Prepare("INSERT INTO MODEL (MODEL, THUMBNAIL, MODEL_VERSION) VALUES (?, ?, 1) RETURNING ID");
  statement.Set(1, modelBlob);
  statement.Set(2, thumbnail);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get("ID", id);
  writing.Commit();
  return id;
}

std::vector<unsigned char> StorageTestOperation::ReadModel(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT MODEL FROM MODEL WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such model");
  IBPP::Blob blob = NewBlob();
  Require(!statement.Get(1, blob), "the model is null");
  return ReadWholeBlob(blob);
}

StorageTestOperation::BlobShape StorageTestOperation::ModelShape(std::int32_t id) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare("SELECT MODEL FROM MODEL WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  Require(statement.Fetch(), "no such model");
  IBPP::Blob blob = NewBlob();
  statement.Get(1, blob);
  blob.Open();
  BlobShape shape;
  blob.Info(&shape.total, &shape.largestSegment, &shape.segments);
  blob.Close();
  return shape;
}
