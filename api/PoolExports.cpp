// Exports of the provider pool.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "storage/CProviderPool.h"

LX_API LxDataProvider* pool_AddProvider(LxProviderPool* pool, const wchar_t* server, const wchar_t* database,
                                        const wchar_t* user, const wchar_t* password) {
  return CallFrame("pool_AddProvider").Handle(pool, "pool").Strings(server, database, user, password).Call([&] {
    return ToHandle(Obj(pool)->_AddProvider(server, database, user, password));
  });
}

LX_API LxDataProvider* pool_FindProvider(LxProviderPool* pool, const wchar_t* server, const wchar_t* database,
                                         const wchar_t* user) {
  return CallFrame("pool_FindProvider").Handle(pool, "pool").Strings(server, database, user).Call([&] {
    return ToHandle(Obj(pool)->FindProvider(server, database, user));
  });
}

LX_API int32_t pool_GetProviderCount(LxProviderPool* pool) {
  return CallFrame("pool_GetProviderCount").Handle(pool, "pool").Call([&] { return Obj(pool)->GetProviderCount(); });
}

LX_API LxDataProvider* pool_GetProvider(LxProviderPool* pool, int32_t index) {
  return CallFrame("pool_GetProvider").Handle(pool, "pool").Call([&] {
    return ToHandle(Obj(pool)->_GetProvider(index));
  });
}

LX_API bool pool_DeleteProvider(LxProviderPool* pool, LxDataProvider* prov) {
  return CallFrame("pool_DeleteProvider").Handle(pool, "pool").Handle(prov, "prov").Call([&] {
    return Obj(pool)->_DeleteProvider(Obj(prov));
  });
}

LX_API const wchar_t* pool_GetUlbPath(LxProviderPool* pool) {
  return CallFrame("pool_GetUlbPath").Handle(pool, "pool").Call([&] { return Obj(pool)->GetUlbPath().c_str(); });
}

LX_API LxPacket* pool_FindPacket(LxProviderPool* pool, const wchar_t* packetName) {
  return CallFrame("pool_FindPacket").Handle(pool, "pool").Strings(packetName).Call([&] {
    return ToHandle(Obj(pool)->FindPacket(packetName));
  });
}
