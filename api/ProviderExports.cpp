// Exports of the data provider.
#include <stdexcept>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "api/StaticText.h"
#include "storage/CommandOperation.h"
#include "storage/CDataProvider.h"
#include "storage/ProviderOperation.h"

LX_API bool provider_IsEditable(LxDataProvider* dataProvider) {
  return CallFrame("provider_IsEditable").Handle(dataProvider, "dataProvider").Call([&] {
    return ProviderOperation::IsEditable(Obj(dataProvider));
  });
}

LX_API const wchar_t* provider_GetServerName(LxDataProvider* dataProvider) {
  return CallFrame("provider_GetServerName").Handle(dataProvider, "dataProvider").Call([&] {
    return Obj(dataProvider)->GetServerName().c_str();
  });
}

LX_API const wchar_t* provider_GetDatabaseName(LxDataProvider* dataProvider) {
  return CallFrame("provider_GetDatabaseName").Handle(dataProvider, "dataProvider").Call([&] {
    return Obj(dataProvider)->GetDatabaseName().c_str();
  });
}

LX_API const wchar_t* provider_GetUserName(LxDataProvider* dataProvider) {
  return CallFrame("provider_GetUserName").Handle(dataProvider, "dataProvider").Call([&] {
    return Obj(dataProvider)->GetUserName().c_str();
  });
}

LX_API const wchar_t* provider_GetParam(LxDataProvider* dataProvider, const wchar_t* name, const wchar_t* tag) {
  return CallFrame("provider_GetParam").Handle(dataProvider, "dataProvider").Strings(name, tag).Call([&] {
    return Obj(dataProvider)->_GetParam(name, tag);
  });
}

LX_API int32_t provider_GetPacketCount(LxDataProvider* dataProvider) {
  return CallFrame("provider_GetPacketCount").Handle(dataProvider, "dataProvider").Call([&] {
    return Obj(dataProvider)->GetPacketCount();
  });
}

LX_API LxPacket* provider_GetPacket(LxDataProvider* dataProvider, int32_t index) {
  return CallFrame("provider_GetPacket").Handle(dataProvider, "dataProvider").Call([&] {
    return ToHandle(Obj(dataProvider)->_GetPacket(index));
  });
}

LX_API LxPacket* provider_GetPacketByName(LxDataProvider* dataProvider, const wchar_t* name) {
  return CallFrame("provider_GetPacketByName").Handle(dataProvider, "dataProvider").Strings(name).Call([&] {
    return ToHandle(Obj(dataProvider)->GetPacketByName(name));
  });
}

LX_API bool provider_ClearPacketCache(LxDataProvider* dataProvider, LxPacket* packet) {
  return CallFrame("provider_ClearPacketCache").Handle(dataProvider, "dataProvider").Handle(packet, "packet").Call([&] {
    return Obj(dataProvider)->_ClearPacketCache(Obj(packet));
  });
}

LX_API LxPacket* provider_AddPacket(LxDataProvider* dataProvider, const wchar_t* name) {
  return CallFrame("provider_AddPacket").Handle(dataProvider, "dataProvider").Strings(name).Call([&] {
    return ToHandle(Obj(dataProvider)->_AddPacket(name));
  });
}

// Packets cannot be deleted through the interface.
LX_API bool provider_DeletePacket(LxDataProvider* dataProvider, LxPacket* packet) {
  return CallFrame("provider_DeletePacket").Handle(dataProvider, "dataProvider").Handle(packet, "packet").Call([]() -> bool {
    throw std::logic_error("The method or operation is not implemented.");
  });
}

LX_API const wchar_t* provider_GetDescByAtrName(LxDataProvider* dataProvider, const wchar_t* attributeName) {
  return CallFrame("provider_GetDescByAtrName").Handle(dataProvider, "dataProvider").Strings(attributeName).Call([&] {
    static StaticText description;
    return description.Assign(ProviderOperation::DescriptionOfAttributeName(Obj(dataProvider), attributeName));
  });
}

LX_API const wchar_t* provider_GetAttrNameByDesc(LxDataProvider* dataProvider, const wchar_t* description) {
  return CallFrame("provider_GetAttrNameByDesc").Handle(dataProvider, "dataProvider").Strings(description).Call([&] {
    static StaticText name;
    return name.Assign(ProviderOperation::AttributeNameOfDescription(Obj(dataProvider), description));
  });
}

LX_API bool provider_DeleteUnusedQmxandQfx(LxDataProvider* dataProvider) {
  return CallFrame("provider_DeleteUnusedQmxandQfx").Handle(dataProvider, "dataProvider").Call([&] {
    return ProviderOperation::DeleteUnusedModelsAndFragments(Obj(dataProvider));
  });
}

// The document is the caller's duty: a null one ends as an unknown exception
// rather than a crash.
LX_API bool provider_RunCommand(LxDataProvider* dataProvider, const wchar_t* commandText) {
  return CallFrame("provider_RunCommand").Handle(dataProvider, "dataProvider").Call([&] {
    return CommandOperation::RunCommand(Obj(dataProvider), std::wstring(Required(commandText)));
  });
}
