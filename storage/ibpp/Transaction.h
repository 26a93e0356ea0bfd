// IBPP::Transaction: the one transaction kind the library uses, for reading
// and writing alike: write access, read committed without record versions,
// no wait. A lock conflict therefore fails at once instead of waiting.
//
// Made on a Database, which must outlive it. Statements and Blobs keep a
// pointer to it; after Commit and Start they go on with the new transaction.
// Not thread-safe.
#pragma once

#include "storage/ibpp/Handles.h"

namespace IBPP {

class Database;

class Transaction {
 public:
  explicit Transaction(Database& database);
  // Rolls back if still started; failures are ignored here.
  ~Transaction();

  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Start();
  void Commit();
  void Rollback();
  bool Started() const { return handle_ != 0; }

  Database& GetDatabase() { return database_; }
  NativeHandle* Handle() { return &handle_; }

 private:
  Database& database_;
  NativeHandle handle_ = 0;
};

}  // namespace IBPP
