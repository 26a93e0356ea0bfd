// Exports of folders.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CFolder.h"
#include "catalog/CPacket.h"

LX_API const wchar_t* folder_GetName(LxFolder* folder) {
  return CallFrame("folder_GetName").Handle(folder, "folder").Call([&] { return Obj(folder)->GetName().c_str(); });
}

LX_API bool folder_SetName(LxFolder* folder, const wchar_t* name) {
  return CallFrame("folder_SetName").Handle(folder, "folder").Strings(name).Call([&] {
    return CPacket::_RenameFolder(Obj(folder), name);
  });
}

LX_API LxFolder* folder_AddChildFolder(LxFolder* folder, const wchar_t* name) {
  return CallFrame("folder_AddChildFolder").Handle(folder, "folder").Strings(name).Call([&] {
    return ToHandle(Obj(folder)->_AddChildFolder(name));
  });
}

LX_API int32_t folder_GetChildFolderCount(LxFolder* folder) {
  return CallFrame("folder_GetChildFolderCount").Handle(folder, "folder").Call([&] {
    return Obj(folder)->_GetChildFolderCount();
  });
}

LX_API LxFolder* folder_GetChildFolder(LxFolder* folder, int32_t index) {
  return CallFrame("folder_GetChildFolder").Handle(folder, "folder").Call([&] {
    return ToHandle(Obj(folder)->_GetChildFolder(index));
  });
}

LX_API bool folder_DeleteChildFolder(LxFolder* folder, LxFolder* childFolder) {
  return CallFrame("folder_DeleteChildFolder").Handle(folder, "folder").Handle(childFolder, "childFolder").Call([&] {
    return Obj(folder)->_DeleteChildFolder(Obj(childFolder));
  });
}

LX_API bool folder_IsVirtual(LxFolder* folder) {
  return CallFrame("lx_api::folder_IsVirtual").Handle(folder, "folder").Call([&] { return Obj(folder)->IsVirtual(); });
}

LX_API LxFolderTable* folder_GetTable(LxFolder* folder) {
  return CallFrame("folder_GetTable").Handle(folder, "folder").Call([&] { return ToHandle(Obj(folder)->_GetTable()); });
}

LX_API LxFolder* folder_GetParentFolder(LxFolder* folder) {
  return CallFrame("folder_GetParentFolder").Handle(folder, "folder").Call([&] {
    return ToHandle(Obj(folder)->GetParent());
  });
}

LX_API LxPacket* folder_GetPacket(LxFolder* folder) {
  return CallFrame("folder_GetPacket").Handle(folder, "folder").Call([&] { return ToHandle(Obj(folder)->GetPacket()); });
}

LX_API bool folder_MoveTo(LxFolder* folder, LxFolder* parentFolder) {
  return CallFrame("folder_MoveTo").Handle(folder, "folder").Handle(parentFolder, "parentFolder").Call([&] {
    return Obj(folder)->_MoveTo(Obj(parentFolder));
  });
}
