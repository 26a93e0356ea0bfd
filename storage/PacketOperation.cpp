#include "storage/PacketOperation.h"

#include "platform/Report.h"
#include "catalog/CFolder.h"
#include "catalog/CPacket.h"
#include "content/CStdFiles.h"
#include "storage/BlobTransfer.h"
#include "storage/CDataProvider.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/OperationSupport.h"

std::unique_ptr<CPacket> PacketOperation::AddPacket(CDataProvider* provider, const std::wstring& name) {
  PacketOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("INSERT INTO FOLDER (NAME, ID_PARENT) VALUES (?, NULL) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Execute();
  const std::int32_t folderId = ReadInt(statement, "ID");

  statement.Prepare("INSERT INTO PACKET (PACKETID, FOLDERID) VALUES (?, ?) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Set(2, folderId);
  statement.Execute();
  const std::int32_t packetId = ReadInt(statement, "ID");

  auto packet = std::make_unique<CPacket>(packetId, name, provider, provider->Store());
  packet->SetRootFolder(std::make_unique<CFolder>(folderId, name));
  guard.Commit();
  return packet;
}

bool PacketOperation::RenamePacket(CPacket* packet, const std::wstring& name) {
  ExecuteCommitted(packet->GetProvider(), "UPDATE PACKET set PACKETID = ? WHERE ID = ?", [&](IBPP::Statement& statement) {
    SetDbText(statement, 1, name);
    statement.Set(2, packet->GetId());
  });
  return true;
}

std::unique_ptr<CFolder> PacketOperation::AddChildFolder(CFolder* parent, const std::wstring& name) {
  if (parent->IsVirtual()) {
    Report(L"Для виртуальных фолдеров это операция невозможна", "PacketOperation::AddChildFolder");
    return nullptr;
  }
  PacketOperation operation(ProviderOf(parent));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("INSERT INTO FOLDER (NAME, ID_PARENT) VALUES (?, ?) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Set(2, parent->GetId());
  statement.Execute();
  auto folder = std::make_unique<CFolder>(ReadInt(statement, "ID"), name);
  folder->SetPacket(parent->GetPacket());
  guard.Commit();
  return folder;
}

bool PacketOperation::RenameFolder(CFolder* folder, const std::wstring& name) {
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров переименование невозможно", "PacketOperation::RenameFolder");
    return false;
  }
  ExecuteCommitted(ProviderOf(folder), "UPDATE FOLDER set NAME = ? WHERE ID = ?", [&](IBPP::Statement& statement) {
    SetDbText(statement, 1, name);
    statement.Set(2, folder->GetId());
  });
  return true;
}

bool PacketOperation::DeleteFolder(CFolder* folder) {
  static constexpr const char* kStatements[] = {
      "DELETE FROM ATTRIBUTEVALUE val WHERE EXISTS (   SELECT 1 FROM OBJECT obj     join STANDARDSIZE sz on "
      "sz.OBJECTID = obj.ID and obj.FOLDERID = ?     join ATTRIBUTEVALUE val2 on val2.STANDARDSIZEID = sz.ID   "
      "WHERE val2.STANDARDSIZEID = val.STANDARDSIZEID)",
      "DELETE FROM STANDARDSIZE sz WHERE EXISTS (   SELECT 1 FROM OBJECT obj     join STANDARDSIZE sz2 on "
      "sz2.OBJECTID = obj.ID and obj.FOLDERID = ?   WHERE sz2.OBJECTID = sz.OBJECTID)",
      "DELETE FROM OBJECTATTRIBUTE atr WHERE EXISTS (   SELECT 1 FROM OBJECT obj     join OBJECTATTRIBUTE atr2 on "
      "atr2.OBJECTID = obj.ID and obj.FOLDERID = ?   WHERE atr2.OBJECTID = atr.OBJECTID)",
      "DELETE FROM OBJECT obj WHERE obj.FOLDERID = ?",
      "DELETE FROM FOLDER f WHERE f.ID = ?",
  };
  PacketOperation operation(ProviderOf(folder));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  for (const char* sql : kStatements) {
    statement.Prepare(sql);
    statement.Set(1, folder->GetId());
    statement.Execute();
  }
  guard.Commit();
  return true;
}

bool PacketOperation::MoveFolder(CFolder* folder, CFolder* newParent) {
  ExecuteCommitted(ProviderOf(folder), "UPDATE FOLDER set ID_PARENT = ? WHERE ID = ?", [&](IBPP::Statement& statement) {
    statement.Set(1, newParent->GetId());
    statement.Set(2, folder->GetId());
  });
  return true;
}

void PacketOperation::ExecuteCommitted(CDataProvider* provider, const char* sql,
                                       const std::function<void(IBPP::Statement&)>& bind) {
  PacketOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(sql);
  bind(statement);
  statement.Execute();
  guard.Commit();
}

bool PacketOperation::LoadFiles(CStdFiles* files) {
  CStandartSize* size = files->GetStdSize();
  PacketOperation operation(ProviderOf(size));
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "SELECT F.ID, F.NAME FROM FILES F INNER JOIN STANDARTSIZE_FILE SSF ON SSF.FILES_ID = F.ID WHERE SSF.STDSIZE_ID = ?");
  statement.Set(1, size->GetId());
  statement.Execute();
  while (statement.Fetch()) {
    FileRecord record;
    record.id = ReadInt(statement, 1);
    std::wstring stored;
    GetDbText(statement, 2, stored);
    SplitFileName(stored, record.name, record.ext);
    record.owner = size;
    files->Append(std::move(record));
  }
  return true;
}

ByteDataPtr PacketOperation::GetFile(CDataProvider* provider, const FileRecord& record) {
  PacketOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  return operation.ReadContentById(statement, "SELECT DATAFILE FROM FILES WHERE ID=?", record.id, 1,
                                   L"Не смогли получить file = ",
                                   L"Ошибка при чтении file = " + std::to_wstring(record.id) + L" из блоба",
                                   "PacketOperation::GetFile");
}

SpecList PacketOperation::LoadSpecs(CDataProvider* provider, CTemplate* owner) {
  PacketOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("SELECT ID, LIBNAME, STYLENUMBER, FIRSTPART, SECONDPART FROM SPECIFICATION WHERE IDOBJECT = ?");
  statement.Set(1, owner->GetId());
  statement.Execute();
  SpecList specs;
  while (statement.Fetch()) {
    CSpec::Row row;
    row.id = ReadInt(statement, 1);
    GetDbText(statement, 2, row.libName);
    row.styleNumber = ReadInt(statement, 3);
    row.firstPart = ReadInt(statement, 4);
    row.secondPart = ReadInt(statement, 5);
    specs.push_back(std::make_unique<CSpec>(std::move(row), provider->Content()));
  }
  return specs;
}

std::int32_t PacketOperation::FindStdSizeIdByOldReference(CPacket* packet, const std::wstring& oldIndex,
                                                         const std::wstring& oldName) {
  PacketOperation operation(packet->GetProvider());
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "SELECT O.ID AS OBJECT_ID, SS.ID AS STDSIZE_ID FROM PACKET P INNER JOIN OBJECT O ON O.PACKETID = P.ID INNER "
      "JOIN STANDARDSIZE SS ON SS.OBJECTID = O.ID WHERE P.PACKETID = ? AND SS.OLD_INDEX = ? AND SS.OLD_NAME = ?");
  SetDbText(statement, 1, packet->GetName());
  SetDbText(statement, 2, oldIndex);
  SetDbText(statement, 3, oldName);
  statement.Execute();
  return statement.Fetch() ? ReadInt(statement, 2) : -1;
}

bool PacketOperation::LoadSpecColumns(CDataProvider* provider, std::int32_t specId,
                                      std::vector<CSpec::StoredColumn>& columns) {
  PacketOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(" SELECT COLNUMBER, FORMULA FROM SPECIFICATIONCOLUMN WHERE SPECIFICATIONID = ?");
  statement.Set(1, specId);
  statement.Execute();
  while (statement.Fetch()) {
    CSpec::StoredColumn column;
    column.number = ReadInt(statement, 1);
    GetDbText(statement, 2, column.text);
    columns.push_back(std::move(column));
  }
  return true;
}

ByteDataPtr PacketOperation::GetRepresitation(CDataProvider* provider, std::int32_t templateId) {
  PacketOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  return operation.ReadContentById(
      statement, "SELECT R.ID, R.DATA FROM OBJECT O INNER JOIN REPRESENTATION R ON R.ID=O.REPRESENTATIONID WHERE O.ID=?",
      templateId, 2, L"Не смогли получить represitation ", L"Ошибка при чтении represitation из блоба",
      "PacketOperation::GetRepresitation");
}
