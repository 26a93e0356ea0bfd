// Exports of attributes (the columns of a folder table).
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CAttribute.h"

namespace {

// A getter of one text field: no checks beyond the handle.
template <typename Getter>
const wchar_t* TextField(const char* function, LxAttribute* attribute, Getter getter) {
  return CallFrame(function).Handle(attribute, "attribute").Call([&] { return (Obj(attribute)->*getter)().c_str(); });
}

template <typename Getter>
int32_t NumberField(const char* function, LxAttribute* attribute, Getter getter) {
  return CallFrame(function).Handle(attribute, "attribute").Call([&] { return (Obj(attribute)->*getter)(); });
}

template <typename Setter>
bool SetText(const char* function, LxAttribute* attribute, const wchar_t* text, Setter setter) {
  return CallFrame(function).Handle(attribute, "attribute").Strings(text).Call([&] {
    return (Obj(attribute)->*setter)(text);
  });
}

template <typename Setter>
bool SetNumber(const char* function, LxAttribute* attribute, int32_t number, Setter setter) {
  return CallFrame(function).Handle(attribute, "attribute").Call([&] { return (Obj(attribute)->*setter)(number); });
}

}  // namespace

LX_API const wchar_t* attribute_GetName(LxAttribute* attribute) {
  return TextField("attribute_GetName", attribute, &CAttribute::GetName);
}
LX_API const wchar_t* attribute_GetDescription(LxAttribute* attribute) {
  return TextField("attribute_GetDescription", attribute, &CAttribute::GetDescription);
}
LX_API const wchar_t* attribute_GetMeasure(LxAttribute* attribute) {
  return TextField("attribute_GetMeasure", attribute, &CAttribute::GetMeasure);
}
LX_API const wchar_t* attribute_GetVarName(LxAttribute* attribute) {
  return TextField("attribute_GetVarName", attribute, &CAttribute::GetVarName);
}
LX_API const wchar_t* attribute_GetFormula(LxAttribute* attribute) {
  return TextField("attribute_GetFormula", attribute, &CAttribute::GetFormula);
}

LX_API int32_t attribute_GetType(LxAttribute* attribute) {
  return NumberField("attribute_GetType", attribute, &CAttribute::GetType);
}
LX_API int32_t attribute_GetNumber(LxAttribute* attribute) {
  return NumberField("attribute_GetNumber", attribute, &CAttribute::GetNumber);
}
LX_API int32_t attribute_GetOldNumber(LxAttribute* attribute) {
  return NumberField("attribute_GetOldNumber", attribute, &CAttribute::GetOldNumber);
}

LX_API LxFolderTable* attribute_GetTable(LxAttribute* attribute) {
  return CallFrame("attribute_GetTable").Handle(attribute, "attribute").Call([&] {
    return ToHandle(Obj(attribute)->GetTable());
  });
}

LX_API bool attribute_SetName(LxAttribute* attribute, const wchar_t* name) {
  return SetText("attribute_SetName", attribute, name, &CAttribute::_SetName);
}
LX_API bool attribute_SetDescription(LxAttribute* attribute, const wchar_t* description) {
  return SetText("attribute_SetDescription", attribute, description, &CAttribute::_SetDescription);
}
LX_API bool attribute_SetMeasure(LxAttribute* attribute, const wchar_t* measure) {
  return SetText("attribute_SetMeasure", attribute, measure, &CAttribute::_SetMeasure);
}
LX_API bool attribute_SetVarName(LxAttribute* attribute, const wchar_t* varName) {
  return SetText("attribute_SetVarName", attribute, varName, &CAttribute::_SetVarName);
}
LX_API bool attribute_SetFormula(LxAttribute* attribute, const wchar_t* formula) {
  return SetText("attribute_SetFormula", attribute, formula, &CAttribute::_SetFormula);
}

LX_API bool attribute_SetType(LxAttribute* attribute, int32_t type) {
  return SetNumber("attribute_SetType", attribute, type, &CAttribute::_SetType);
}
LX_API bool attribute_SetNumber(LxAttribute* attribute, int32_t number) {
  return SetNumber("attribute_SetNumber", attribute, number, &CAttribute::_SetNumber);
}
LX_API bool attribute_SetOldNumber(LxAttribute* attribute, int32_t oldNumber) {
  return SetNumber("attribute_SetOldNumber", attribute, oldNumber, &CAttribute::_SetOldNumber);
}

LX_API bool attribute_CanEditForumalaValue(LxAttribute* attribute) {
  return CallFrame("attribute_CanEditForumalaValue").Handle(attribute, "attribute").Call([&] {
    return Obj(attribute)->CanEditFormulaValue();
  });
}
