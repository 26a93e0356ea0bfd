// CAttribute: a column of a folder table as the client holds it. Every
// template of the table carries its own copy (a TemplateAttribute), and a
// setter writes the OBJECTATTRIBUTE row of this number in every template of
// the folder, then updates the column and all copies in memory.
//
// Owned by its table's AttributeContainer. Not thread-safe: every use runs
// under the frame lock.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "formula/CFormula.h"

class CFolderTable;
struct TemplateAttribute;

// What changed, for the table's indexes: they are keyed by name and number.
enum ATR_UPDTE_TYPE { ATR_UPDATE_NAME = 0, ATR_UPDATE_NUMBER = 1 };

class CAttribute {
 public:
  using UpdateCallback = std::function<void(CAttribute*, ATR_UPDTE_TYPE)>;

  // Takes number, old number, texts and, from the value's kind, the type. A
  // formula that does not parse keeps its text and gets no tree.
  CAttribute(const TemplateAttribute& record, CFolderTable* table);
  ~CAttribute();

  CAttribute(const CAttribute&) = delete;
  CAttribute& operator=(const CAttribute&) = delete;

  const std::wstring& GetName() const { return name_; }
  std::int32_t GetNumber() const { return number_; }
  std::int32_t GetOldNumber() const { return oldNumber_; }
  std::int32_t GetType() const { return type_; }
  const std::wstring& GetDescription() const { return description_; }
  const std::wstring& GetMeasure() const { return measure_; }
  const std::wstring& GetVarName() const { return varName_; }
  const std::wstring& GetFormula() const { return formula_; }
  const CFormula* GetFormulaTree() const { return formulaTree_.get(); }
  CFolderTable* GetTable() const { return table_; }
  // True for a plain attribute, else whether the tree can take a value.
  bool CanEditFormulaValue() const;

  void SetUpdateCallback(UpdateCallback callback) { onUpdate_ = std::move(callback); }

  bool _SetName(const std::wstring& name);
  bool _SetDescription(const std::wstring& description);
  bool _SetNumber(std::int32_t number);
  bool _SetOldNumber(std::int32_t oldNumber);
  bool _SetMeasure(const std::wstring& measure);
  bool _SetVarName(const std::wstring& varName);
  bool _SetFormula(const std::wstring& formula);
  bool _SetType(std::int32_t type);

 private:
  // Applies `change` to this number's record in every template of the table.
  void UpdateRecords(const std::function<void(TemplateAttribute&)>& change);
  // True when another attribute of the table has `field` equal to `value`.
  bool OtherHas(const std::function<const std::wstring&(const CAttribute&)>& field, const std::wstring& value) const;

  std::wstring name_;
  std::int32_t number_;
  std::int32_t oldNumber_;
  std::int32_t type_;
  std::wstring description_;
  std::wstring measure_;
  std::wstring varName_;
  std::wstring formula_;
  FormulaPtr formulaTree_;
  CFolderTable* table_;
  UpdateCallback onUpdate_;
};
