// Whole blobs in and out of the database: a blob is always read completely
// into memory, and written in segments of at most IBPP::Blob::kMaxSegment
// bytes. The bytes are never converted.
//
// Free functions over a blob; as thread-safe as the blob.
#pragma once

#include "storage/ibpp/Blob.h"

#include <span>
#include <vector>

// Opens the blob (its id set from a column), reads it whole, closes it. The
// reads ask for the blob's largest segment each time.
std::vector<unsigned char> ReadWholeBlob(IBPP::Blob& blob);

// Creates the blob, writes the bytes in pieces of at most 32767 bytes and
// closes it, ready to be set as a statement parameter.
void WriteWholeBlob(IBPP::Blob& blob, std::span<const unsigned char> bytes);
