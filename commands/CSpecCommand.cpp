#include "commands/CSpecCommand.h"

#include <string>
#include <vector>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "commands/ICommandSession.h"
#include "content/CSpec.h"
#include "content/IContentStore.h"
#include "platform/Report.h"
#include "platform/TextCodec.h"

namespace {

std::wstring Text(const pugi::xml_node& node, const char* attribute) {
  return Utf8ToWide(node.attribute(attribute).as_string());
}

CStandartSize* FindSize(ICommandSession& session, const std::wstring& packetName, const std::wstring& identifier) {
  CPacket* packet = session.FindPacket(packetName);
  if (packet == nullptr || packet->GetRootFolder() == nullptr) return nullptr;
  return packet->GetRootFolder()->FindStdSize(identifier);
}

// The records a client may hold if the template's list has been read, else
// the rows as this document's transaction sees them. A list read only to be
// dropped at once would cost an attachment of its own per command.
std::vector<std::int32_t> SpecIdsOf(ICommandSession& session, IContentStore& content, std::int32_t templateId) {
  const SpecList* cached = content.CachedSpecs(templateId);
  if (cached == nullptr) return session.SpecIds(templateId);
  std::vector<std::int32_t> ids;
  for (const auto& spec : *cached) ids.push_back(spec->GetId());
  return ids;
}

}  // namespace

bool CSpecCommand::Run(ICommandSession& session, const pugi::xml_node& command) {
  const pugi::xml_node stdSize = command.child("stdSize");
  const std::wstring packetName = Text(stdSize, "packet");
  const std::wstring identifier = Text(stdSize, "id");
  CStandartSize* size = FindSize(session, packetName, identifier);
  if (size == nullptr) {
    Report(L"Не нашил типоразмер при создании спецификаций, packet = " + packetName + L" id = " + identifier,
           "CSpecCommand::Run");
    return false;
  }

  CTemplate* owner = size->GetTemplate();
  const std::int32_t templateId = owner->GetId();
  IContentStore& content = owner->GetTable()->Store().Content();
  const std::vector<std::int32_t> oldSpecs = SpecIdsOf(session, content, templateId);
  for (const std::int32_t specId : oldSpecs) session.DeleteSpecColumns(specId);
  if (!oldSpecs.empty()) session.DeleteSpecs(templateId);
  // The old records die here; the next request reads the new rows.
  content.DropSpecs(templateId);

  for (const pugi::xml_node& spec : command.children("spec")) {
    const std::int32_t specId =
        session.InsertSpec(Text(spec, "libName"), spec.attribute("styleNum").as_int(), templateId,
                           spec.attribute("firstPart").as_int(), spec.attribute("secondPart").as_int());
    for (const pugi::xml_node& column : spec.children("column"))
      session.InsertSpecColumn(column.attribute("num").as_int(), Text(column, "formula"), specId);
  }
  return true;
}
