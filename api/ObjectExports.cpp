// Exports of placed objects: binding, values, copies and comparison.
#include <memory>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/StaticText.h"
#include "object/CObject.h"

namespace {

bool SetValue(const char* function, LxObject* object, LxAttribute* atr, const Value& value) {
  return CallFrame(function).Handle(object, "object").Handle(atr, "atr").Call([&] {
    return Obj(object)->_SetValue(Obj(atr), value);
  });
}

}  // namespace

LX_API bool object_Initialize(LxObject* object, const wchar_t* libraryId, LxStdSize* stdSize, bool resetValues) {
  return CallFrame("object_Initialize").Handle(object, "object").Handle(stdSize, "stdSize").Call([&] {
    return Obj(object)->BindStdSize(Obj(stdSize), std::wstring(Required(libraryId)), true, resetValues);
  });
}

LX_API bool object_InitializeByObject(LxObject* object, LxObject* byObject) {
  return CallFrame("object_InitializeByObject").Handle(object, "object").Handle(byObject, "byObject").Call([&] {
    return Obj(object)->_Initialize(*Obj(byObject));
  });
}

LX_API bool object_ChangeStdSize(LxObject* object, LxStdSize* stdSize) {
  return CallFrame("object_ChangeStdSize").Handle(object, "object").Handle(stdSize, "stdSize").Call([&] {
    Obj(object)->ChangeStdSize(Obj(stdSize));
    return true;
  });
}

LX_API LxStdSize* object_GetStdSize(LxObject* object) {
  return CallFrame("object_GetStdSize").Handle(object, "object").Call([&] {
    return ToHandle(Obj(object)->GetStdSize());
  });
}

LX_API const wchar_t* object_getStdSizeId(LxObject* object) {
  return CallFrame("object_getStdSizeId").Handle(object, "object").Call([&] {
    return Obj(object)->GetStdSizeId().c_str();
  });
}

LX_API const wchar_t* object_getPacketName(LxObject* object) {
  return CallFrame("object_getPacketName").Handle(object, "object").Call([&] {
    return Obj(object)->GetPacketName().c_str();
  });
}

LX_API const wchar_t* object_GetLibraryId(LxObject* object) {
  return CallFrame("lx_api::object_GetLibraryId").Handle(object, "object").Call([&] {
    return Obj(object)->GetLibraryId().c_str();
  });
}

LX_API bool object_SetLibraryId(LxObject* object, const wchar_t* libraryId) {
  return CallFrame("lx_api::object_SetLibraryId").Handle(object, "object").Call([&] {
    Obj(object)->SetLibraryId(std::wstring(Required(libraryId)));
    return true;
  });
}

LX_API bool object_GetValue(LxObject* object, LxAttribute* atr, const NumberFormat* format, ValueView* view) {
  return CallFrame("object_GetValue").Handle(object, "object").Handle(atr, "atr").Call([&] {
    return view != nullptr && Obj(object)->_GetValue(Obj(atr), *view, FormatOrDefault(format));
  });
}

LX_API bool object_GetValueByName(LxObject* object, const wchar_t* name, const NumberFormat* format,
                                  ValueView* view) {
  return CallFrame("object_GetValueByName").Handle(object, "object").Strings(name).Call([&] {
    return view != nullptr && Obj(object)->_GetValueByName(name, *view, FormatOrDefault(format));
  });
}

LX_API bool object_SetValueI(LxObject* object, LxAttribute* atr, int32_t value) {
  return SetValue("object_SetValueI", object, atr, Value(value));
}

LX_API bool object_SetValueD(LxObject* object, LxAttribute* atr, double value) {
  return SetValue("object_SetValueD", object, atr, Value(value));
}

LX_API bool object_SetValueS(LxObject* object, LxAttribute* atr, const wchar_t* value) {
  return CallFrame("object_SetValueS").Handle(object, "object").Handle(atr, "atr").Call([&] {
    return Obj(object)->_SetValueText(Obj(atr), std::wstring(Required(value)));
  });
}

LX_API bool object_RestoreValue(LxObject* object, LxAttribute* atr) {
  return CallFrame("object_RestoreValue").Handle(object, "object").Handle(atr, "atr").Call([&] {
    return Obj(object)->_RestoreValue(Obj(atr));
  });
}

LX_API bool object_RestoreAllValues(LxObject* object) {
  return CallFrame("object_RestoreAllValues").Handle(object, "object").Call([&] {
    return Obj(object)->_RestoreAllValues();
  });
}

LX_API LxObject* object_Clone(LxObject* object) {
  return CallFrame("object_Clone").Handle(object, "object").Call([&] {
    return ToHandle(Obj(object)->_Clone().release());
  });
}

LX_API bool object_GetSpecValue(LxObject* object, LxSpec* spec, int32_t columnNumber, const NumberFormat* format,
                                ValueView* view) {
  return CallFrame("object_GetSpecValue").Handle(object, "object").Handle(spec, "spec").Call([&] {
    return view != nullptr && Obj(object)->_GetSpecValue(Obj(spec), columnNumber, *view, FormatOrDefault(format));
  });
}

LX_API bool object_compareByValues(LxObject* object, LxObject* otherObject) {
  return CallFrame("object_compareByValues").Handle(object, "object").Handle(otherObject, "otherObject").Call([&] {
    return Obj(object)->CompareByValues(*Obj(otherObject));
  });
}

LX_API const wchar_t* object_generateCacheId(LxObject* object) {
  return CallFrame("object_generateCacheId").Handle(object, "object").Call([&] {
    static StaticText cacheId;
    return cacheId.Assign(Obj(object)->GenerateCacheId());
  });
}

LX_API bool object_Delete(LxObject* object) {
  return CallFrame("object_Delete").Handle(object, "object").Call([&] {
    std::unique_ptr<CObject> owned(Obj(object));
    return true;
  });
}
