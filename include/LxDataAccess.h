/*
 * LxDataAccess: the catalog of standard parts, as a flat C interface.
 *
 * Every function below except lxSetProgressControl and lxClearProgressControl
 * runs under one process-wide lock, so calls from several threads are safe but
 * serialised. No function reports failure other than by its result: null for a
 * handle or string, false for bool, 0 for a number. The reason, if there is
 * one, goes to standard error as one write per call.
 *
 * Handles are opaque. The library owns what they point to; see each family for
 * the call that destroys it. Returned strings point into library memory and
 * must be copied before the next call that could change them.
 */
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(LXDATAACCESS_BUILD)
#define LX_API __attribute__((visibility("default")))
#else
#define LX_API
#endif

/* Opaque handles, one type per kind of library object. */
typedef struct LxProviderPool LxProviderPool;
typedef struct LxDataProvider LxDataProvider;
typedef struct LxPacket LxPacket;
typedef struct LxFolder LxFolder;
typedef struct LxFolderTable LxFolderTable;
typedef struct LxAttribute LxAttribute;
typedef struct LxStdSize LxStdSize;
typedef struct LxModel LxModel;
typedef struct LxProjections LxProjections;
typedef struct LxProjection LxProjection;
typedef struct LxFiles LxFiles;
typedef struct LxFile LxFile;
typedef struct LxSpec LxSpec;
typedef struct LxObject LxObject;
typedef struct LxLayers LxLayers;
typedef struct LxLayer LxLayer;
typedef struct LxSearchResult LxSearchResult;
typedef struct LxSearchResult2 LxSearchResult2;

/* How numbers become text. precision 0 prints the integer form; all bits set
 * keeps whatever the conversion printed. */
typedef struct NumberFormat {
  bool trimZeros;     /* offset 0 */
  uint64_t precision; /* offset 8 */
} NumberFormat;

/* Kind of a value: 0 empty, 1 integer, 2 double, 3 string. */
enum { LX_VALUE_EMPTY = 0, LX_VALUE_INT = 1, LX_VALUE_DOUBLE = 2, LX_VALUE_STRING = 3 };

/* A value as the library hands it out. A string points into library memory. */
typedef struct ValueView {
  union {
    int32_t integer;
    double number;
    const wchar_t* text;
  } payload;       /* offset 0 */
  uint64_t length; /* offset 8: characters of text */
  int8_t index;    /* offset 16: the kind */
} ValueView;

/* The 24-byte progress record. The library keeps it but never reads it. */
typedef struct LxProgressControl {
  unsigned char head[16];
  unsigned char tail[8];
} LxProgressControl;

#ifdef __cplusplus
static_assert(sizeof(NumberFormat) == 16, "NumberFormat is 16 bytes");
static_assert(offsetof(NumberFormat, precision) == 8, "precision at offset 8");
static_assert(sizeof(ValueView) == 24, "ValueView is 24 bytes");
static_assert(offsetof(ValueView, length) == 8, "length at offset 8");
static_assert(offsetof(ValueView, index) == 16, "index at offset 16");
static_assert(sizeof(LxProgressControl) == 24, "progress record is 24 bytes");
#else
_Static_assert(sizeof(NumberFormat) == 16, "NumberFormat is 16 bytes");
_Static_assert(offsetof(NumberFormat, precision) == 8, "precision at offset 8");
_Static_assert(sizeof(ValueView) == 24, "ValueView is 24 bytes");
_Static_assert(offsetof(ValueView, length) == 8, "length at offset 8");
_Static_assert(offsetof(ValueView, index) == 16, "index at offset 16");
_Static_assert(sizeof(LxProgressControl) == 24, "progress record is 24 bytes");
#endif

/* ---- Exports, by family ------------------------------------------------- */

/* -- Registry of provider pools, and the progress record ------------------ */

/* Pools belong to the registry. */
LX_API LxProviderPool* lxGetLibraryProviderPool(const wchar_t* libraryName);
/* Compares module paths ignoring case; a miss is null. */
LX_API LxProviderPool* lxGetLibraryProviderPoolForUlbPath(const wchar_t* ulbPath);
/* Returns the existing pool of that name unchanged; the empty name gives null. */
LX_API LxProviderPool* lxAddLibraryProviderPool(const wchar_t* libraryName, const wchar_t* ulbPath);
/* Static text, overwritten by the next call; empty for an unknown pool. */
LX_API const wchar_t* lxGetLibraryName(LxProviderPool* pool);
/* Destroys the pool, its providers and every handle below them. */
LX_API bool lxDeleteProviderPool(LxProviderPool* pool);
/* Every handle below a reloaded provider is dead afterwards; the provider survives. */
LX_API bool lxReloadProvider(const wchar_t* server, const wchar_t* database);
/* Unlocked; the record is copied, never read back. */
LX_API void lxSetProgressControl(const LxProgressControl* control);
LX_API void lxClearProgressControl(void);

/* -- Database maintenance ------------------------------------------------- */

/* Overwrites an existing file. */
LX_API bool lxCreateEmptyFDB(const wchar_t* databasePath);
/* The three below wait for the editor tool, with no time limit. */
LX_API bool lxUpdateDatabase(const wchar_t* databasePath);
LX_API bool lxUpdateUlb(const wchar_t* ulbPath);
LX_API bool lxSetDatabaseReadonly(const wchar_t* databasePath, bool readOnly);

/* -- pool_ ---------------------------------------------------------------- */

/* Providers belong to the pool; adding the same database again returns the first one. */
LX_API LxDataProvider* pool_AddProvider(LxProviderPool* pool, const wchar_t* server, const wchar_t* database,
                                        const wchar_t* user, const wchar_t* password);
LX_API LxDataProvider* pool_FindProvider(LxProviderPool* pool, const wchar_t* server, const wchar_t* database,
                                         const wchar_t* user);
LX_API int32_t pool_GetProviderCount(LxProviderPool* pool);
LX_API LxDataProvider* pool_GetProvider(LxProviderPool* pool, int32_t index);
LX_API bool pool_DeleteProvider(LxProviderPool* pool, LxDataProvider* prov);
LX_API LxPacket* pool_FindPacket(LxProviderPool* pool, const wchar_t* packetName);
LX_API const wchar_t* pool_GetUlbPath(LxProviderPool* pool);
/* The caller owns the object; destroy it with object_Delete. */
LX_API LxObject* pool_CreateObject(LxProviderPool* pool, LxStdSize* stdSize, const wchar_t* libraryId);
/* The caller owns the object; destroy it with object_Delete. */
LX_API LxObject* pool_CreateObject_OLD(LxProviderPool* pool, const wchar_t* packetName, const wchar_t* oldIndex,
                                       const wchar_t* oldName, const wchar_t* libraryId);
/* The caller owns the result; destroy it with pool_DeleteSearchResult. */
LX_API LxSearchResult* pool_GetSearchResult(LxProviderPool* pool, const wchar_t* packets, const wchar_t* query);
LX_API bool pool_DeleteSearchResult(LxProviderPool* pool, LxSearchResult* searchResult);
/* The caller owns the result; destroy it with pool_DeleteSearchResult2. */
LX_API LxSearchResult2* pool_GetSearchResult2(LxProviderPool* pool, const wchar_t* query);
LX_API bool pool_DeleteSearchResult2(LxProviderPool* pool, LxSearchResult2* searchResult);

/* -- provider_ ------------------------------------------------------------ */

/* Probes with a write that is rolled back; any failure reads as false. */
LX_API bool provider_IsEditable(LxDataProvider* dataProvider);
LX_API const wchar_t* provider_GetServerName(LxDataProvider* dataProvider);
LX_API const wchar_t* provider_GetDatabaseName(LxDataProvider* dataProvider);
LX_API const wchar_t* provider_GetUserName(LxDataProvider* dataProvider);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* provider_GetParam(LxDataProvider* dataProvider, const wchar_t* name, const wchar_t* tag);
LX_API int32_t provider_GetPacketCount(LxDataProvider* dataProvider);
LX_API LxPacket* provider_GetPacket(LxDataProvider* dataProvider, int32_t index);
LX_API LxPacket* provider_GetPacketByName(LxDataProvider* dataProvider, const wchar_t* name);
/* Destroys the packet and every handle below it; no row changes. */
LX_API bool provider_ClearPacketCache(LxDataProvider* dataProvider, LxPacket* packet);
/* The packet belongs to the provider. */
LX_API LxPacket* provider_AddPacket(LxDataProvider* dataProvider, const wchar_t* name);
/* Not implemented: always false. */
LX_API bool provider_DeletePacket(LxDataProvider* dataProvider, LxPacket* packet);
/* Static text, overwritten by the next call. */
LX_API const wchar_t* provider_GetDescByAtrName(LxDataProvider* dataProvider, const wchar_t* attributeName);
/* Static text, overwritten by the next call. */
LX_API const wchar_t* provider_GetAttrNameByDesc(LxDataProvider* dataProvider, const wchar_t* description);
LX_API bool provider_DeleteUnusedQmxandQfx(LxDataProvider* dataProvider);
LX_API bool provider_RunCommand(LxDataProvider* dataProvider, const wchar_t* commandText);

/* -- packet_ -------------------------------------------------------------- */

LX_API const wchar_t* packet_GetName(LxPacket* packet);
LX_API bool packet_SetName(LxPacket* packet, const wchar_t* name);
/* Static text, overwritten by the next call. */
LX_API const wchar_t* packet_GetAttributeUniqueValues(LxPacket* packet, const wchar_t* attributeName,
                                                      wchar_t separator);
LX_API LxStdSize* packet_FindStdSize(LxPacket* packet, const wchar_t* identifier);
LX_API LxFolder* packet_GetRootFolder(LxPacket* packet);
LX_API LxDataProvider* packet_GetProvider(LxPacket* packet);
LX_API bool packet_CacheData(LxPacket* packet);
LX_API bool packet_ClearDataCache(LxPacket* packet);

/* -- folder_ -------------------------------------------------------------- */

LX_API const wchar_t* folder_GetName(LxFolder* folder);
LX_API bool folder_SetName(LxFolder* folder, const wchar_t* name);
LX_API LxFolder* folder_AddChildFolder(LxFolder* folder, const wchar_t* name);
LX_API int32_t folder_GetChildFolderCount(LxFolder* folder);
LX_API LxFolder* folder_GetChildFolder(LxFolder* folder, int32_t index);
/* Destroys the child and every handle below it. */
LX_API bool folder_DeleteChildFolder(LxFolder* folder, LxFolder* childFolder);
LX_API bool folder_IsVirtual(LxFolder* folder);
LX_API LxFolderTable* folder_GetTable(LxFolder* folder);
/* Null for a root folder. */
LX_API LxFolder* folder_GetParentFolder(LxFolder* folder);
LX_API LxPacket* folder_GetPacket(LxFolder* folder);
LX_API bool folder_MoveTo(LxFolder* folder, LxFolder* parentFolder);

/* -- table_ --------------------------------------------------------------- */

LX_API bool table_IsEmpty(LxFolderTable* table);
/* Does nothing: always false. */
LX_API bool table_Clear(LxFolderTable* table);
LX_API LxAttribute* table_AddAttribute(LxFolderTable* table, const wchar_t* name, const wchar_t* description,
                                       int32_t type);
LX_API int32_t table_GetAttributeCount(LxFolderTable* table);
LX_API LxAttribute* table_GetAttribute(LxFolderTable* table, int32_t index);
LX_API LxAttribute* table_FindAttribute(LxFolderTable* table, const wchar_t* name);
LX_API bool table_DeleteAttribute(LxFolderTable* table, LxAttribute* attribute);
LX_API LxStdSize* table_AddStdSize(LxFolderTable* table, const wchar_t* identifier);
LX_API int32_t table_GetStdSizeCount(LxFolderTable* table);
LX_API LxStdSize* table_GetStdSize(LxFolderTable* table, int32_t index);
LX_API LxStdSize* table_FindStdSize(LxFolderTable* table, const wchar_t* identifier);
LX_API bool table_DeleteStdSize(LxFolderTable* table, LxStdSize* stdSize);
LX_API LxFolder* table_GetFolder(LxFolderTable* table);

/* -- attribute_ ----------------------------------------------------------- */

LX_API const wchar_t* attribute_GetName(LxAttribute* attribute);
LX_API const wchar_t* attribute_GetDescription(LxAttribute* attribute);
LX_API const wchar_t* attribute_GetMeasure(LxAttribute* attribute);
LX_API const wchar_t* attribute_GetVarName(LxAttribute* attribute);
LX_API const wchar_t* attribute_GetFormula(LxAttribute* attribute);
LX_API int32_t attribute_GetType(LxAttribute* attribute);
LX_API int32_t attribute_GetNumber(LxAttribute* attribute);
LX_API int32_t attribute_GetOldNumber(LxAttribute* attribute);
LX_API LxFolderTable* attribute_GetTable(LxAttribute* attribute);
LX_API bool attribute_SetName(LxAttribute* attribute, const wchar_t* name);
LX_API bool attribute_SetDescription(LxAttribute* attribute, const wchar_t* description);
LX_API bool attribute_SetMeasure(LxAttribute* attribute, const wchar_t* measure);
LX_API bool attribute_SetVarName(LxAttribute* attribute, const wchar_t* varName);
LX_API bool attribute_SetFormula(LxAttribute* attribute, const wchar_t* formula);
LX_API bool attribute_SetType(LxAttribute* attribute, int32_t type);
LX_API bool attribute_SetNumber(LxAttribute* attribute, int32_t number);
LX_API bool attribute_SetOldNumber(LxAttribute* attribute, int32_t oldNumber);
LX_API bool attribute_CanEditForumalaValue(LxAttribute* attribute);

/* -- stdsize_ ------------------------------------------------------------- */

LX_API const wchar_t* stdsize_GetID(LxStdSize* stdSize);
/* Not implemented: always false. */
LX_API bool stdsize_SetID(LxStdSize* stdSize, const wchar_t* identifier);
/* The view points into library memory: valid until that value is read again or changes. */
LX_API bool stdsize_GetValue(LxStdSize* stdSize, LxAttribute* attribute, const NumberFormat* format, ValueView* view);
LX_API bool stdsize_GetValueByName(LxStdSize* stdSize, const wchar_t* name, const NumberFormat* format,
                                   ValueView* view);
LX_API bool stdsize_SetValueI(LxStdSize* stdSize, LxAttribute* attribute, int32_t value);
LX_API bool stdsize_SetValueD(LxStdSize* stdSize, LxAttribute* attribute, double value);
LX_API bool stdsize_SetValueS(LxStdSize* stdSize, LxAttribute* attribute, const wchar_t* value);
LX_API bool stdsize_RemoveValue(LxStdSize* stdSize, LxAttribute* attribute);
/* The same object on every call; it lives as long as the size. */
LX_API LxModel* stdsize_GetModel(LxStdSize* stdSize);
/* The same object on every call; it lives as long as the size. */
LX_API LxProjections* stdsize_GetProjections(LxStdSize* stdSize);
/* The same object on every call; it lives as long as the size. */
LX_API LxFiles* stdsize_GetFiles(LxStdSize* stdSize);
LX_API LxFolderTable* stdsize_GetTable(LxStdSize* stdSize);
/* Bytes cached by the provider: valid until another template's data is read or written. */
LX_API bool stdsize_GetRepresentationData(LxStdSize* stdSize, unsigned char** data, int32_t* size);
/* Writes for every size of the same template; the bytes are copied. */
LX_API bool stdsize_SetRepresentationData(LxStdSize* stdSize, unsigned char* data, int32_t size);
LX_API int32_t stdsize_GetSpecificationCount(LxStdSize* stdSize);
/* Shared by every size of the template; lives until the provider's caches are cleared. */
LX_API LxSpec* stdsize_GetSpecification(LxStdSize* stdSize, int32_t index);
LX_API int32_t stdsize_GetAttributeCount(LxStdSize* stdSize);
LX_API const wchar_t* stdsize_GetAttributeName(LxStdSize* stdSize, int32_t index);
LX_API const wchar_t* stdsize_GetType(LxStdSize* stdSize);
LX_API bool stdsize_SetType(LxStdSize* stdSize, const wchar_t* type);
LX_API int32_t stdsize_GetTemplateID(LxStdSize* stdSize);

/* -- model_ --------------------------------------------------------------- */

/* A null model counts as empty. */
LX_API bool model_IsEmpty(LxModel* model);
LX_API bool model_Clear(LxModel* model);
LX_API bool model_IsEqualModel(LxModel* model, LxModel* otherModel);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* model_GetModelFile(LxModel* model);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* model_GetDigest(LxModel* model);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* model_GetModelName(LxModel* model);
/* Not implemented: always false. */
LX_API bool model_SetName(LxModel* model, const wchar_t* name);
/* Bytes cached by the provider: valid until another model's icon is asked for. */
LX_API bool model_GetIconData(LxModel* model, unsigned char** data, int32_t* size);
LX_API int32_t model_GetVersion(LxModel* model);
LX_API int32_t model_GetOrientation(LxModel* model);
LX_API bool model_SetModel(LxModel* model, LxModel* otherModel);
LX_API bool model_SetModelEx(LxModel* model, const wchar_t* modelPath, const wchar_t* iconPath, const wchar_t* digest,
                             int32_t version);
LX_API LxStdSize* model_GetStdSize(LxModel* model);

/* -- projections_, projection_ -------------------------------------------- */

/* The new entry belongs to the list. */
LX_API LxProjection* projections_AddProjection(LxProjections* projections, LxProjection* projection);
/* The new entry belongs to the list. */
LX_API LxProjection* projections_AddProjectionEx(LxProjections* projections, const wchar_t* fragmentPath,
                                                 const wchar_t* iconPath, const wchar_t* digest, int32_t type,
                                                 const wchar_t* name, int32_t viewType);
LX_API int32_t projections_GetProjectioCount(LxProjections* projections);
LX_API LxProjection* projections_GetProjection(LxProjections* projections, int32_t index);
/* -1 leaves out the type or the view type, but not both. */
LX_API LxProjection* projections_FindProjection(LxProjections* projections, const wchar_t* name, int32_t type,
                                                int32_t viewType);
/* Destroys the entry. */
LX_API bool projections_DeleteProjection(LxProjections* projections, LxProjection* projection);
LX_API LxStdSize* projections_GetStdSize(LxProjections* projections);
LX_API const wchar_t* projection_GetName(LxProjection* projection);
LX_API const wchar_t* projection_GetDigest(LxProjection* projection);
LX_API int32_t projection_GetType(LxProjection* projection);
LX_API bool projection_SetType(LxProjection* projection, int32_t type, const wchar_t* name);
LX_API int32_t projection_GetViewType(LxProjection* projection);
LX_API bool projection_SetViewType(LxProjection* projection, int32_t viewType);
/* Bytes cached by the provider: valid until another fragment's icon is asked for. */
LX_API bool projection_GetIconData(LxProjection* projection, unsigned char** data, int32_t* size);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* projection_GetFragmentFile(LxProjection* projection);
LX_API bool projection_IsEqualFragment(LxProjection* projection, LxProjection* otherProjection);
LX_API bool projection_SetFragment(LxProjection* projection, LxProjection* otherProjection);
LX_API LxStdSize* projection_GetStdSize(LxProjection* projection);

/* -- files_, file_ -------------------------------------------------------- */

LX_API int32_t files_GetFileCount(LxFiles* files);
LX_API LxFile* files_GetFile(LxFiles* files, int32_t index);
LX_API LxStdSize* files_GetStdSize(LxFiles* files);
/* Not implemented: always false. */
LX_API bool files_AddFile(LxFiles* files, LxFile* file);
/* Not implemented: always false. */
LX_API bool files_AddFileEx(LxFiles* files, const wchar_t* filePath, const wchar_t* name, const wchar_t* digest);
/* Not implemented: always false. */
LX_API bool files_DeleteFile(LxFiles* files, LxFile* file);
LX_API const wchar_t* file_GetName(LxFile* file);
LX_API const wchar_t* file_GetExt(LxFile* file);
/* Text kept by the provider until its caches are cleared. */
LX_API const wchar_t* file_GetFile(LxFile* file);
LX_API bool file_IsEqual(LxFile* file, LxFile* otherFile);
LX_API LxStdSize* file_GetStdSize(LxFile* file);

/* -- spec_ ---------------------------------------------------------------- */

LX_API const wchar_t* spec_LibName(LxSpec* spec);
LX_API int32_t spec_Style(LxSpec* spec);
LX_API int32_t spec_FirstPart(LxSpec* spec);
LX_API int32_t spec_SecondPart(LxSpec* spec);
LX_API int32_t spec_ColumnCount(LxSpec* spec);
LX_API int32_t spec_ColumnNumber(LxSpec* spec, int32_t index);
LX_API const wchar_t* spec_ColumnFormula(LxSpec* spec, int32_t index);

/* -- object_ -------------------------------------------------------------- */

LX_API bool object_Initialize(LxObject* object, const wchar_t* libraryId, LxStdSize* stdSize, bool resetValues);
LX_API bool object_InitializeByObject(LxObject* object, LxObject* byObject);
LX_API bool object_ChangeStdSize(LxObject* object, LxStdSize* stdSize);
/* Null for an object whose size was not found when it was loaded. */
LX_API LxStdSize* object_GetStdSize(LxObject* object);
LX_API const wchar_t* object_getStdSizeId(LxObject* object);
LX_API const wchar_t* object_getPacketName(LxObject* object);
LX_API const wchar_t* object_GetLibraryId(LxObject* object);
LX_API bool object_SetLibraryId(LxObject* object, const wchar_t* libraryId);
/* The view points into the object or its size and stays valid until that value is read again or changes. */
LX_API bool object_GetValue(LxObject* object, LxAttribute* atr, const NumberFormat* format, ValueView* view);
LX_API bool object_GetValueByName(LxObject* object, const wchar_t* name, const NumberFormat* format,
                                  ValueView* view);
LX_API bool object_SetValueI(LxObject* object, LxAttribute* atr, int32_t value);
LX_API bool object_SetValueD(LxObject* object, LxAttribute* atr, double value);
LX_API bool object_SetValueS(LxObject* object, LxAttribute* atr, const wchar_t* value);
LX_API bool object_RestoreValue(LxObject* object, LxAttribute* atr);
LX_API bool object_RestoreAllValues(LxObject* object);
/* The caller owns the copy; destroy it with object_Delete. */
LX_API LxObject* object_Clone(LxObject* object);
LX_API bool object_GetSpecValue(LxObject* object, LxSpec* spec, int32_t columnNumber, const NumberFormat* format,
                                ValueView* view);
LX_API bool object_compareByValues(LxObject* object, LxObject* otherObject);
/* Static text, overwritten by the next call. */
LX_API const wchar_t* object_generateCacheId(LxObject* object);
/* Destroys the object with its layers. */
LX_API bool object_Delete(LxObject* object);
/* selector 0 or 1 picks the format version; elements that do not fit are silently left out. */
LX_API bool object_Save(LxObject* object, unsigned char* buffer, int32_t capacity, uint32_t* written,
                        int32_t selector);
/* The caller owns the object; destroy it with object_Delete. */
LX_API LxObject* object_Load(LxProviderPool* pool, unsigned char* buffer, int32_t size, bool keepIfMissing);
/* Three static texts, overwritten by the next call. */
LX_API bool object_getPacketInfo(unsigned char* buffer, int32_t size, const wchar_t** packetName,
                                 const wchar_t** stdSizeId, const wchar_t** libraryId);
/* The bytes are copied; null data or size 0 removes the entry. */
LX_API bool object_SetBufValue(LxObject* object, const wchar_t* name, unsigned char* data, int32_t size);
/* The bytes belong to the object and last until that entry changes. */
LX_API bool object_GetBufValue(LxObject* object, const wchar_t* name, unsigned char** data, int32_t* size);
LX_API LxProjection* object_GetProjection(LxObject* object);
LX_API int32_t object_GetProjectionType(LxObject* object);
/* 0xFFFFFFFF when no view is chosen. */
LX_API uint32_t object_GetProjectionViewType(LxObject* object);
/* A null projection clears the view. */
LX_API bool object_SetProjection(LxObject* object, LxProjection* projection);
/* The same array on every call, refilled each time; earlier layer handles die. */
LX_API LxLayers* object_GetLayers(LxObject* object);

/* -- layers_, layer_ ------------------------------------------------------ */

LX_API int32_t layers_GetCount(LxLayers* layers);
LX_API LxLayer* layers_GetLayer(LxLayers* layers, int32_t index);
LX_API int32_t layer_GetNumber(LxLayer* layer);
LX_API const wchar_t* layer_GetName(LxLayer* layer);
LX_API bool layer_GetVisible(LxLayer* layer);
/* Not implemented: always false; write the layer's attribute on the object instead. */
LX_API bool layer_SetVisible(LxLayer* layer);

/* -- search_, search2_ ---------------------------------------------------- */

LX_API int32_t search_GetCount(LxSearchResult* search);
/* A borrowed size: it dies with its packet, not with the result. */
LX_API LxStdSize* search_Get(LxSearchResult* search, int32_t index);
LX_API bool search2_Check(LxSearchResult2* search, LxStdSize* stdSize);

#ifdef __cplusplus
}
#endif
