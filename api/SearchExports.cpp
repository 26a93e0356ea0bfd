// Exports of both kinds of search: the search over packets and folders, and
// the compiled condition that the client tests sizes against.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CStandartSize.h"
#include "search/CSearchHelper.h"
#include "search/CSearchResult2.h"
#include "storage/CProviderPool.h"

namespace {

CSearchHelper::PacketLookup PacketsOf(const CProviderPool* pool) {
  return [pool](const std::wstring& name) { return pool->FindPacket(name); };
}

// Destroys what the client owned through a handle.
template <typename Object>
bool Destroy(Object* object) {
  std::unique_ptr<Object> owned(object);
  return true;
}

}  // namespace

LX_API LxSearchResult* pool_GetSearchResult(LxProviderPool* pool, const wchar_t* packets, const wchar_t* query) {
  return CallFrame("pool_GetSearchResult").Handle(pool, "pool").Strings(packets, query).Call([&] {
    return ToHandle(CSearchHelper::_Run(PacketsOf(Obj(pool)), packets, query).release());
  });
}

LX_API int32_t search_GetCount(LxSearchResult* search) {
  return CallFrame("search_GetCount").Handle(search, "search").Call([&] { return Obj(search)->GetCount(); });
}

LX_API LxStdSize* search_Get(LxSearchResult* search, int32_t index) {
  return CallFrame("search_Get").Handle(search, "search").Call([&] { return ToHandle(Obj(search)->_Get(index)); });
}

// The result need not come from this pool: the pool keeps no list of them.
LX_API bool pool_DeleteSearchResult(LxProviderPool* pool, LxSearchResult* searchResult) {
  return CallFrame("pool_DeleteSearchResult").Handle(pool, "pool").Handle(searchResult, "searchResult").Call([&] {
    return Destroy(Obj(searchResult));
  });
}

LX_API LxSearchResult2* pool_GetSearchResult2(LxProviderPool* pool, const wchar_t* query) {
  return CallFrame("pool_GetSearchResult2").Handle(pool, "pool").Strings(query).Call([&] {
    return ToHandle(CSearchResult2::_CreateSearchResult2(query).release());
  });
}

LX_API bool search2_Check(LxSearchResult2* search, LxStdSize* stdSize) {
  return CallFrame("search2_Check").Handle(search, "search").Handle(stdSize, "stdSize").Call([&] {
    return Obj(search)->Check(*Obj(stdSize));
  });
}

LX_API bool pool_DeleteSearchResult2(LxProviderPool* pool, LxSearchResult2* searchResult) {
  return CallFrame("pool_DeleteSearchResult2").Handle(pool, "pool").Handle(searchResult, "searchResult").Call([&] {
    return Destroy(Obj(searchResult));
  });
}
