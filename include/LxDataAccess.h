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
#ifndef LXDATAACCESS_H
#define LXDATAACCESS_H

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

/* @@EXPORTS@@ */

#ifdef __cplusplus
}
#endif

#endif /* LXDATAACCESS_H */
