// Exports of attached files. The catalog's files are read-only here: adding
// and deleting exist in the interface and refuse.
#include <stdexcept>

#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/Handles.h"
#include "content/CStdFiles.h"

namespace {

[[noreturn]] void NotImplemented() { throw std::logic_error("The method or operation is not implemented."); }

}  // namespace

LX_API int32_t files_GetFileCount(LxFiles* files) {
  return CallFrame("files_GetFileCount").Handle(files, "files").Call([&] { return Obj(files)->_GetFileCount(); });
}

LX_API LxFile* files_GetFile(LxFiles* files, int32_t index) {
  return CallFrame("files_GetFile").Handle(files, "files").Call([&] { return ToHandle(Obj(files)->_GetFile(index)); });
}

LX_API LxStdSize* files_GetStdSize(LxFiles* files) {
  return CallFrame("files_GetStdSize").Handle(files, "files").Call([&] { return ToHandle(Obj(files)->GetStdSize()); });
}

LX_API bool files_AddFile(LxFiles* files, LxFile* file) {
  return CallFrame("files_AddFile").Handle(files, "files").Handle(file, "file").Call([]() -> bool { NotImplemented(); });
}

LX_API bool files_AddFileEx(LxFiles* files, const wchar_t* filePath, const wchar_t* name, const wchar_t* digest) {
  return CallFrame("files_AddFileEx").Handle(files, "files").Strings(filePath, name, digest).Call([]() -> bool {
    NotImplemented();
  });
}

LX_API bool files_DeleteFile(LxFiles* files, LxFile* file) {
  return CallFrame("files_DeleteFile").Handle(files, "files").Handle(file, "file").Call([]() -> bool {
    NotImplemented();
  });
}

LX_API const wchar_t* file_GetName(LxFile* file) {
  return CallFrame("file_GetName").Handle(file, "file").Call([&] { return Obj(file)->name.c_str(); });
}

LX_API const wchar_t* file_GetExt(LxFile* file) {
  return CallFrame("file_GetExt").Handle(file, "file").Call([&] { return Obj(file)->ext.c_str(); });
}

LX_API const wchar_t* file_GetFile(LxFile* file) {
  return CallFrame("file_GetFile").Handle(file, "file").Call([&] {
    return CStdFiles::Of(Obj(file)->owner)->_GetFilePath(Obj(file));
  });
}

LX_API bool file_IsEqual(LxFile* file, LxFile* otherFile) {
  return CallFrame("file_IsEqual").Handle(file, "file").Handle(otherFile, "otherFile").Call([&] {
    return Obj(file)->id == Obj(otherFile)->id;
  });
}

LX_API LxStdSize* file_GetStdSize(LxFile* file) {
  return CallFrame("file_GetStdSize").Handle(file, "file").Call([&] { return ToHandle(Obj(file)->owner); });
}
