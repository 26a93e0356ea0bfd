// The client library's handle and blob-id types, restated so that the layer's
// public headers need not include <ibase.h>. StatusVector.cpp checks that they
// match the client library's own definitions.
#pragma once

#include <cstdint>

namespace IBPP {

// isc_db_handle, isc_tr_handle, isc_stmt_handle, isc_blob_handle; 0 means none.
using NativeHandle = unsigned int;

// ISC_QUAD: where a blob lives. All zero means no blob.
struct BlobId {
  std::int32_t high = 0;
  std::uint32_t low = 0;

  bool IsEmpty() const { return high == 0 && low == 0; }
};

}  // namespace IBPP
