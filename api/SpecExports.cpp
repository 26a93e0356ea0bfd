// Exports of specification records.
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "content/CSpec.h"

LX_API const wchar_t* spec_LibName(LxSpec* spec) {
  return CallFrame("spec_LibName").Handle(spec, "spec").Call([&] { return Obj(spec)->GetLibName().c_str(); });
}

LX_API int32_t spec_Style(LxSpec* spec) {
  return CallFrame("spec_Style").Handle(spec, "spec").Call([&] { return Obj(spec)->GetStyleNumber(); });
}

LX_API int32_t spec_FirstPart(LxSpec* spec) {
  return CallFrame("spec_FirstPart").Handle(spec, "spec").Call([&] { return Obj(spec)->GetFirstPart(); });
}

LX_API int32_t spec_SecondPart(LxSpec* spec) {
  return CallFrame("spec_SecondPart").Handle(spec, "spec").Call([&] { return Obj(spec)->GetSecondPart(); });
}

LX_API int32_t spec_ColumnCount(LxSpec* spec) {
  return CallFrame("spec_ColumnCount").Handle(spec, "spec").Call([&] { return Obj(spec)->_ColumnCount(); });
}

LX_API int32_t spec_ColumnNumber(LxSpec* spec, int32_t index) {
  return CallFrame("spec_ColumnNumber").Handle(spec, "spec").Call([&] { return Obj(spec)->_ColumnNumber(index); });
}

LX_API const wchar_t* spec_ColumnFormula(LxSpec* spec, int32_t index) {
  return CallFrame("spec_ColumnFormula").Handle(spec, "spec").Call([&] {
    return Obj(spec)->_ColumnStrFormula(index);
  });
}
