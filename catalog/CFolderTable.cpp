#include "catalog/CFolderTable.h"

#include <algorithm>
#include <locale>
#include <sstream>

#include "platform/Report.h"
#include "catalog/CAttribute.h"
#include "catalog/CFolder.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/MakeUniqueName.h"
#include "catalog/SizeValue.h"
#include "catalog/ICatalogStore.h"

namespace {

constexpr std::size_t kTypicalTemplates = 70;
constexpr std::int32_t kFirstAutomaticNumber = 21;
constexpr std::int32_t kIdSpecificationNumber = 11;
constexpr const wchar_t* kIdSpecificationName = L"ID_specification";
constexpr const wchar_t* kIdSpecificationDescription =
    L"Идентификатор элемента (для идентификации и сортировки в спецификации)";

// The last line of a failed write's report: the value that was to be written.
std::wstring ValueLine(const Value& value) {
  std::wostringstream line;
  line.imbue(std::locale::classic());
  if (const auto* integer = std::get_if<std::int32_t>(&value)) {
    line << L"\nintVal = " << *integer;
  } else if (const auto* number = std::get_if<double>(&value)) {
    line << L"\ndoubleVal = " << *number;
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    line << L"\nstrVal = " << *text;
  }
  return line.str();
}

}  // namespace

CFolderTable::CFolderTable(CFolder* folder) : folder_(folder) { templates_.reserve(kTypicalTemplates); }

CFolderTable::~CFolderTable() { templates_.clear(); }

ICatalogStore& CFolderTable::Store() const { return folder_->GetPacket()->Store(); }

void CFolderTable::NoteSizesChanged() const { folder_->NoteSizesChanged(); }

CTemplate* CFolderTable::AppendTemplate(std::unique_ptr<CTemplate> entry) {
  NoteSizesChanged();
  entry->SetTable(this);
  templates_.push_back(std::move(entry));
  return templates_.back().get();
}

std::vector<std::unique_ptr<CTemplate>> CFolderTable::TakeTemplates() {
  NoteSizesChanged();
  std::vector<std::unique_ptr<CTemplate>> taken = std::move(templates_);
  templates_.clear();
  templates_.reserve(kTypicalTemplates);
  return taken;
}

void CFolderTable::Clear() {
  NoteSizesChanged();
  templates_.clear();
  while (attributes_.Count() > 0) attributes_.Remove(attributes_.At(attributes_.Count() - 1));
}

bool CFolderTable::HoldsTemplate(const CTemplate* entry) const {
  return std::any_of(templates_.begin(), templates_.end(), [entry](const auto& owned) { return owned.get() == entry; });
}

void CFolderTable::BuildAttributesFromFirstTemplate() {
  if (templates_.empty()) return;
  for (const TemplateAttribute& record : templates_.front()->Records()) {
    attributes_.Add(std::make_unique<CAttribute>(record, this));
  }
}

std::wstring CFolderTable::FolderAndPacketLines() const {
  return L"\nfolder = " + folder_->GetName() + L"\npacket = " + folder_->GetPacket()->GetName();
}

CAttribute* CFolderTable::_GetAttribute(std::int32_t index) const {
  if (index < 0 || index >= GetAttributeCount()) {
    ReportIndexOutOfRange(index, GetAttributeCount(), "CFolderTable::_GetAttribute");
    return nullptr;
  }
  return attributes_.At(static_cast<std::size_t>(index));
}

CAttribute* CFolderTable::_AddAttribute(const std::wstring& name, const std::wstring& description, std::int32_t type,
                                        std::int32_t number) {
  constexpr const char* kMethod = "CFolderTable::_AddAttribute";
  if (type == LX_VALUE_EMPTY) {
    Report(L"Для атрибута задается неверный тип", kMethod);
    return nullptr;
  }
  if (templates_.empty() && CreateNewTemplate(L"_AddTemplate") == nullptr) {
    Report(L"Не могли создать шаблон", kMethod);
    return nullptr;
  }
  if (number < 0) number = std::max(kFirstAutomaticNumber - 1, attributes_.LargestNumber()) + 1;
  for (std::size_t i = 0; i < attributes_.Count(); ++i) {
    const CAttribute* existing = attributes_.At(i);
    if (existing->GetName() == name) {
      Report(L"Атрибут с таким именем есть: " + name, kMethod);
      return nullptr;
    }
    if (existing->GetNumber() == number) {
      Report(L"Атрибут с таким номером есть: " + std::to_wstring(number), kMethod);
      return nullptr;
    }
  }
  if (!Store().AddAttribute(this, name, description, type, number)) {
    Report(L"Проблемы при создании атрибута\nname = " + name + L"\ndesc = " + description + L"\ntype = " +
                       std::to_wstring(type) + FolderAndPacketLines(),
                   kMethod);
    return nullptr;
  }
  TemplateAttribute record{number, 0, name, description, L"", L"", L"", Value()};
  SetDefaultOfType(record.value, type);
  for (const auto& entry : templates_) entry->Records().push_back(record);
  return attributes_.Add(std::make_unique<CAttribute>(record, this));
}

bool CFolderTable::_DeleteAttribute(CAttribute* attribute) {
  constexpr const char* kMethod = "CFolderTable::_DeleteAttribute";
  if (attribute->GetTable() != this) {
    Report(L"Атрибут не соответствует своему родителю", kMethod);
    return false;
  }
  if (!Store().DeleteAttribute(attribute)) {
    Report(L"Проблемы при удалении атрибута:\nname = " + attribute->GetName() + FolderAndPacketLines(), kMethod);
    return false;
  }
  const std::int32_t number = attribute->GetNumber();
  for (const auto& entry : templates_) {
    entry->EraseRecord(number);
    for (std::size_t i = 0; i < entry->SizeCount(); ++i) entry->Size(i)->Values().erase(number);
  }
  attributes_.Remove(attribute);
  return true;
}

std::int32_t CFolderTable::GetStdSizeCount() const {
  std::size_t count = 0;
  for (const auto& entry : templates_) count += entry->SizeCount();
  return static_cast<std::int32_t>(count);
}

CStandartSize* CFolderTable::_GetStdSize(std::int32_t index) const {
  if (index >= 0) {
    std::size_t remaining = static_cast<std::size_t>(index);
    for (const auto& entry : templates_) {
      if (remaining < entry->SizeCount()) return entry->Size(remaining);
      remaining -= entry->SizeCount();
    }
  }
  ReportIndexOutOfRange(index, GetStdSizeCount(), "CFolderTable::_GetStdSize");
  return nullptr;
}

CStandartSize* CFolderTable::FindStdSize(const std::wstring& identifier) const {
  for (const auto& entry : templates_) {
    for (std::size_t i = 0; i < entry->SizeCount(); ++i) {
      if (entry->Size(i)->GetIdentifier() == identifier) return entry->Size(i);
    }
  }
  return nullptr;
}

CStandartSize* CFolderTable::FindStdSizeById(std::int32_t id) const {
  for (const auto& entry : templates_) {
    for (std::size_t i = 0; i < entry->SizeCount(); ++i) {
      if (entry->Size(i)->GetId() == id) return entry->Size(i);
    }
  }
  return nullptr;
}

std::wstring CFolderTable::GetNewStdSizeName(const std::wstring& identifier) const {
  CFolder* root = folder_->GetPacket()->GetRootFolder();
  return MakeUniqueName(identifier, [root](const std::wstring& candidate) {
    return root != nullptr && root->FindStdSize(candidate) != nullptr;
  });
}

std::wstring CFolderTable::GetNewTemplateName(const std::wstring& name) const {
  return MakeUniqueName(name, [this](const std::wstring& candidate) {
    return std::any_of(templates_.begin(), templates_.end(),
                       [&candidate](const auto& entry) { return entry->GetName() == candidate; });
  });
}

CStandartSize* CFolderTable::_AddStdSize(const std::wstring& requested) {
  constexpr const char* kMethod = "CFolderTable::_AddStdSize";
  if (requested.empty()) {
    Report(L"Индентификатор типоразмера не может быть пустым", kMethod);
    return nullptr;
  }
  const std::wstring identifier = GetNewStdSizeName(requested);
  // Three transactions of their own: what an earlier one committed stays
  // when a later one fails, in the database and in memory alike.
  CTemplate* owner = CreateNewTemplate(identifier);
  if (owner == nullptr) {
    Report(L"Не смогли создать шаблон для нового типоразмера", kMethod);
    return nullptr;
  }
  if (attributes_.FindByNumber(kIdSpecificationNumber) == nullptr &&
      _AddAttribute(kIdSpecificationName, kIdSpecificationDescription, LX_VALUE_STRING, kIdSpecificationNumber) ==
          nullptr) {
    Report(L"Не смогли создать 11й атрибут", kMethod);
    return nullptr;
  }
  const std::int32_t id = Store().AddStdSize(owner, identifier);
  if (id == 0) {
    Report(L"Проблемы при создании типоразмера\nid = " + identifier + L"\ntemplate = " + owner->GetName() +
                       FolderAndPacketLines(),
                   kMethod);
    return nullptr;
  }
  CStandartSize* size = owner->AppendSize(std::make_unique<CStandartSize>(id, identifier, owner));
  size->Values()[kIdSpecificationNumber] = identifier;
  return size;
}

bool CFolderTable::_DeleteStdSize(CStandartSize* size) {
  constexpr const char* kMethod = "CFolderTable::_DeleteStdSize";
  CTemplate* owner = size->GetTemplate();
  if (!HoldsTemplate(owner)) {
    Report(L"Типоразмер не соответствует своему родителю", kMethod);
    return false;
  }
  if (!Store().DeleteStdSize(size)) {
    Report(L"Проблемы при удалении типоразмера:\nname = " + size->GetIdentifier() + L"\ntemplate = " +
                       owner->GetName() + FolderAndPacketLines(),
                   kMethod);
    return false;
  }
  owner->DetachSize(size);
  return true;
}

bool CFolderTable::_GetValue(CAttribute* attribute, CStandartSize* size, ValueView& out, const NumberFormat& format) {
  constexpr const char* kMethod = "CFolderTable::_GetValue";
  out = ValueView{};
  if (attribute->GetTable() != this) {
    Report(L"Атрибут не соответствует своему родителю", kMethod);
    return false;
  }
  if (size->GetTemplate()->GetTable() != this) {
    Report(L"Типоразмер не соответствует своему родителю", kMethod);
    return false;
  }
  const Value* value = GetSizeValue(*attribute, *size, format, nullptr);
  if (value == nullptr || ::IsEmpty(*value)) return false;
  out = MakeValueView(*value);
  return true;
}

bool CFolderTable::MayChangeValue(CAttribute* attribute, CStandartSize* size, const char* method) const {
  if (attribute->GetTable() != this) {
    Report(L"Атрибут не соответствует своему родителю", method);
    return false;
  }
  if (size->GetTemplate()->GetTable() != this) {
    Report(L"Типоразмер не соответствует своему родителю", method);
    return false;
  }
  if (!attribute->GetFormula().empty()) {
    Report(L"Для вычисляемых полей нельзя задавать значение", method);
    return false;
  }
  if (size->GetTemplate()->FindRecord(attribute->GetNumber()) == nullptr) {
    Report(L"Не смогли найти атрибут у типоразмера", method);
    return false;
  }
  return true;
}

void CFolderTable::MoveTemplateValueToSizes(CTemplate* owner, std::int32_t number) {
  TemplateAttribute* record = owner->FindRecord(number);
  if (record == nullptr) return;
  if (!::IsEmpty(record->value)) {
    for (std::size_t i = 0; i < owner->SizeCount(); ++i) owner->Size(i)->Values()[number] = record->value;
  }
  record->value = std::monostate{};
}

bool CFolderTable::_SetValue(CAttribute* attribute, CStandartSize* size, const Value& value) {
  constexpr const char* kMethod = "CFolderTable::_SetValue";
  if (!MayChangeValue(attribute, size, kMethod)) return false;
  CTemplate* owner = size->GetTemplate();
  if (!Store().SetValue(attribute, size, value)) {
    Report(L"Проблема при задании нового значения:\nfolder = " + folder_->GetName() + L"\ntemplate = " +
                       owner->GetName() + L"\nstdSize = " + size->GetIdentifier() + L"\natr = " +
                       attribute->GetName() + ValueLine(value),
                   kMethod);
    return false;
  }
  MoveTemplateValueToSizes(owner, attribute->GetNumber());
  size->Values()[attribute->GetNumber()] = value;
  return true;
}

bool CFolderTable::_RemoveValue(CAttribute* attribute, CStandartSize* size) {
  constexpr const char* kMethod = "CFolderTable::_RemoveValue";
  if (!MayChangeValue(attribute, size, kMethod)) return false;
  CTemplate* owner = size->GetTemplate();
  if (!Store().RemoveValue(attribute, size)) {
    Report(L"Проблема при удалении значения:\nfolder = " + folder_->GetName() + L"\ntemplate = " +
                       owner->GetName() + L"\nstdSize = " + size->GetIdentifier() + L"\natr = " +
                       attribute->GetName(),
                   kMethod);
    return false;
  }
  MoveTemplateValueToSizes(owner, attribute->GetNumber());
  size->Values().erase(attribute->GetNumber());
  return true;
}

CTemplate* CFolderTable::CreateNewTemplate(const std::wstring& requested) {
  const std::wstring name = GetNewTemplateName(requested);
  const std::int32_t id = Store().CreateNewTemplate(this, name);
  if (id == 0) {
    Report(L"Проблема с базой, не смогли создать новый темплейт", "CFolderTable::CreateNewTemplate");
    return nullptr;
  }
  if (templates_.empty()) return AppendTemplate(std::make_unique<CTemplate>(id, name, 0, L"", this));
  const CTemplate* first = templates_.front().get();
  auto created = std::make_unique<CTemplate>(id, name, 0, first->GetType(), this);
  created->Records() = first->Records();
  for (TemplateAttribute& record : created->Records()) record.value = std::monostate{};
  return AppendTemplate(std::move(created));
}

bool CFolderTable::CreateTemplateFor(CStandartSize* size) {
  CTemplate* old = size->GetTemplate();
  if (old->SizeCount() < 2) return true;
  const std::wstring name = GetNewTemplateName(old->GetName());
  const std::int32_t id = Store().CreateTemplateFor(size, name);
  if (id == 0) {
    Report(L"Проблема с базой, не смогли создать новый темплейт для типоразмера",
                   "CFolderTable::CreateTemplateFor");
    return false;
  }
  std::unique_ptr<CStandartSize> moved = old->DetachSize(size);
  auto split = std::make_unique<CTemplate>(id, name, old->GetModelId(), old->GetType(), this);
  split->Records() = old->Records();
  moved->SetTemplate(split.get());
  split->AppendSize(std::move(moved));
  AppendTemplate(std::move(split));
  return true;
}
