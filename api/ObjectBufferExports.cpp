// Exports that make placed objects, and that save them into the client's
// buffers and load them back.
#include <memory>

#include "LxDataAccess.h"
#include "api/CLxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/StaticText.h"
#include "object/CObjectHelper.h"
#include "storage/CProviderPool.h"

LX_API LxObject* pool_CreateObject(LxProviderPool* pool, LxStdSize* stdSize, const wchar_t* libraryId) {
  return CallFrame("pool_CreateObject").Handle(pool, "pool").Handle(stdSize, "stdSize").Call([&] {
    return ToHandle(CObjectHelper::CreateObject(Obj(stdSize), std::wstring(Required(libraryId))).release());
  });
}

LX_API LxObject* pool_CreateObject_OLD(LxProviderPool* pool, const wchar_t* packetName, const wchar_t* oldIndex,
                                       const wchar_t* oldName, const wchar_t* libraryId) {
  return CallFrame("pool_CreateObject_OLD").Handle(pool, "pool").Call([&] {
    return ToHandle(CObjectHelper::_CreateObject_OLD(*Obj(pool), std::wstring(Required(packetName)),
                                                     std::wstring(Required(oldIndex)),
                                                     std::wstring(Required(oldName)),
                                                     std::wstring(Required(libraryId)))
                        .release());
  });
}

LX_API bool object_Save(LxObject* object, unsigned char* buffer, int32_t capacity, uint32_t* written,
                        int32_t selector) {
  return CallFrame("object_Save").Handle(object, "object").Call([&] {
    // The buffer and the count are the caller's duty; a null one is
    // refused rather than written through.
    if (written == nullptr || (buffer == nullptr && capacity > 0)) return false;
    return CObjectHelper::_SaveObject(*Obj(object), buffer, capacity, written, selector);
  });
}

LX_API LxObject* object_Load(LxProviderPool* pool, unsigned char* buffer, int32_t size, bool keepIfMissing) {
  return CallFrame("object_Load").Handle(pool, "pool").Call([&] {
    RegisteredLibraries libraries;
    return ToHandle(CObjectHelper::_LoadObject(*Obj(pool), libraries, buffer, size, keepIfMissing).release());
  });
}

LX_API bool object_getPacketInfo(unsigned char* buffer, int32_t size, const wchar_t** packetName,
                                 const wchar_t** stdSizeId, const wchar_t** libraryId) {
  return CallFrame("lx_api::object_getPacketInfo").Call([&] {
    static StaticText packetText, sizeText, libraryText;
    std::wstring packet, stdSize, library;
    const bool read = CObjectHelper::GetPacketInfo(buffer, size, packet, stdSize, library);
    if (packetName != nullptr) *packetName = packetText.Assign(packet);
    if (stdSizeId != nullptr) *stdSizeId = sizeText.Assign(stdSize);
    if (libraryId != nullptr) *libraryId = libraryText.Assign(library);
    return read;
  });
}

LX_API bool object_SetBufValue(LxObject* object, const wchar_t* name, unsigned char* data, int32_t size) {
  return CallFrame("object_SetBufValue").Handle(object, "object").Strings(name).Call([&] {
    Obj(object)->SetBufValue(name, data, size);
    return true;
  });
}

LX_API bool object_GetBufValue(LxObject* object, const wchar_t* name, unsigned char** data, int32_t* size) {
  return CallFrame("object_GetBufValue").Handle(object, "object").Strings(name).Call([&] {
    return data != nullptr && size != nullptr && Obj(object)->GetBufValue(name, data, size);
  });
}
