#include "object/CObject.h"

#include <string_view>

#include "catalog/CAttribute.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "content/CSpec.h"
#include "formula/NumberText.h"
#include "formula/ValueCompare.h"
#include "object/CLayers.h"
#include "object/CObjectFormulaHelper.h"
#include "platform/Report.h"

namespace {

constexpr const char* kGetValue = "CObject::_GetValue";
constexpr const char* kSetValue = "CObject::_SetValue";
constexpr const wchar_t* kTopView = L"сверху";

CFolderTable* TableOf(const CStandartSize* size) { return size->GetTemplate()->GetTable(); }
CPacket* PacketOf(const CStandartSize* size) { return TableOf(size)->GetFolder()->GetPacket(); }

// The file name of a database path without its extension. '/', '\\' and the
// ':' of a drive or a server prefix all end a component.
std::wstring_view Stem(std::wstring_view path) {
  const std::size_t cut = path.find_last_of(L"/\\:");
  std::wstring_view name = cut == std::wstring_view::npos ? path : path.substr(cut + 1);
  if (name == L"." || name == L"..") return name;
  const std::size_t dot = name.rfind(L'.');
  return dot == std::wstring_view::npos || dot == 0 ? name : name.substr(0, dot);
}

// The key of a specification column's result: style and column together.
// Wraps rather than overflows for styles no catalog has.
std::int32_t SpecKey(std::int32_t styleNumber, std::int32_t column) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(styleNumber) * 100u + static_cast<std::uint32_t>(column));
}

}  // namespace

CObject::CObject() : viewName_(kTopView) {}

CObject::~CObject() = default;

void CObject::SetIdentity(std::wstring packetName, std::wstring stdSizeId) {
  packetName_ = std::move(packetName);
  stdSizeId_ = std::move(stdSizeId);
}

void CObject::SetView(std::wstring viewName, std::uint32_t viewType) {
  viewName_ = std::move(viewName);
  viewType_ = viewType;
}

bool CObject::Bound(const char* method) const {
  if (stdSize_ != nullptr) return true;
  Report(L"Перед использованием объект следует инициализировать типоразмером", method);
  return false;
}

bool CObject::MayUse(const CAttribute* attribute, const char* method) const {
  if (!Bound(method)) return false;
  if (attribute->GetTable() == TableOf(stdSize_)) return true;
  Report(L"Атрибут не принадлежит таблице типоразмеров", method);
  return false;
}

void CObject::DropLayers() { layers_.reset(); }

void CObject::DropDerived() {
  calculatedValues_.clear();
  specValues_.clear();
  DropLayers();
  bufValues_.clear();
}

bool CObject::BindStdSize(CStandartSize* size, const std::wstring& libraryId, bool stampDate, bool resetValues,
                          bool checkView) {
  if (size == stdSize_) return true;
  if (resetValues) values_.clear();
  DropDerived();
  stdSize_ = size;
  if (size != nullptr) {
    SetIdentity(PacketOf(size)->GetName(), size->GetIdentifier());
    if (stampDate) StampLastChangeDate();
    if (checkView) CheckView();
  }
  libraryId_ = libraryId;
  return true;
}

void CObject::StampLastChangeDate() {
  CFolderTable* table = TableOf(stdSize_);
  CAttribute* attribute = table->FindAttribute(kLastChangeDate);
  ValueView date{};
  if (attribute != nullptr && table->_GetValue(attribute, stdSize_, date, kDefaultNumberFormat)) {
    values_[kLastChangeDate] = MakeValue(date);
  }
}

void CObject::CopyFrom(const CObject& source) {
  // Copied before anything is dropped, so that an object made a copy of
  // itself keeps what it had.
  ValueMap values = source.values_;
  BlockMap blocks = source.bufValues_;
  std::wstring packetName = source.packetName_, stdSizeId = source.stdSizeId_;
  std::wstring viewName = source.viewName_, libraryId = source.libraryId_;
  const std::uint32_t viewType = source.viewType_;
  stdSize_ = source.stdSize_;
  DropDerived();
  values_ = std::move(values);
  bufValues_ = std::move(blocks);
  SetIdentity(std::move(packetName), std::move(stdSizeId));
  SetView(std::move(viewName), viewType);
  libraryId_ = std::move(libraryId);
}

bool CObject::_Initialize(const CObject& source) {
  if (source.stdSize_ == nullptr) {
    Report(L"Перед использованием передаваемый объект следует инициализировать типоразмером", "CObject::_Initialize");
    return false;
  }
  CopyFrom(source);
  return true;
}

void CObject::ChangeStdSize(CStandartSize* size) {
  if (size == stdSize_) return;
  stdSize_ = size;
  SetIdentity(PacketOf(size)->GetName(), size->GetIdentifier());
}

bool CObject::_GetValue(CAttribute* attribute, ValueView& out, const NumberFormat& format) {
  out = ValueView{};
  if (!MayUse(attribute, kGetValue)) return false;
  if (const CFormula* tree = attribute->GetFormulaTree()) {
    CObjectFormulaHelper helper(this);
    Value result;
    tree->Evaluate(result, helper, format);
    out = MakeValueView(calculatedValues_[attribute->GetNumber()] = std::move(result));
    return true;
  }
  const auto own = values_.find(attribute->GetName());
  if (own != values_.end()) {
    out = MakeValueView(own->second);
    return true;
  }
  return TableOf(stdSize_)->_GetValue(attribute, stdSize_, out, format);
}

bool CObject::_GetValueByName(const std::wstring& name, ValueView& out, const NumberFormat& format) {
  out = ValueView{};
  if (!Bound(kGetValue)) return false;
  CAttribute* attribute = TableOf(stdSize_)->FindAttribute(name);
  if (attribute == nullptr) {
    Report(L"Не найден атрибут по имени " + name, kGetValue);
    return false;
  }
  return _GetValue(attribute, out, format);
}

bool CObject::Assign(const CAttribute* attribute, const Value& value) {
  const CFormula* tree = attribute->GetFormulaTree();
  if (tree == nullptr) {
    values_[attribute->GetName()] = value;
    return true;
  }
  CObjectFormulaHelper helper(this);
  if (tree->SetValue(helper, value)) return true;
  Report(L"Формуле нельзя задать значение, name = " + attribute->GetName() + L", formula = " + attribute->GetFormula(),
         kSetValue);
  return false;
}

bool CObject::_SetValue(CAttribute* attribute, const Value& value) {
  return MayUse(attribute, kSetValue) && Assign(attribute, value);
}

bool CObject::_SetValueText(CAttribute* attribute, const std::wstring& text) {
  if (!MayUse(attribute, kSetValue)) return false;
  switch (attribute->GetType()) {
    case LX_VALUE_DOUBLE:
      return Assign(attribute, Value(StringToDouble(text, 0.0)));
    case LX_VALUE_INT: {
      std::int32_t number = 0;
      if (!ParseWholeInt32(text, number)) number = 0;
      return Assign(attribute, Value(number));
    }
    default:
      return Assign(attribute, Value(text));
  }
}

bool CObject::_RestoreValue(CAttribute* attribute) {
  if (!MayUse(attribute, "CObject::_RestoreValue")) return false;
  values_.erase(attribute->GetName());
  return true;
}

bool CObject::_RestoreAllValues() {
  if (!Bound("CObject::_RestoreAllValues")) return false;
  const auto date = values_.find(kLastChangeDate);
  Value kept = date != values_.end() ? std::move(date->second) : Value{};
  values_.clear();
  if (IsString(kept)) values_.emplace(kLastChangeDate, std::move(kept));
  return true;
}

std::unique_ptr<CObject> CObject::_Clone() const {
  if (!Bound("CObject::_Clone")) return nullptr;
  auto copy = std::make_unique<CObject>();
  copy->CopyFrom(*this);
  return copy;
}

bool CObject::_GetSpecValue(CSpec* spec, std::int32_t columnNumber, ValueView& out, const NumberFormat& format) {
  constexpr const char* kMethod = "CObject::_GetSpecValue";
  out = ValueView{};
  if (!Bound(kMethod)) return false;
  const CSpec::Column* column = spec->GetColumnByNum(columnNumber);
  if (column == nullptr) {
    Report(L"Не найдена колонка " + std::to_wstring(columnNumber) + L" в спецификации " +
               std::to_wstring(spec->GetStyleNumber()),
           kMethod);
    return false;
  }
  CObjectFormulaHelper helper(this);
  Value result;
  if (column->formula != nullptr) column->formula->Evaluate(result, helper, format);
  out = MakeValueView(specValues_[SpecKey(spec->GetStyleNumber(), columnNumber)] = std::move(result));
  return true;
}

bool CObject::CompareByValues(const CObject& other) const {
  if (this == &other) return true;
  if (stdSize_ == nullptr || stdSize_ != other.stdSize_ || values_.size() != other.values_.size()) return false;
  for (auto left = values_.begin(), right = other.values_.begin(); left != values_.end(); ++left, ++right) {
    if (left->first != right->first || !ValuesEqual(MakeValueView(left->second), MakeValueView(right->second))) {
      return false;
    }
  }
  return true;
}

std::wstring CObject::GenerateCacheId() const {
  if (stdSize_ == nullptr) return {};
  const CPacket* packet = PacketOf(stdSize_);
  return std::wstring(Stem(packet->Store().DatabaseName())) + packet->GetName() + stdSize_->GetIdentifier();
}

void CObject::SetBufValue(const std::wstring& name, const unsigned char* data, std::int32_t size) {
  bufValues_.erase(name);
  if (data != nullptr && size > 0) bufValues_.emplace(name, std::vector<unsigned char>(data, data + size));
}

bool CObject::GetBufValue(const std::wstring& name, unsigned char** data, std::int32_t* size) {
  const auto found = bufValues_.find(name);
  if (found == bufValues_.end()) {
    *data = nullptr;
    *size = 0;
    return false;
  }
  *data = found->second.data();
  *size = static_cast<std::int32_t>(found->second.size());
  return true;
}
