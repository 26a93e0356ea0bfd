#include "catalog/CFolder.h"

#include <algorithm>

#include "platform/Report.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/ICatalogStore.h"

CFolder::CFolder(std::int32_t id, std::wstring name)
    : id_(id), name_(std::move(name)) {}

CFolder::~CFolder() {
  std::vector<std::unique_ptr<CFolder>> doomed = std::move(children_);
  while (!doomed.empty()) {
    std::unique_ptr<CFolder> folder = std::move(doomed.back());
    doomed.pop_back();
    for (auto& child : folder->children_) doomed.push_back(std::move(child));
    folder->children_.clear();
  }
  table_.reset();
}

CFolderTable* CFolder::MakeTable() {
  table_ = std::make_unique<CFolderTable>(this);
  return table_.get();
}

void CFolder::SetPacketOfSubtree(CPacket* packet) {
  std::vector<CFolder*> pending{this};
  while (!pending.empty()) {
    CFolder* folder = pending.back();
    pending.pop_back();
    folder->packet_ = packet;
    for (const auto& child : folder->children_) pending.push_back(child.get());
  }
  NoteSizesChanged();
}

void CFolder::NoteSizesChanged() const {
  const CFolder* root = this;
  while (root->parent_ != nullptr) root = root->parent_;
  if (root->packet_ != nullptr) root->packet_->DropSizeIndex();
}

CFolder* CFolder::AppendChild(std::unique_ptr<CFolder> child) {
  child->parent_ = this;
  children_.push_back(std::move(child));
  NoteSizesChanged();
  return children_.back().get();
}

CFolder* CFolder::FindChild(const std::wstring& name) const {
  for (const auto& child : children_) {
    if (child->name_ == name) return child.get();
  }
  return nullptr;
}

std::unique_ptr<CFolder> CFolder::DetachChild(CFolder* child) {
  const auto found =
      std::find_if(children_.begin(), children_.end(), [child](const auto& owned) { return owned.get() == child; });
  if (found == children_.end()) return nullptr;
  NoteSizesChanged();
  std::unique_ptr<CFolder> detached = std::move(*found);
  children_.erase(found);
  detached->parent_ = nullptr;
  return detached;
}

CFolderTable* CFolder::_GetTable() {
  if (packet_ == nullptr || !packet_->Load()) {
    Report(L"Не смогли загрузить данные фолдера " + name_, "CFolder::_GetTable");
    return nullptr;
  }
  return TableInMemory();
}

std::int32_t CFolder::_GetChildFolderCount() {
  _GetTable();  // a failed load has reported; what memory holds is counted
  return static_cast<std::int32_t>(children_.size());
}

CFolder* CFolder::_GetChildFolder(std::int32_t index) {
  _GetTable();
  if (index < 0 || static_cast<std::size_t>(index) >= children_.size()) {
    ReportIndexOutOfRange(index, static_cast<std::int64_t>(children_.size()), "CFolder::_GetChildFolder");
    return nullptr;
  }
  return children_[static_cast<std::size_t>(index)].get();
}

CFolder* CFolder::_AddChildFolder(const std::wstring& name) {
  constexpr const char* kMethod = "CFolder::_AddChildFolder";
  if (name.empty()) {
    Report(L"Имя фолдера не может быть пустым", kMethod);
    return nullptr;
  }
  if (FindChild(name) != nullptr) {
    Report(L"Фолдер с именем '" + name + L"' уже есть", kMethod);
    return nullptr;
  }
  std::unique_ptr<CFolder> child = packet_->Store().AddChildFolder(this, name);
  if (!child) {
    Report(L"Не смогли добавить фолдер '" + name + L"' в фолдер '" + name_ + L"' из-за проблем с базой",
                   kMethod);
    return nullptr;
  }
  return AppendChild(std::move(child));
}

bool CFolder::_DeleteChildFolder(CFolder* child) {
  constexpr const char* kMethod = "CFolder::_DeleteChildFolder";
  if (child->parent_ != this) {
    Report(L"Фолдер не соответствует своему родителю", kMethod);
    return false;
  }
  if (child->IsVirtual()) {
    Report(L"Нельзя удалять виртуальные фолдеры", kMethod);
    return false;
  }
  if (!child->children_.empty()) {
    Report(L"Фолдер имеет сабфолдеры", kMethod);
    return false;
  }
  if (!packet_->Store().DeleteFolder(child)) {
    Report(L"Проблемы при удалении фолдера '" + child->name_ + L"' из базы", kMethod);
    return false;
  }
  DetachChild(child);
  return true;
}

bool CFolder::MayMoveTo(CFolder* newParent) {
  constexpr const char* kMethod = "CFolder::_MoveTo";
  for (CFolder* above = newParent; above != nullptr; above = above->parent_) {
    if (above == this) {
      Report(L"Родительский фолдер не может быть ниже по дереву чем перемещаемый фолдер", kMethod);
      return false;
    }
  }
  if (IsVirtual()) {
    Report(L"Нельзя переносить виртуальные фолдеры", kMethod);
    return false;
  }
  if (newParent == nullptr) {
    Report(L"Родительский фолдер не найден", kMethod);
    return false;
  }
  if (newParent->IsVirtual()) {
    Report(L"Нельзя редактировать виртуальные фолдеры", kMethod);
    return false;
  }
  // Providers are compared as objects: two providers of one database differ.
  if (packet_->GetProvider() != newParent->packet_->GetProvider()) {
    Report(L"Фолдеры находятся в разных базах", kMethod);
    return false;
  }
  if (newParent->FindChild(name_) != nullptr) {
    Report(L"Фолдер с таким именем уже есть", kMethod);
    return false;
  }
  return true;
}

bool CFolder::_MoveTo(CFolder* newParent) {
  if (parent_ == nullptr) {
    Report(L"Корневой фолдер нельзя переносить", "CFolder::_MoveTo");
    return false;
  }
  if (newParent == parent_) return true;
  if (!MayMoveTo(newParent)) return false;
  if (!packet_->Store().MoveFolder(this, newParent)) {
    Report(L"Не смогли перенести фолдер из-за проблем с базой", "CFolder::_MoveTo");
    return false;
  }
  newParent->AppendChild(parent_->DetachChild(this));
  // A move into another packet's tree takes the whole subtree to that
  // packet: a folder left pointing at the old one would dangle once the old
  // packet's cache is cleared.
  if (newParent->packet_ != packet_) SetPacketOfSubtree(newParent->packet_);
  return true;
}

template <typename Find>
CStandartSize* CFolder::FindInSubtree(Find&& find) {
  // Explicit stack in pre-order: children pushed in reverse come off in order.
  std::vector<CFolder*> pending{this};
  while (!pending.empty()) {
    CFolder* folder = pending.back();
    pending.pop_back();
    if (CFolderTable* table = folder->_GetTable()) {
      if (CStandartSize* size = find(*table)) return size;
    }
    for (auto child = folder->children_.rbegin(); child != folder->children_.rend(); ++child) {
      pending.push_back(child->get());
    }
  }
  return nullptr;
}

CStandartSize* CFolder::FindStdSize(const std::wstring& identifier) {
  return FindInSubtree([&identifier](CFolderTable& table) { return table.FindStdSize(identifier); });
}

CStandartSize* CFolder::FindStdSizeById(std::int32_t id) {
  return FindInSubtree([id](CFolderTable& table) { return table.FindStdSizeById(id); });
}
