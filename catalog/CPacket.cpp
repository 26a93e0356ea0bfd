#include "catalog/CPacket.h"

#include "api/Report.h"
#include "catalog/CFolder.h"
#include "storage/BaseOperation.h"
#include "storage/PacketOperation.h"

CPacket::CPacket(std::int32_t id, std::wstring name, CDataProvider* provider)
    : id_(id), name_(std::move(name)), provider_(provider) {}

CPacket::~CPacket() = default;

void CPacket::SetRootFolder(std::unique_ptr<CFolder> root) {
  rootFolder_ = std::move(root);
  if (rootFolder_) rootFolder_->SetPacketOfSubtree(this);
}

bool CPacket::Load() {
  if (loaded_) return true;
  loaded_ = BaseOperation::LoadPacket(this);
  if (loaded_) return true;
  lx_api::Report(L"Не смогли загрузить данные пакета " + name_, "CPacket::Load");
  return false;
}

bool CPacket::_RenameFolder(CFolder* folder, const std::wstring& name) {
  constexpr const char* kMethod = "CPacket::_RenameFolder";
  if (folder == nullptr) {
    lx_api::Report(L"Передан нулевой указатель на фолдер", kMethod);
    return false;
  }
  if (folder->GetName() == name) return true;
  // A root folder has no siblings to clash with.
  if (folder->GetParent() != nullptr && folder->GetParent()->FindChild(name) != nullptr) {
    lx_api::Report(L"Фолдер с именем '" + name + L"' уже есть", kMethod);
    return false;
  }
  if (!PacketOperation::RenameFolder(folder, name)) {
    lx_api::Report(L"Не смогли переименовать фолдер '" + folder->GetName() + L"' из за проблема с базой", kMethod);
    return false;
  }
  folder->AssignName(name);
  return true;
}
