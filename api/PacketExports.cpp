// Exports of packets.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "catalog/CPacket.h"
#include "storage/CDataProvider.h"

using lx_api::CallFrame;
using lx_api::Obj;
using lx_api::ToHandle;

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
