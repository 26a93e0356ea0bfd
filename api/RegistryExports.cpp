// Exports of the registry and the progress record.
#include "LxDataAccess.h"
#include "api/CLxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/LibraryState.h"
#include "api/StaticText.h"

using lx_api::CallFrame;
using lx_api::Obj;
using lx_api::ToHandle;

// The registry's string arguments are the caller's duty: they are not tested
// for null.

LX_API LxProviderPool* lxGetLibraryProviderPool(const wchar_t* libraryName) {
  return CallFrame("lx_api::lxGetLibraryProviderPool").Call([&] {
    return ToHandle(CLxDataAccess::GetPool(libraryName));
  });
}

LX_API LxProviderPool* lxGetLibraryProviderPoolForUlbPath(const wchar_t* ulbPath) {
  return CallFrame("lx_api::lxGetLibraryProviderPoolForUlbPath").Call([&] {
    return ToHandle(CLxDataAccess::GetPoolForUlbPath(ulbPath));
  });
}

LX_API LxProviderPool* lxAddLibraryProviderPool(const wchar_t* libraryName, const wchar_t* ulbPath) {
  return CallFrame("lx_api::lxAddLibraryProviderPool").Call([&] {
    return ToHandle(CLxDataAccess::AddPool(libraryName, ulbPath));
  });
}

LX_API const wchar_t* lxGetLibraryName(LxProviderPool* pool) {
  return CallFrame("lx_api::lxGetLibraryName").Handle(pool, "pool").Call([&] {
    static lx_api::StaticText name;
    return name.Assign(CLxDataAccess::GetLibraryName(Obj(pool)));
  });
}

LX_API bool lxDeleteProviderPool(LxProviderPool* pool) {
  return CallFrame("lxDeleteProviderPool").Handle(pool, "pool").Call([&] {
    return CLxDataAccess::_DeleteProviderPool(Obj(pool));
  });
}

// Outside the frame: no lock, no messages, nothing to fail.
LX_API void lxSetProgressControl(const LxProgressControl* control) {
  if (control == nullptr) return;
  lx_api::Progress().record = *control;
  lx_api::Progress().set = true;
}

LX_API void lxClearProgressControl(void) { lx_api::Progress().set = false; }
