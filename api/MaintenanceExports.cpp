// Exports that work on a database or module file; none takes a handle.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/DatabaseMaintenance.h"

LX_API bool lxCreateEmptyFDB(const wchar_t* databasePath) {
  return CallFrame("lxCreateEmptyFDB").Strings(databasePath).Call([&] {
    return DatabaseMaintenance::CreateEmptyDatabase(databasePath);
  });
}

// The next three take the caller's word that the path is a valid string.

LX_API bool lxUpdateDatabase(const wchar_t* databasePath) {
  return CallFrame("lxUpdateDatabase").Call([&] { return DatabaseMaintenance::UpdateDatabase(std::wstring(Required(databasePath))); });
}

LX_API bool lxUpdateUlb(const wchar_t* ulbPath) {
  return CallFrame("lxUpdateUlb").Call([&] { return DatabaseMaintenance::UpdateUlb(std::wstring(Required(ulbPath))); });
}

LX_API bool lxSetDatabaseReadonly(const wchar_t* databasePath, bool readOnly) {
  return CallFrame("lxSetDatabaseReadonly").Call([&] {
    return DatabaseMaintenance::SetDatabaseReadonly(std::wstring(Required(databasePath)), readOnly);
  });
}
