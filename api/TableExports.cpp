// Exports of folder tables. None of them loads a packet: the client reached
// the table through folder_GetTable, which did.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CFolderTable.h"

LX_API bool table_IsEmpty(LxFolderTable* table) {
  return CallFrame("table_IsEmpty").Handle(table, "table").Call([&] { return Obj(table)->IsEmpty(); });
}

// Stands in the interface without a body.
LX_API bool table_Clear(LxFolderTable* table) {
  return CallFrame("table_Clear").Handle(table, "table").Call([] { return false; });
}

LX_API LxAttribute* table_AddAttribute(LxFolderTable* table, const wchar_t* name, const wchar_t* description,
                                       int32_t type) {
  return CallFrame("table_AddAttribute").Handle(table, "table").Strings(name, description).Call([&] {
    return ToHandle(Obj(table)->_AddAttribute(name, description, type, -1));
  });
}

LX_API int32_t table_GetAttributeCount(LxFolderTable* table) {
  return CallFrame("table_GetAttributeCount").Handle(table, "table").Call([&] {
    return Obj(table)->GetAttributeCount();
  });
}

LX_API LxAttribute* table_GetAttribute(LxFolderTable* table, int32_t index) {
  return CallFrame("table_GetAttribute").Handle(table, "table").Call([&] {
    return ToHandle(Obj(table)->_GetAttribute(index));
  });
}

LX_API LxAttribute* table_FindAttribute(LxFolderTable* table, const wchar_t* name) {
  return CallFrame("table_FindAttribute").Handle(table, "table").Strings(name).Call([&] {
    return ToHandle(Obj(table)->FindAttribute(name));
  });
}

LX_API bool table_DeleteAttribute(LxFolderTable* table, LxAttribute* attribute) {
  return CallFrame("table_DeleteAttribute").Handle(table, "table").Handle(attribute, "attribute").Call([&] {
    return Obj(table)->_DeleteAttribute(Obj(attribute));
  });
}

LX_API LxStdSize* table_AddStdSize(LxFolderTable* table, const wchar_t* identifier) {
  return CallFrame("table_AddStdSize").Handle(table, "table").Strings(identifier).Call([&] {
    return ToHandle(Obj(table)->_AddStdSize(identifier));
  });
}

LX_API int32_t table_GetStdSizeCount(LxFolderTable* table) {
  return CallFrame("table_GetStdSizeCount").Handle(table, "table").Call([&] { return Obj(table)->GetStdSizeCount(); });
}

LX_API LxStdSize* table_GetStdSize(LxFolderTable* table, int32_t index) {
  return CallFrame("table_GetStdSize").Handle(table, "table").Call([&] {
    return ToHandle(Obj(table)->_GetStdSize(index));
  });
}

LX_API LxStdSize* table_FindStdSize(LxFolderTable* table, const wchar_t* identifier) {
  return CallFrame("table_FindStdSize").Handle(table, "table").Strings(identifier).Call([&] {
    return ToHandle(Obj(table)->FindStdSize(identifier));
  });
}

LX_API bool table_DeleteStdSize(LxFolderTable* table, LxStdSize* stdSize) {
  return CallFrame("table_DeleteStdSize").Handle(table, "table").Handle(stdSize, "stdSize").Call([&] {
    return Obj(table)->_DeleteStdSize(Obj(stdSize));
  });
}

LX_API LxFolder* table_GetFolder(LxFolderTable* table) {
  return CallFrame("table_GetFolder").Handle(table, "table").Call([&] { return ToHandle(Obj(table)->GetFolder()); });
}
