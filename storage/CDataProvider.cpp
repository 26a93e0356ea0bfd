#include "storage/CDataProvider.h"

#include <algorithm>
#include <utility>

#include "platform/Report.h"
#include "catalog/CPacket.h"
#include "storage/BaseOperation.h"
#include "storage/PacketOperation.h"
#include "storage/ProviderOperation.h"

CDataProvider::CDataProvider(std::wstring server, std::wstring database, std::wstring user, std::wstring password)
    : server_(std::move(server)),
      database_(std::move(database)),
      user_(std::move(user)),
      password_(std::move(password)) {}

CDataProvider::~CDataProvider() { ClearCaches(); }

CPacket* CDataProvider::_GetPacket(std::int32_t index) const {
  if (index < 0 || index >= GetPacketCount()) {
    ReportIndexOutOfRange(index, GetPacketCount(), "CDataProvider::_GetPacket");
    return nullptr;
  }
  return packets_[static_cast<std::size_t>(index)].get();
}

CPacket* CDataProvider::GetPacketByName(const std::wstring& name) const {
  for (const auto& packet : packets_) {
    if (packet->GetName() == name) return packet.get();
  }
  return nullptr;
}

void CDataProvider::AppendPacket(std::unique_ptr<CPacket> packet) { packets_.push_back(std::move(packet)); }

void CDataProvider::ReservePackets() {
  constexpr std::size_t kTypicalCatalog = 500;
  if (packets_.capacity() < kTypicalCatalog) packets_.reserve(kTypicalCatalog);
}

CPacket* CDataProvider::_AddPacket(const std::wstring& name) {
  constexpr const char* kMethod = "CDataProvider::_AddPacket";
  if (GetPacketByName(name) != nullptr) {
    Report(L"Нельзя создать пакет, т.к. пакет с именем '" + name + L"' уже существует", kMethod);
    return nullptr;
  }
  if (name.empty()) {
    Report(L"Нельзя создать пакет с пустым именем", kMethod);
    return nullptr;
  }
  std::unique_ptr<CPacket> packet = PacketOperation::AddPacket(this, name);
  if (!packet) {
    Report(L"Пакет '" + name + L"' не создался из-за проблем с базой", kMethod);
    return nullptr;
  }
  packets_.push_back(std::move(packet));
  return packets_.back().get();
}

bool CDataProvider::_ReNamePacket(CPacket* packet, const std::wstring& name) {
  constexpr const char* kMethod = "CDataProvider::_ReNamePacket";
  if (packet == nullptr) {
    Report(L"Передан нулевой указатель на пакет", kMethod);
    return false;
  }
  if (name.empty()) {
    Report(L"Имя пакета не может быть нулевым", kMethod);
    return false;
  }
  if (packet->GetName() == name) return true;
  if (GetPacketByName(name) != nullptr) {
    Report(L"Нельзя переименовать пакет, т.к. пакет с именем '" + name + L"' уже существует", kMethod);
    return false;
  }
  if (!PacketOperation::RenamePacket(packet, name)) {
    Report(L"Пакет '" + packet->GetName() + L"' не переименовали из-за проблем с базой", kMethod);
    return false;
  }
  packet->AssignName(name);
  return true;
}

bool CDataProvider::_ClearPacketCache(CPacket* packet) {
  if (packet == nullptr) {
    Report(L"Передан нулевой указатель на пакет", "CDataProvider::_ClearPacketCache");
    return false;
  }
  packetThumbnails_.erase(packet->GetId());
  std::vector<std::unique_ptr<CPacket>> removed;
  for (auto& owned : packets_) {
    if (owned.get() == packet) removed.push_back(std::move(owned));
  }
  std::erase_if(packets_, [](const auto& owned) { return owned == nullptr; });
  return true;
}

std::int32_t CDataProvider::GetAttributeNameId(const std::wstring& name) {
  for (const auto& [id, text] : attributeNames_) {
    if (text == name) return id;
  }
  const std::int32_t id = ProviderOperation::AttributeNameId(this, name);
  attributeNames_[id] = name;
  return id;
}

std::int32_t CDataProvider::GetAttributeDescriptionId(const std::wstring& description) {
  for (const auto& [id, text] : attributeDescriptions_) {
    if (text == description) return id;
  }
  const std::int32_t id = ProviderOperation::AttributeDescriptionId(this, description);
  attributeDescriptions_[id] = description;
  return id;
}

const wchar_t* CDataProvider::_GetParam(const std::wstring& name, const std::wstring& tag) {
  for (const auto& param : params_) {
    if (param->name == name && param->tag == tag) return param->value.c_str();
  }
  std::wstring value;
  if (!BaseOperation::GetParam(this, name, tag, value)) {
    Report(L"Не смогли получить параметр из за проблем с базой", "CDataProvider::_GetParam");
    return nullptr;
  }
  params_.push_back(std::make_unique<Param>(Param{name, tag, std::move(value)}));
  return params_.back()->value.c_str();
}

void CDataProvider::ClearCaches() {
  ClearContent();
  packets_.clear();
  attributeNames_.clear();
  attributeDescriptions_.clear();
  params_.clear();
}
