// Exports of projection lists and projections.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "content/CStdProjs.h"

LX_API LxProjection* projections_AddProjection(LxProjections* projections, LxProjection* projection) {
  return CallFrame("projections_AddProjection").Handle(projections, "projections").Handle(projection, "projection")
      .Call([&] { return ToHandle(Obj(projections)->_AddProjection(Obj(projection))); });
}

LX_API LxProjection* projections_AddProjectionEx(LxProjections* projections, const wchar_t* fragmentPath,
                                                 const wchar_t* iconPath, const wchar_t* digest, int32_t type,
                                                 const wchar_t* name, int32_t viewType) {
  return CallFrame("projections_AddProjectionEx").Handle(projections, "projections")
      .Strings(fragmentPath, iconPath, digest, name)
      .Call([&] {
        return ToHandle(Obj(projections)->_AddProjectionEx(fragmentPath, iconPath, digest, type, name, viewType));
      });
}

LX_API int32_t projections_GetProjectioCount(LxProjections* projections) {
  return CallFrame("projections_GetProjectioCount").Handle(projections, "projections").Call([&] {
    return Obj(projections)->_GetProjectioCount();
  });
}

LX_API LxProjection* projections_GetProjection(LxProjections* projections, int32_t index) {
  return CallFrame("projections_GetProjection").Handle(projections, "projections").Call([&] {
    return ToHandle(Obj(projections)->_GetProjection(index));
  });
}

LX_API LxProjection* projections_FindProjection(LxProjections* projections, const wchar_t* name, int32_t type,
                                                int32_t viewType) {
  return CallFrame("projections_FindProjection").Handle(projections, "projections").Strings(name).Call([&] {
    return ToHandle(Obj(projections)->_FindProjection(name, type, viewType));
  });
}

LX_API bool projections_DeleteProjection(LxProjections* projections, LxProjection* projection) {
  return CallFrame("projections_DeleteProjection").Handle(projections, "projections").Handle(projection, "projection")
      .Call([&] { return Obj(projections)->_DeleteProjection(Obj(projection)); });
}

LX_API LxStdSize* projections_GetStdSize(LxProjections* projections) {
  return CallFrame("projections_GetStdSize").Handle(projections, "projections").Call([&] {
    return ToHandle(Obj(projections)->GetStdSize());
  });
}

LX_API const wchar_t* projection_GetName(LxProjection* projection) {
  return CallFrame("projection_GetName").Handle(projection, "projection").Call([&] {
    return Obj(projection)->GetName().c_str();
  });
}

LX_API const wchar_t* projection_GetDigest(LxProjection* projection) {
  return CallFrame("projection_GetDigest").Handle(projection, "projection").Call([&] {
    return Obj(projection)->GetDigest().c_str();
  });
}

LX_API int32_t projection_GetType(LxProjection* projection) {
  return CallFrame("projection_GetType").Handle(projection, "projection").Call([&] {
    return Obj(projection)->GetType();
  });
}

LX_API bool projection_SetType(LxProjection* projection, int32_t type, const wchar_t* name) {
  return CallFrame("projection_SetType").Handle(projection, "projection").Strings(name).Call([&] {
    return Obj(projection)->_SetType(type, name);
  });
}

LX_API int32_t projection_GetViewType(LxProjection* projection) {
  return CallFrame("projection_GetViewType").Handle(projection, "projection").Call([&] {
    return Obj(projection)->GetViewType();
  });
}

LX_API bool projection_SetViewType(LxProjection* projection, int32_t viewType) {
  return CallFrame("projection_SetViewType").Handle(projection, "projection").Call([&] {
    return Obj(projection)->_SetViewType(viewType);
  });
}

LX_API bool projection_GetIconData(LxProjection* projection, unsigned char** data, int32_t* size) {
  return CallFrame("projection_GetIconData").Handle(projection, "projection").Call([&] {
    return data != nullptr && size != nullptr && Obj(projection)->_GetIconData(data, size);
  });
}

LX_API const wchar_t* projection_GetFragmentFile(LxProjection* projection) {
  return CallFrame("projection_GetFragmentFile").Handle(projection, "projection").Call([&] {
    return Obj(projection)->_GetFragmentFile();
  });
}

LX_API bool projection_IsEqualFragment(LxProjection* projection, LxProjection* otherProjection) {
  return CallFrame("projection_IsEqualFragment").Handle(projection, "projection")
      .Handle(otherProjection, "otherProjection")
      .Call([&] { return Obj(projection)->_IsEqualFragment(*Obj(otherProjection)); });
}

LX_API bool projection_SetFragment(LxProjection* projection, LxProjection* otherProjection) {
  return CallFrame("projection_SetFragment").Handle(projection, "projection")
      .Handle(otherProjection, "otherProjection")
      .Call([&] { return Obj(projection)->_SetFragment(*Obj(otherProjection)); });
}

LX_API LxStdSize* projection_GetStdSize(LxProjection* projection) {
  return CallFrame("projection_GetStdSize").Handle(projection, "projection").Call([&] {
    return ToHandle(Obj(projection)->GetStdSize());
  });
}
