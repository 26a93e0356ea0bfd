// The second stage of loading: everything below the folders of one packet,
// read the first time any of it is needed.
#include <deque>
#include <unordered_map>
#include <vector>

#include "platform/Report.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/PacketTemplatePartition.h"
#include "storage/BaseOperation.h"
#include "storage/DataLoad.h"
#include "storage/DbText.h"

namespace {

constexpr const char* kLoadPacket = "BaseOperation::LoadPacket";

// Every folder of the packet, the root first, then breadth first.
struct PacketFolders {
  std::vector<CFolder*> order;
  std::unordered_map<std::int32_t, CFolder*> byId;
};

PacketFolders CollectFolders(CPacket* packet) {
  PacketFolders folders;
  std::deque<CFolder*> pending;
  if (packet->GetRootFolder() != nullptr) pending.push_back(packet->GetRootFolder());
  while (!pending.empty()) {
    CFolder* folder = pending.front();
    pending.pop_front();
    folders.order.push_back(folder);
    folders.byId[folder->GetId()] = folder;
    for (std::size_t i = 0; i < folder->ChildCount(); ++i) pending.push_back(folder->Child(i));
  }
  return folders;
}

bool LoadTemplates(IBPP::Statement& statement, std::int32_t packetId, const PacketFolders& folders,
                   DataLoad::Templates& templates) {
  statement.Prepare(
      "SELECT O.ID, O.NAME, O.FOLDERID, O.MODELID, OT.SVAL TYPE FROM OBJECT O JOIN OBJECTTYPE OT ON OT.ID = "
      "O.OBJECTTYPEID WHERE O.PACKETID = ?");
  statement.Set(1, packetId);
  statement.Execute();
  while (statement.Fetch()) {
    std::int32_t id = 0;
    std::int32_t folderId = 0;
    std::int32_t modelId = 0;
    std::wstring name;
    std::wstring type;
    statement.Get(1, id);
    GetDbText(statement, 2, name);
    statement.Get(3, folderId);
    statement.Get(4, modelId);
    GetDbText(statement, 5, type);
    const auto folder = folders.byId.find(folderId);
    if (folder == folders.byId.end()) return false;
    CFolderTable* table = folder->second->TableInMemory();
    CTemplate* loaded =
        table->AppendTemplate(std::make_unique<CTemplate>(id, std::move(name), modelId, std::move(type), table));
    templates.order.push_back(loaded);
    templates.byId[id] = loaded;
  }
  return true;
}

bool LoadStdSizes(IBPP::Statement& statement, std::int32_t packetId, const DataLoad::Templates& templates,
                  DataLoad::Sizes& sizes) {
  statement.Prepare(
      "SELECT SS.OBJECTID, SS.ID, SS.IDENTIFIER FROM OBJECT O JOIN STANDARDSIZE SS ON O.ID = SS.OBJECTID WHERE "
      "O.PACKETID = ? ");
  statement.Set(1, packetId);
  statement.Execute();
  std::int32_t lastTemplateId = 0;
  CTemplate* owner = nullptr;
  while (statement.Fetch()) {
    std::int32_t templateId = 0;
    std::int32_t id = 0;
    std::wstring identifier;
    statement.Get(1, templateId);
    statement.Get(2, id);
    GetDbText(statement, 3, identifier);
    if (owner == nullptr || templateId != lastTemplateId) {
      const auto found = templates.byId.find(templateId);
      if (found == templates.byId.end()) return false;
      owner = found->second;
      lastTemplateId = templateId;
    }
    CStandartSize* size = owner->AppendSize(std::make_unique<CStandartSize>(id, std::move(identifier), owner));
    sizes.order.push_back(size);
    sizes.byId[id] = size;
  }
  return true;
}

// What a failed earlier load left in the tables goes, so that a retry does
// not hold anything twice. Only a completed load splits folders, so there
// are no virtual folders to remove.
void ForgetPartialLoad(const PacketFolders& folders) {
  for (CFolder* folder : folders.order) folder->TableInMemory()->Clear();
}

}  // namespace

bool BaseOperation::LoadPacket(CPacket* packet) {
  CDataProvider* provider = packet->GetProvider();
  const PacketFolders folders = CollectFolders(packet);
  ForgetPartialLoad(folders);

  BaseOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  const std::int32_t packetId = packet->GetId();
  auto fail = [&packet](const wchar_t* text) {
    Report(text + packet->GetName(), kLoadPacket);
    return false;
  };

  DataLoad::Templates templates;
  if (!LoadTemplates(statement, packetId, folders, templates)) return fail(L"Ошибка загрузки шаблонов пакета ");
  if (!DataLoad::chunkLoadTemplateAttributes(provider, statement, packetId, templates)) {
    return fail(L"Ошибка загрузки атрибутов пакета ");
  }
  DataLoad::Sizes sizes;
  if (!LoadStdSizes(statement, packetId, templates, sizes)) return fail(L"Ошибка загрузки типоразмеров пакета ");
  if (!DataLoad::chunkLoadStdSizeAttributes(provider, statement, packetId, sizes)) {
    return fail(L"Ошибка загрузки атрибутов типоразмеров пакета ");
  }

  for (CFolder* folder : folders.order) {
    CFolderTable* table = folder->TableInMemory();
    if (table->TemplateCount() == 0) continue;
    if (!PacketTemplatePartition(folder)) table->BuildAttributesFromFirstTemplate();
  }
  return true;
}
