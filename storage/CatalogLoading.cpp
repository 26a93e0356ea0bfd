// The basic load of a catalog: packets, the whole folder tree and the two
// attribute dictionaries, read when a provider attaches and again on reload.
// Everything below the folders waits for the first touch of its packet.
#include <optional>
#include <string_view>

#include "platform/Report.h"
#include "catalog/CPacket.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/DbText.h"
#include "storage/FolderTreeLinker.h"

namespace {

constexpr const char* kBasicLoading = "BaseOperation::BasicLoading";

}  // namespace

bool BaseOperation::BasicLoading(CDataProvider* provider) {
  BaseOperation operation(provider);
  if (!operation.LoadPacketsAndFolders()) {
    Report(L"Ошибка при загрузке пакетов и фолдеров", kBasicLoading);
    return false;
  }
  if (!operation.LoadAttributeNames()) {
    Report(L"Ошибка при загрузке имен атрибутов", kBasicLoading);
    return false;
  }
  if (!operation.LoadAttributeDescriptions()) {
    Report(L"Ошибка при загрузке описаний атрибутов", kBasicLoading);
    return false;
  }
  return true;
}

bool BaseOperation::LoadDictionary(const char* sql, void (CDataProvider::*store)(std::int32_t, std::wstring)) {
  IBPP::Statement statement = NewStatement();
  statement.Execute(sql);
  while (statement.Fetch()) {
    std::int32_t id = 0;
    std::wstring text;
    statement.Get(1, id);
    GetDbText(statement, 2, text);
    (provider_->*store)(id, std::move(text));
  }
  return true;
}

bool BaseOperation::LoadAttributeNames() {
  return LoadDictionary("SELECT ID, NAME FROM ATTRIBUTENAME", &CDataProvider::SetAttributeName);
}

bool BaseOperation::LoadAttributeDescriptions() {
  return LoadDictionary("SELECT ID, DESCRIPTION FROM ATTRIBUTEDESCRIPTION", &CDataProvider::SetAttributeDescription);
}

bool BaseOperation::LoadPacketsAndFolders() {
  FolderTreeLinker linker;
  {
    IBPP::Statement statement = NewStatement();
    statement.Execute("SELECT ID, PACKETID, FOLDERID FROM PACKET");
    provider_->ReservePackets();
    while (statement.Fetch()) {
      std::int32_t id = 0;
      std::int32_t folderId = 0;
      std::wstring name;
      statement.Get(1, id);
      GetDbText(statement, 2, name);
      statement.Get(3, folderId);
      auto packet = std::make_unique<CPacket>(id, std::move(name), provider_, provider_->Store());
      linker.AddPacket(folderId, packet.get());
      provider_->AppendPacket(std::move(packet));
    }
  }

  {
    IBPP::Statement statement = NewStatement();
    statement.Execute("SELECT ID, NAME, ID_PARENT FROM FOLDER");
    while (statement.Fetch()) {
      std::int32_t id = 0;
      std::int32_t parentId = 0;
      std::string_view storedName;
      statement.Get(1, id);
      statement.Get(2, storedName);
      const bool noParent = statement.Get(3, parentId);
      linker.AddFolder(id, storedName, noParent ? std::nullopt : std::optional<std::int32_t>(parentId));
    }
  }
  if (const std::optional<std::wstring> stray = linker.Link()) {
    Report(L"Фолдер '" + *stray + L"' не входит ни в один пакет", "BaseOperation::LoadPacketsAndFolders");
    return false;
  }
  return true;
}
