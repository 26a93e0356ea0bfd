// Exports of the registry and the progress record.
#include "LxDataAccess.h"
#include "api/CLxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/LibraryState.h"
#include "api/StaticText.h"

// The registry's string arguments are the caller's duty: they are not tested
// for null, and a null one ends as an unknown exception.

LX_API LxProviderPool* lxGetLibraryProviderPool(const wchar_t* libraryName) {
  return CallFrame("lx_api::lxGetLibraryProviderPool").Call([&] {
    return ToHandle(CLxDataAccess::GetPool(std::wstring(Required(libraryName))));
  });
}

LX_API LxProviderPool* lxGetLibraryProviderPoolForUlbPath(const wchar_t* ulbPath) {
  return CallFrame("lx_api::lxGetLibraryProviderPoolForUlbPath").Call([&] {
    return ToHandle(CLxDataAccess::GetPoolForUlbPath(Required(ulbPath)));
  });
}

LX_API LxProviderPool* lxAddLibraryProviderPool(const wchar_t* libraryName, const wchar_t* ulbPath) {
  return CallFrame("lx_api::lxAddLibraryProviderPool").Call([&] {
    return ToHandle(CLxDataAccess::AddPool(std::wstring(Required(libraryName)), Required(ulbPath)));
  });
}

LX_API const wchar_t* lxGetLibraryName(LxProviderPool* pool) {
  return CallFrame("lx_api::lxGetLibraryName").Handle(pool, "pool").Call([&] {
    static StaticText name;
    return name.Assign(CLxDataAccess::GetLibraryName(Obj(pool)));
  });
}

LX_API bool lxDeleteProviderPool(LxProviderPool* pool) {
  return CallFrame("lxDeleteProviderPool").Handle(pool, "pool").Call([&] {
    return CLxDataAccess::_DeleteProviderPool(Obj(pool));
  });
}

LX_API bool lxReloadProvider(const wchar_t* server, const wchar_t* database) {
  return CallFrame("lxReloadProvider").Strings(server, database).Call([&] {
    CLxDataAccess::ReloadProvider(server, database);
    return true;
  });
}

// Outside the frame: no lock, no messages, nothing to fail.
LX_API void lxSetProgressControl(const LxProgressControl* control) {
  if (control == nullptr) return;
  Progress().record = *control;
  Progress().set = true;
}

LX_API void lxClearProgressControl(void) { Progress().set = false; }
