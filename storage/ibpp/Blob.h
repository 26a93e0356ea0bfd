// IBPP::Blob: one blob value, read or written segment by segment. A blob is
// created (then written and closed) before it is set as a statement
// parameter, or fetched from a statement's column (then opened, read and
// closed).
//
// Made on a Database and Transaction, which must outlive it; the handle is
// only valid inside the transaction it was opened in. Not thread-safe.
#pragma once

#include "storage/ibpp/Handles.h"

namespace IBPP {

class Database;
class Transaction;

class Blob {
 public:
  // The client library takes segments of up to 65535 bytes, but the stored
  // format was always written in pieces of at most 32767, and readers of
  // other implementations rely on segments that fit a signed 16-bit length.
  static constexpr int kMaxSegment = 32767;

  Blob(Database& database, Transaction& transaction);
  // A blob still being written is cancelled, one being read is closed;
  // failures are ignored here.
  ~Blob();

  Blob(Blob&& other) noexcept;
  Blob& operator=(Blob&& other) = delete;
  Blob(const Blob&) = delete;
  Blob& operator=(const Blob&) = delete;

  void Create();
  void Open();
  void Close();

  // Any of the pointers may be null.
  void Info(int* totalSize, int* largestSegment, int* segmentCount);
  // Reads at most size bytes from the current segment on; returns how many
  // were read, 0 at the end of the blob.
  int Read(void* buffer, int size);
  // Writes one segment of 1 to kMaxSegment bytes.
  void Write(const void* buffer, int size);

  // For Statement: where the blob lives.
  BlobId Id() const { return id_; }
  void SetId(BlobId id);

 private:
  enum class State { Idle, Writing, Reading };

  Database* database_;
  Transaction* transaction_;
  BlobId id_;
  NativeHandle handle_ = 0;
  State state_ = State::Idle;
};

}  // namespace IBPP
