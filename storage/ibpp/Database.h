// IBPP::Database: one attachment to one Firebird database, made from four
// connection strings in the client's narrow encoding. An empty server means a
// local attach (the embedded engine opens the file in this process);
// otherwise the client connects to "server:path". Always SQL dialect 3.
//
// Owned by whoever made it (an operation scope); Transactions, Statements and
// Blobs made on it keep a pointer to it and must not outlive it. Not
// thread-safe: one thread at a time.
#pragma once

#include "storage/ibpp/Handles.h"

#include <string>

namespace IBPP {

class Database {
 public:
  // role and charSet may be empty (no role, no connection character set).
  // createParams is what follows the file name in CREATE DATABASE, used by
  // Create() only.
  Database(std::string server, std::string path, std::string user, std::string password,
           std::string role, std::string charSet, std::string createParams);
  // Detaches if still attached; failures are ignored here.
  ~Database();

  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Creates the database file and leaves this object attached to it.
  void Create();
  void Connect();
  void Disconnect();
  bool Connected() const { return handle_ != 0; }

  static constexpr int kDialect = 3;

  // For the other classes of the layer.
  NativeHandle* Handle() { return &handle_; }

 private:
  std::string ConnectionTarget() const;

  const std::string server_;
  const std::string path_;
  const std::string user_;
  const std::string password_;
  const std::string role_;
  const std::string charSet_;
  const std::string createParams_;
  NativeHandle handle_ = 0;
};

}  // namespace IBPP
