// The opaque handles of the public header are the addresses of library
// objects. Obj() turns a handle into its object and ToHandle() back; each
// kind of handle is bound to exactly one class here, so a handle of one kind
// can never be read as an object of another.
#pragma once

#include "LxDataAccess.h"

class CProviderPool;
class CDataProvider;
class CPacket;
class CFolder;
class CFolderTable;
class CAttribute;
class CStandartSize;
class CSearchResult;
class CSpec;
class CStdFiles;
class CStdModel;
class CStdPrj;
class CStdProjs;
class CSearchResult2;
class CObject;
class CLayers;
class CLayer;
struct FileRecord;

#define LX_BIND_HANDLE(HandleType, ClassType)                                                   \
  inline ClassType* Obj(HandleType* handle) { return reinterpret_cast<ClassType*>(handle); }   \
  inline HandleType* ToHandle(ClassType* object) { return reinterpret_cast<HandleType*>(object); }

LX_BIND_HANDLE(LxProviderPool, CProviderPool)
LX_BIND_HANDLE(LxDataProvider, CDataProvider)
LX_BIND_HANDLE(LxPacket, CPacket)
LX_BIND_HANDLE(LxFolder, CFolder)
LX_BIND_HANDLE(LxFolderTable, CFolderTable)
LX_BIND_HANDLE(LxAttribute, CAttribute)
LX_BIND_HANDLE(LxStdSize, CStandartSize)
LX_BIND_HANDLE(LxModel, CStdModel)
LX_BIND_HANDLE(LxProjections, CStdProjs)
LX_BIND_HANDLE(LxProjection, CStdPrj)
LX_BIND_HANDLE(LxFiles, CStdFiles)
LX_BIND_HANDLE(LxFile, FileRecord)
LX_BIND_HANDLE(LxSpec, CSpec)
LX_BIND_HANDLE(LxSearchResult, CSearchResult)
LX_BIND_HANDLE(LxSearchResult2, CSearchResult2)
LX_BIND_HANDLE(LxObject, CObject)
LX_BIND_HANDLE(LxLayers, CLayers)
LX_BIND_HANDLE(LxLayer, CLayer)

#undef LX_BIND_HANDLE
