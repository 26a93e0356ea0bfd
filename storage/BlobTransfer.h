// Whole blobs in and out of the database: a blob is always read completely
// into memory, asking for its largest segment each time, and written in
// segments of at most IBPP::Blob::kMaxSegment bytes.
//
// Free functions over a blob; as thread-safe as the blob.
#pragma once

#include "content/ByteData.h"
#include "storage/ibpp/Blob.h"

#include <span>
#include <vector>

namespace IBPP {
class Statement;
}

// Opens the blob (its id set from a column), reads it whole, closes it. The
// bytes are not converted.
std::vector<unsigned char> ReadWholeBlob(IBPP::Blob& blob);

// Creates the blob, writes the bytes in pieces of at most 32767 bytes and
// closes it, ready to be set as a statement parameter.
void WriteWholeBlob(IBPP::Blob& blob, std::span<const unsigned char> bytes);

// Stored content of a column: read whole into `blob` (a fresh blob of the
// statement's scope) and decompressed. Null when the blob is empty, which
// callers report as no data. A NULL column has no blob to open: the client
// library's error unwinds to the frame.
ByteDataPtr LoadBlobColumn(const IBPP::Statement& statement, int column, IBPP::Blob& blob);
