// Exports of packets.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/StaticText.h"
#include "catalog/CPacket.h"
#include "storage/CDataProvider.h"

LX_API const wchar_t* packet_GetName(LxPacket* packet) {
  return CallFrame("packet_GetName").Handle(packet, "packet").Call([&] { return Obj(packet)->GetName().c_str(); });
}

LX_API bool packet_SetName(LxPacket* packet, const wchar_t* name) {
  return CallFrame("packet_SetName").Handle(packet, "packet").Strings(name).Call([&] {
    return Obj(packet)->GetProvider()->_ReNamePacket(Obj(packet), name);
  });
}

LX_API LxFolder* packet_GetRootFolder(LxPacket* packet) {
  return CallFrame("packet_GetRootFolder").Handle(packet, "packet").Call([&] {
    return ToHandle(Obj(packet)->GetRootFolder());
  });
}

LX_API LxDataProvider* packet_GetProvider(LxPacket* packet) {
  return CallFrame("packet_GetProvider").Handle(packet, "packet").Call([&] {
    return ToHandle(Obj(packet)->GetProvider());
  });
}

// The attribute name and identifier are the caller's duty, as in the
// registry: a null one ends as an unknown exception rather than a crash.
LX_API const wchar_t* packet_GetAttributeUniqueValues(LxPacket* packet, const wchar_t* attributeName,
                                                      wchar_t separator) {
  return CallFrame("packet_GetAttributeUniqueValues").Handle(packet, "packet").Call([&] {
    static StaticText values;
    return values.Assign(Obj(packet)->AttributeUniqueValues(std::wstring(Required(attributeName)), separator));
  });
}

LX_API LxStdSize* packet_FindStdSize(LxPacket* packet, const wchar_t* identifier) {
  return CallFrame("packet_FindStdSize").Handle(packet, "packet").Call([&] {
    return ToHandle(Obj(packet)->FindStdSize(std::wstring(Required(identifier))));
  });
}

LX_API bool packet_CacheData(LxPacket* packet) {
  return CallFrame("packet_CacheData").Handle(packet, "packet").Call([&] {
    return Obj(packet)->GetProvider()->_CacheData(Obj(packet));
  });
}

LX_API bool packet_ClearDataCache(LxPacket* packet) {
  return CallFrame("packet_ClearDataCache").Handle(packet, "packet").Call([&] {
    return Obj(packet)->GetProvider()->_ClearDataCache(Obj(packet));
  });
}
