// Exports of a placed object's view and layers.
#include <stdexcept>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "object/CLayers.h"
#include "object/CObject.h"

LX_API LxProjection* object_GetProjection(LxObject* object) {
  return CallFrame("object_GetProjection").Handle(object, "object").Call([&] {
    return ToHandle(Obj(object)->_GetProjection());
  });
}

LX_API int32_t object_GetProjectionType(LxObject* object) {
  return CallFrame("object_GetProjectionType").Handle(object, "object").Call([&] {
    return Obj(object)->GetProjectionType();
  });
}

LX_API uint32_t object_GetProjectionViewType(LxObject* object) {
  return CallFrame("object_GetProjectionViewType").Handle(object, "object").Call([&] {
    return Obj(object)->GetViewType();
  });
}

// A null projection clears the view, so it is no handle check.
LX_API bool object_SetProjection(LxObject* object, LxProjection* projection) {
  return CallFrame("object_SetProjection").Handle(object, "object").Call([&] {
    return Obj(object)->_SetProjection(Obj(projection));
  });
}

LX_API LxLayers* object_GetLayers(LxObject* object) {
  return CallFrame("object_GetLayers").Handle(object, "object").Call([&] {
    return ToHandle(Obj(object)->_GetLayers());
  });
}

LX_API int32_t layers_GetCount(LxLayers* layers) {
  return CallFrame("layers_GetCount").Handle(layers, "layers").Call([&] { return Obj(layers)->Count(); });
}

LX_API LxLayer* layers_GetLayer(LxLayers* layers, int32_t index) {
  return CallFrame("layers_GetLayer").Handle(layers, "layers").Call([&] {
    return ToHandle(Obj(layers)->_GetLayer(index));
  });
}

LX_API int32_t layer_GetNumber(LxLayer* layer) {
  return CallFrame("layer_GetNumber").Handle(layer, "layer").Call([&] { return Obj(layer)->GetNumber(); });
}

LX_API const wchar_t* layer_GetName(LxLayer* layer) {
  return CallFrame("layer_GetName").Handle(layer, "layer").Call([&] { return Obj(layer)->GetName().c_str(); });
}

LX_API bool layer_GetVisible(LxLayer* layer) {
  return CallFrame("layer_GetVisible").Handle(layer, "layer").Call([&] { return Obj(layer)->GetVisible(); });
}

// Visibility is the value of the layer's attribute: a client writes that.
LX_API bool layer_SetVisible(LxLayer* layer) {
  return CallFrame("layer_SetVisible").Handle(layer, "layer").Call([]() -> bool {
    throw std::logic_error("The method or operation is not implemented.");
  });
}
