// Exports of models.
#include <stdexcept>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "content/CStdModel.h"

// A null model is an empty one, not a failure: no message.
LX_API bool model_IsEmpty(LxModel* model) {
  return CallFrame("model_IsEmpty").Call([&] { return model == nullptr || Obj(model)->_IsEmpty(); });
}

LX_API bool model_Clear(LxModel* model) {
  return CallFrame("model_Clear").Handle(model, "model").Call([&] { return Obj(model)->_Clear(); });
}

LX_API bool model_IsEqualModel(LxModel* model, LxModel* otherModel) {
  return CallFrame("model_IsEqualModel").Handle(model, "model").Handle(otherModel, "otherModel").Call([&] {
    return Obj(model)->_IsEqualModel(Obj(otherModel));
  });
}

LX_API const wchar_t* model_GetModelFile(LxModel* model) {
  return CallFrame("model_GetModelFile").Handle(model, "model").Call([&] { return Obj(model)->_GetModelFile(); });
}

LX_API const wchar_t* model_GetDigest(LxModel* model) {
  return CallFrame("model_GetDigest").Handle(model, "model").Call([&] { return Obj(model)->_GetDigest(); });
}

LX_API const wchar_t* model_GetModelName(LxModel* model) {
  return CallFrame("model_GetModelName").Handle(model, "model").Call([&] { return Obj(model)->_GetName(); });
}

// A model is named by its id; it cannot be renamed.
LX_API bool model_SetName(LxModel* model, const wchar_t* name) {
  return CallFrame("model_SetName").Handle(model, "model").Strings(name).Call([]() -> bool {
    throw std::logic_error("The method or operation is not implemented.");
  });
}

LX_API bool model_GetIconData(LxModel* model, unsigned char** data, int32_t* size) {
  return CallFrame("model_GetIconData").Handle(model, "model").Call([&] {
    return data != nullptr && size != nullptr && Obj(model)->_GetIconData(data, size);
  });
}

LX_API int32_t model_GetVersion(LxModel* model) {
  return CallFrame("model_GetVersion").Handle(model, "model").Call([&] { return Obj(model)->_GetVersion(); });
}

LX_API int32_t model_GetOrientation(LxModel* model) {
  return CallFrame("model_GetOrientation").Handle(model, "model").Call([&] { return Obj(model)->_GetOrientation(); });
}

LX_API bool model_SetModel(LxModel* model, LxModel* otherModel) {
  return CallFrame("model_SetModel").Handle(model, "model").Handle(otherModel, "otherModel").Call([&] {
    return Obj(model)->_SetModel(Obj(otherModel));
  });
}

LX_API bool model_SetModelEx(LxModel* model, const wchar_t* modelPath, const wchar_t* iconPath, const wchar_t* digest,
                             int32_t version) {
  return CallFrame("model_SetModelEx").Handle(model, "model").Strings(modelPath, iconPath, digest).Call([&] {
    return Obj(model)->_SetModelEx(modelPath, iconPath, digest, version);
  });
}

LX_API LxStdSize* model_GetStdSize(LxModel* model) {
  return CallFrame("model_GetStdSize").Handle(model, "model").Call([&] {
    return ToHandle(Obj(model)->GetStdSize());
  });
}
