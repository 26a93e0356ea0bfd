#include "FormulaPrinter.h"

#include <charconv>

#include "formula/CAttributeFormula.h"
#include "formula/CCalcFormula.h"
#include "formula/CFunctionFormula.h"
#include "formula/CLogicFormula.h"
#include "formula/CNamedAttributeFormula.h"
#include "formula/CSingleValueFormula.h"

namespace {

std::wstring PrintDouble(double number) {
  char buffer[64];
  const auto printed = std::to_chars(buffer, buffer + sizeof buffer, number);
  return L"d:" + std::wstring(buffer, printed.ptr);
}

std::wstring PrintConstant(const Value& value) {
  switch (value.index()) {
    case LX_VALUE_INT:
      return std::to_wstring(std::get<LX_VALUE_INT>(value));
    case LX_VALUE_DOUBLE:
      return PrintDouble(std::get<LX_VALUE_DOUBLE>(value));
    case LX_VALUE_STRING:
      return L"\"" + std::get<LX_VALUE_STRING>(value) + L"\"";
    default:
      return L"empty";
  }
}

const wchar_t* LogicText(LogicOperation operation) {
  switch (operation) {
    case LogicOperation::Equal: return L"==";
    case LogicOperation::NotEqual: return L"!=";
    case LogicOperation::Greater: return L">";
    case LogicOperation::GreaterOrEqual: return L">=";
    case LogicOperation::Less: return L"<";
    case LogicOperation::LessOrEqual: return L"<=";
    case LogicOperation::Or: return L"||";
    case LogicOperation::And: return L"&&";
    case LogicOperation::BitsInCommon: return L"^^";
    case LogicOperation::Like: return L"%";
    case LogicOperation::NotLike: return L"!%";
  }
  return L"?";
}

std::wstring PrintList(const std::wstring& head, const CComplexFormula& list) {
  std::wstring text = head + L"(";
  const wchar_t* separator = L"";
  for (const FormulaPtr& child : list.Children()) {
    text += separator;
    text += PrintFormula(child.get());
    separator = L", ";
  }
  return text + L")";
}

}  // namespace

std::wstring PrintFormula(const CFormula* formula) {
  if (formula == nullptr) return L"null";
  if (auto* constant = dynamic_cast<const CSingleValueFormula*>(formula)) return PrintConstant(constant->GetValue());
  if (auto* byNumber = dynamic_cast<const CAttributeFormula*>(formula)) {
    return L"A" + std::to_wstring(byNumber->AttributeNumber());
  }
  if (auto* byName = dynamic_cast<const CNamedAttributeFormula*>(formula)) return L"[" + byName->Name() + L"]";
  if (auto* calc = dynamic_cast<const CCalcFormula*>(formula)) {
    return L"(" + PrintFormula(&calc->Left()) + L" " + calc->Operation() + L" " + PrintFormula(&calc->Right()) + L")";
  }
  if (auto* call = dynamic_cast<const CFunctionFormula*>(formula)) return PrintList(call->Name(), *call);
  if (auto* logic = dynamic_cast<const CLogicFormula*>(formula)) {
    return L"(" + PrintFormula(&logic->Left()) + L" " + LogicText(logic->Operation()) + L" " +
           PrintFormula(&logic->Right()) + L")";
  }
  if (auto* joined = dynamic_cast<const CComplexFormula*>(formula)) return PrintList(L"concat", *joined);
  return L"unknown";
}
