#include "storage/PacketOperation.h"

#include "platform/Report.h"
#include "catalog/CFolder.h"
#include "catalog/CPacket.h"
#include "storage/CDataProvider.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/OperationSupport.h"

namespace {

// Runs INSERT ... RETURNING ID and gives the new id; a null reads as 0.
std::int32_t ReturnedId(IBPP::Statement& statement) {
  std::int32_t id = 0;
  statement.Get("ID", id);
  return id;
}

}  // namespace

std::unique_ptr<CPacket> PacketOperation::AddPacket(CDataProvider* provider, const std::wstring& name) {
  PacketOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("INSERT INTO FOLDER (NAME, ID_PARENT) VALUES (?, NULL) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Execute();
  const std::int32_t folderId = ReturnedId(statement);

  statement.Prepare("INSERT INTO PACKET (PACKETID, FOLDERID) VALUES (?, ?) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Set(2, folderId);
  statement.Execute();
  const std::int32_t packetId = ReturnedId(statement);

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
  auto folder = std::make_unique<CFolder>(ReturnedId(statement), name);
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
