#include "catalog/CAttribute.h"

#include "platform/Report.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CFolder.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/TemplateAttribute.h"
#include "formula/FormulaParser.h"
#include "catalog/ICatalogStore.h"

namespace {

// A formula that does not parse leaves the attribute without a tree; its
// text stays, and reads treat it as plain.
FormulaPtr ParseOrNull(const std::wstring& formula) {
  if (formula.empty()) return nullptr;
  try {
    return ParseTextFormula(formula);
  } catch (...) {
    return nullptr;
  }
}

}  // namespace

CAttribute::CAttribute(const TemplateAttribute& record, CFolderTable* table)
    : name_(record.name),
      number_(record.number),
      oldNumber_(record.oldNumber),
      type_(static_cast<std::int32_t>(record.value.index())),
      description_(record.description),
      measure_(record.measure),
      varName_(record.varName),
      formula_(record.formula),
      formulaTree_(ParseOrNull(record.formula)),
      table_(table) {}

CAttribute::~CAttribute() = default;

bool CAttribute::CanEditFormulaValue() const { return formulaTree_ == nullptr || formulaTree_->CanEditValue(); }

void CAttribute::UpdateRecords(const std::function<void(TemplateAttribute&)>& change) {
  for (std::size_t i = 0; i < table_->TemplateCount(); ++i) {
    if (TemplateAttribute* record = table_->Template(i)->FindRecord(number_)) change(*record);
  }
}

bool CAttribute::OtherHas(const std::function<const std::wstring&(const CAttribute&)>& field,
                          const std::wstring& value) const {
  AttributeContainer& columns = table_->Attributes();
  for (std::size_t i = 0; i < columns.Count(); ++i) {
    const CAttribute* other = columns.At(i);
    if (other != this && field(*other) == value) return true;
  }
  return false;
}

bool CAttribute::_SetName(const std::wstring& name) {
  constexpr const char* kMethod = "CAttribute::_SetName";
  if (name.empty()) {
    Report(L"Имя не может быть пустым", kMethod);
    return false;
  }
  if (name == name_) return true;
  if (OtherHas([](const CAttribute& a) -> const std::wstring& { return a.name_; }, name)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' новое имя '" + name + L"', т.к. уже есть такой атрибут",
                   kMethod);
    return false;
  }
  const std::int32_t id = table_->Store().GetAttributeNameId(name);
  if (id == 0) {
    Report(L"Не смогли получить Id для имени '" + name + L"' из-за проблем с базой", kMethod);
    return false;
  }
  if (!table_->Store().SetAttributeParam(this, "ATTRIBUTENAMEID", id)) {
    Report(L"Не смогли переимновать атрибут '" + name_ + L"' из-за проблем с базой", kMethod);
    return false;
  }
  name_ = name;
  UpdateRecords([&name](TemplateAttribute& record) { record.name = name; });
  if (onUpdate_) onUpdate_(this, ATR_UPDATE_NAME);
  return true;
}

bool CAttribute::_SetDescription(const std::wstring& description) {
  constexpr const char* kMethod = "CAttribute::_SetDescription";
  if (description.empty()) {
    Report(L"Описание не может быть пустым", kMethod);
    return false;
  }
  if (description == description_) return true;
  if (OtherHas([](const CAttribute& a) -> const std::wstring& { return a.description_; }, description)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' новое описание '" + description +
                       L"', т.к. уже есть атрибут с таким описанием",
                   kMethod);
    return false;
  }
  const std::int32_t id = table_->Store().GetAttributeDescriptionId(description);
  if (id == 0) {
    Report(L"Не смогли получить Id для описания '" + description + L"' из-за проблем с базой", kMethod);
    return false;
  }
  if (!table_->Store().SetAttributeParam(this, "ATTRIBUTEDESCRIPTIONID", id)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' описание '" + description + L"' из-за проблем с базой",
                   kMethod);
    return false;
  }
  description_ = description;
  UpdateRecords([&description](TemplateAttribute& record) { record.description = description; });
  return true;
}

bool CAttribute::_SetNumber(std::int32_t number) {
  constexpr const char* kMethod = "CAttribute::_SetNumber";
  if (number == number_) return true;
  const std::wstring shown = std::to_wstring(number);
  AttributeContainer& columns = table_->Attributes();
  for (std::size_t i = 0; i < columns.Count(); ++i) {
    if (columns.At(i) != this && columns.At(i)->number_ == number) {
      Report(L"Не смогли задать атрибуту '" + name_ + L"' номер '" + shown +
                         L"', т.к. уже есть атрибут с таким номером",
                     kMethod);
      return false;
    }
  }
  // The rows are found by the present number, so it changes last.
  if (!table_->Store().SetAttributeParam(this, "NUMBER", number)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' номер '" + shown + L"' из-за проблем с базой", kMethod);
    return false;
  }
  UpdateRecords([number](TemplateAttribute& record) { record.number = number; });
  number_ = number;
  if (onUpdate_) onUpdate_(this, ATR_UPDATE_NUMBER);
  return true;
}

bool CAttribute::_SetOldNumber(std::int32_t oldNumber) {
  if (oldNumber == oldNumber_) return true;
  if (!table_->Store().SetAttributeParam(this, "OLD_NUMBER", oldNumber)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' 'old' номер '" + std::to_wstring(oldNumber) +
                       L"' из-за проблем с базой",
                   "CAttribute::_SetOldNumber");
    return false;
  }
  oldNumber_ = oldNumber;
  UpdateRecords([oldNumber](TemplateAttribute& record) { record.oldNumber = oldNumber; });
  return true;
}

bool CAttribute::_SetMeasure(const std::wstring& measure) {
  if (measure == measure_) return true;
  if (!table_->Store().SetAttributeParam(this, "MEASURE", measure)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' единицу измерения '" + measure +
                       L"' из-за проблем с базой",
                   "CAttribute::_SetMeasure");
    return false;
  }
  measure_ = measure;
  UpdateRecords([&measure](TemplateAttribute& record) { record.measure = measure; });
  return true;
}

bool CAttribute::_SetVarName(const std::wstring& varName) {
  constexpr const char* kMethod = "CAttribute::_SetVarName";
  if (varName == varName_) return true;
  if (!varName.empty() && OtherHas([](const CAttribute& a) -> const std::wstring& { return a.varName_; }, varName)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' имя переменной '" + varName +
                       L"', т.к. уже есть атрибут с таким именем переменной",
                   kMethod);
    return false;
  }
  if (!table_->Store().SetAttributeParam(this, "VARNAME", varName)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' имя переменной '" + varName + L"' из-за проблем с базой",
                   kMethod);
    return false;
  }
  varName_ = varName;
  UpdateRecords([&varName](TemplateAttribute& record) { record.varName = varName; });
  return true;
}

bool CAttribute::_SetFormula(const std::wstring& formula) {
  constexpr const char* kMethod = "CAttribute::_SetFormula";
  FormulaPtr tree;
  if (!formula.empty()) {
    try {
      tree = ParseTextFormula(formula);
    } catch (...) {
      Report(L"Проблема при расшифровке формулы " + formula, kMethod);
      return false;
    }
  }
  if (!table_->Store().SetAttributeParam(this, "FORMULA", formula)) {
    Report(L"Не смогли задать атрибуту '" + name_ + L"' формулу '" + formula + L"' из-за проблем с базой",
                   kMethod);
    return false;
  }
  formulaTree_ = std::move(tree);
  formula_ = formula;
  UpdateRecords([&formula](TemplateAttribute& record) { record.formula = formula; });
  return true;
}

bool CAttribute::_SetType(std::int32_t type) {
  constexpr const char* kMethod = "CAttribute::_SetType";
  if (type == type_) return true;
  if (type == LX_VALUE_EMPTY) {
    Report(L"Для атрибута задается неверный тип", kMethod);
    return false;
  }
  if (formula_.empty()) {
    for (std::size_t i = 0; i < table_->TemplateCount(); ++i) {
      CTemplate* entry = table_->Template(i);
      const TemplateAttribute* record = entry->FindRecord(number_);
      if (record != nullptr && !IsEmpty(record->value)) {
        Report(L"Для атрибута нельзя сменить тип, т.к. в шаблоне хранится его значение", kMethod);
        return false;
      }
      for (std::size_t s = 0; s < entry->SizeCount(); ++s) {
        if (entry->Size(s)->Values().count(number_) != 0) {
          Report(L"Для атрибута нельзя сменить тип, т.к. в типоразмере хранится его значение", kMethod);
          return false;
        }
      }
    }
  }
  if (!table_->Store().SetAttributeParam(this, "ATTRTYPE", type)) {
    Report(L"Не смогли сменить тип атрибута", kMethod);
    return false;
  }
  type_ = type;
  UpdateRecords([type](TemplateAttribute& record) { SetDefaultOfType(record.value, type); });
  return true;
}
