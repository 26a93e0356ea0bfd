// Exports of standard sizes: identity, values and the template's type.
#include <stdexcept>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CAttribute.h"
#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "content/CStdFiles.h"
#include "content/CStdModel.h"
#include "content/CStdProjs.h"
#include "content/TemplateContent.h"
#include "formula/NumberText.h"

namespace {

CFolderTable* TableOf(LxStdSize* stdSize) { return Obj(stdSize)->GetTemplate()->GetTable(); }

bool SetValue(const char* function, LxStdSize* stdSize, LxAttribute* attribute, const Value& value) {
  return CallFrame(function).Handle(stdSize, "stdSize").Handle(attribute, "attribute").Call([&] {
    return TableOf(stdSize)->_SetValue(Obj(attribute), Obj(stdSize), value);
  });
}

}  // namespace

LX_API const wchar_t* stdsize_GetID(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetID").Handle(stdSize, "stdSize").Call([&] {
    return Obj(stdSize)->GetIdentifier().c_str();
  });
}

// The identifier of a size cannot change.
LX_API bool stdsize_SetID(LxStdSize* stdSize, const wchar_t* identifier) {
  return CallFrame("stdsize_SetID").Handle(stdSize, "stdSize").Strings(identifier).Call([]() -> bool {
    throw std::logic_error("The method or operation is not implemented.");
  });
}

LX_API bool stdsize_GetValue(LxStdSize* stdSize, LxAttribute* attribute, const NumberFormat* format, ValueView* view) {
  return CallFrame("stdsize_GetValue").Handle(stdSize, "stdSize").Handle(attribute, "attribute").Call([&] {
    if (view == nullptr) return false;
    return TableOf(stdSize)->_GetValue(Obj(attribute), Obj(stdSize), *view, FormatOrDefault(format));
  });
}

LX_API bool stdsize_GetValueByName(LxStdSize* stdSize, const wchar_t* name, const NumberFormat* format,
                                   ValueView* view) {
  return CallFrame("stdsize_GetValueByName").Handle(stdSize, "stdSize").Strings(name).Call([&] {
    if (view == nullptr) return false;
    *view = ValueView{};
    CFolderTable* table = TableOf(stdSize);
    CAttribute* attribute = table->FindAttribute(name);
    return attribute != nullptr && table->_GetValue(attribute, Obj(stdSize), *view, FormatOrDefault(format));
  });
}

LX_API bool stdsize_SetValueI(LxStdSize* stdSize, LxAttribute* attribute, int32_t value) {
  return SetValue("stdsize_SetValueI", stdSize, attribute, Value(value));
}

LX_API bool stdsize_SetValueD(LxStdSize* stdSize, LxAttribute* attribute, double value) {
  return SetValue("stdsize_SetValueD", stdSize, attribute, Value(value));
}

LX_API bool stdsize_SetValueS(LxStdSize* stdSize, LxAttribute* attribute, const wchar_t* value) {
  return CallFrame("stdsize_SetValueS").Handle(stdSize, "stdSize").Handle(attribute, "attribute").Strings(value).Call([&] {
    return TableOf(stdSize)->_SetValue(Obj(attribute), Obj(stdSize), Value(std::wstring(value)));
  });
}

LX_API bool stdsize_RemoveValue(LxStdSize* stdSize, LxAttribute* attribute) {
  return CallFrame("stdsize_RemoveValue").Handle(stdSize, "stdSize").Handle(attribute, "attribute").Call([&] {
    return TableOf(stdSize)->_RemoveValue(Obj(attribute), Obj(stdSize));
  });
}

LX_API LxFolderTable* stdsize_GetTable(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetTable").Handle(stdSize, "stdSize").Call([&] { return ToHandle(TableOf(stdSize)); });
}

LX_API int32_t stdsize_GetAttributeCount(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetAttributeCount").Handle(stdSize, "stdSize").Call([&] {
    return static_cast<int32_t>(Obj(stdSize)->GetTemplate()->Records().size());
  });
}

// A bad index is an out-of-range exception, not a range report.
LX_API const wchar_t* stdsize_GetAttributeName(LxStdSize* stdSize, int32_t index) {
  return CallFrame("stdsize_GetAttributeName").Handle(stdSize, "stdSize").Call([&] {
    return Obj(stdSize)->GetTemplate()->Records().at(static_cast<std::size_t>(index)).name.c_str();
  });
}

LX_API const wchar_t* stdsize_GetType(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetType").Handle(stdSize, "stdSize").Call([&] {
    return Obj(stdSize)->GetTemplate()->GetType().c_str();
  });
}

LX_API bool stdsize_SetType(LxStdSize* stdSize, const wchar_t* type) {
  return CallFrame("stdsize_SetType").Handle(stdSize, "stdSize").Strings(type).Call([&] {
    return Obj(stdSize)->_SetType(type);
  });
}

LX_API int32_t stdsize_GetTemplateID(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetTemplateID").Handle(stdSize, "stdSize").Call([&] {
    return Obj(stdSize)->GetTemplate()->GetId();
  });
}

LX_API LxModel* stdsize_GetModel(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetModel").Handle(stdSize, "stdSize").Call([&] {
    return ToHandle(CStdModel::Of(Obj(stdSize)));
  });
}

LX_API LxProjections* stdsize_GetProjections(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetProjections").Handle(stdSize, "stdSize").Call([&] {
    return ToHandle(CStdProjs::Of(Obj(stdSize)));
  });
}

LX_API LxFiles* stdsize_GetFiles(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetFiles").Handle(stdSize, "stdSize").Call([&] {
    return ToHandle(CStdFiles::Of(Obj(stdSize)));
  });
}

LX_API int32_t stdsize_GetSpecificationCount(LxStdSize* stdSize) {
  return CallFrame("stdsize_GetSpecificationCount").Handle(stdSize, "stdSize").Call([&] {
    return GetSpecificationCount(Obj(stdSize));
  });
}

LX_API LxSpec* stdsize_GetSpecification(LxStdSize* stdSize, int32_t index) {
  return CallFrame("stdsize_GetSpecification").Handle(stdSize, "stdSize").Call([&] {
    return ToHandle(GetSpecification(Obj(stdSize), index));
  });
}

LX_API bool stdsize_GetRepresentationData(LxStdSize* stdSize, unsigned char** data, int32_t* size) {
  return CallFrame("stdsize_GetRepresentationData").Handle(stdSize, "stdSize").Call([&] {
    return data != nullptr && size != nullptr && GetRepresentationData(Obj(stdSize), data, size);
  });
}

// No bytes to read from, or a negative count, is refused before any work.
LX_API bool stdsize_SetRepresentationData(LxStdSize* stdSize, unsigned char* data, int32_t size) {
  return CallFrame("stdsize_SetRepresentationData").Handle(stdSize, "stdSize").Call([&] {
    return data != nullptr && size >= 0 && SetRepresentationData(Obj(stdSize), data, size);
  });
}
