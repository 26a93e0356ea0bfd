#include "catalog/CPacket.h"

#include "platform/Report.h"
#include <set>
#include <vector>

#include "catalog/CAttribute.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "catalog/SizeValue.h"
#include "formula/ValueConversion.h"

CPacket::CPacket(std::int32_t id, std::wstring name, CDataProvider* provider, ICatalogStore& store)
    : id_(id), name_(std::move(name)), provider_(provider), store_(store) {}

CPacket::~CPacket() = default;

void CPacket::SetRootFolder(std::unique_ptr<CFolder> root) {
  DropSizeIndex();
  rootFolder_ = std::move(root);
  if (rootFolder_) rootFolder_->SetPacketOfSubtree(this);
}

bool CPacket::Load() {
  if (loaded_) return true;
  loaded_ = store_.LoadPacket(this);
  // The loader fills and splits the tables while the tree is linked, but a
  // failed load may leave part of its content behind: no index survives it.
  DropSizeIndex();
  if (loaded_) return true;
  Report(L"Не смогли загрузить данные пакета " + name_, "CPacket::Load");
  return false;
}

bool CPacket::_RenameFolder(CFolder* folder, const std::wstring& name) {
  constexpr const char* kMethod = "CPacket::_RenameFolder";
  if (folder == nullptr) {
    Report(L"Передан нулевой указатель на фолдер", kMethod);
    return false;
  }
  if (folder->GetName() == name) return true;
  // A root folder has no siblings to clash with.
  if (folder->GetParent() != nullptr && folder->GetParent()->FindChild(name) != nullptr) {
    Report(L"Фолдер с именем '" + name + L"' уже есть", kMethod);
    return false;
  }
  if (!folder->GetPacket()->Store().RenameFolder(folder, name)) {
    Report(L"Не смогли переименовать фолдер '" + folder->GetName() + L"' из за проблема с базой", kMethod);
    return false;
  }
  folder->AssignName(name);
  return true;
}

CStandartSize* CPacket::FindStdSize(const std::wstring& identifier) {
  if (rootFolder_ == nullptr) return nullptr;
  // Until a load has succeeded the walk runs, loading as it goes, so that a
  // failing load reports exactly as it always has.
  if (!loaded_) return FindStdSizeByWalk(identifier);
  if (sizeIndex_ == nullptr) BuildSizeIndex();
  const auto found = sizeIndex_->find(identifier);
  return found != sizeIndex_->end() ? found->second : nullptr;
}

CStandartSize* CPacket::FindStdSizeByWalk(const std::wstring& identifier) {
  if (CFolderTable* table = rootFolder_->_GetTable()) {
    if (CStandartSize* size = table->FindStdSize(identifier)) return size;
  }
  for (std::size_t i = 0; i < rootFolder_->ChildCount(); ++i) {
    if (CStandartSize* size = rootFolder_->Child(i)->FindStdSize(identifier)) return size;
  }
  return nullptr;
}

void CPacket::BuildSizeIndex() {
  auto index = std::make_unique<std::unordered_map<std::wstring, CStandartSize*>>();
  // The order of the walk: each folder's own table, then its children in
  // list order, depth first; children pushed in reverse come off in order.
  std::vector<CFolder*> pending{rootFolder_.get()};
  while (!pending.empty()) {
    CFolder* folder = pending.back();
    pending.pop_back();
    const CFolderTable* table = folder->TableInMemory();
    for (std::size_t t = 0; t < table->TemplateCount(); ++t) {
      const CTemplate* owner = table->Template(t);
      for (std::size_t s = 0; s < owner->SizeCount(); ++s) {
        CStandartSize* size = owner->Size(s);
        index->try_emplace(size->GetIdentifier(), size);
      }
    }
    for (std::size_t i = folder->ChildCount(); i > 0; --i) pending.push_back(folder->Child(i - 1));
  }
  sizeIndex_ = std::move(index);
}

std::wstring CPacket::AttributeUniqueValues(const std::wstring& attributeName, wchar_t separator) {
  // The texts the client sees: two decimals, zeros kept.
  constexpr NumberFormat kFormat{false, 2};
  std::set<std::wstring> texts;
  std::vector<CFolder*> pending;
  if (rootFolder_ != nullptr) pending.push_back(rootFolder_.get());
  while (!pending.empty()) {
    CFolder* folder = pending.back();
    pending.pop_back();
    for (std::int32_t i = 0; i < folder->_GetChildFolderCount(); ++i) pending.push_back(folder->Child(i));
    CFolderTable* table = folder->_GetTable();
    CAttribute* attribute = table != nullptr ? table->FindAttribute(attributeName) : nullptr;
    if (attribute == nullptr) continue;
    for (std::size_t t = 0; t < table->TemplateCount(); ++t) {
      CTemplate* owner = table->Template(t);
      for (std::size_t s = 0; s < owner->SizeCount(); ++s) {
        if (const Value* value = GetSizeValue(*attribute, *owner->Size(s), kFormat, nullptr)) {
          texts.insert(ValueToText(*value, kFormat));
        }
      }
    }
  }
  std::wstring joined;
  bool first = true;
  for (const std::wstring& text : texts) {
    if (!first) joined += separator;
    joined += text;
    first = false;
  }
  return joined;
}
