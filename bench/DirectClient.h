// The Firebird client's own ISC API with nothing of ours around it, as the
// yardstick the library's database work is measured against: one attachment,
// one transaction of the library's kind, statements whose every column is
// bound in its native type and read on each row.
#pragma once

#include <ibase.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lxtest {

class ClientAttachment {
 public:
  // Embedded, as SYSDBA.
  explicit ClientAttachment(const std::string& path);
  ~ClientAttachment();
  ClientAttachment(const ClientAttachment&) = delete;
  ClientAttachment& operator=(const ClientAttachment&) = delete;
  isc_db_handle* Handle() { return &handle_; }

 private:
  isc_db_handle handle_ = 0;
};

// Write, read committed, no record version, no wait; rolled back at the end.
class ClientTransaction {
 public:
  explicit ClientTransaction(ClientAttachment& attachment);
  ~ClientTransaction();
  ClientTransaction(const ClientTransaction&) = delete;
  ClientTransaction& operator=(const ClientTransaction&) = delete;
  isc_tr_handle* Handle() { return &handle_; }

 private:
  isc_tr_handle handle_ = 0;
};

// Prepares `sql` once; Run executes it with an optional integer parameter
// and fetches every row, reading every column. Returns the rows fetched.
class ClientQuery {
 public:
  ClientQuery(ClientAttachment& attachment, ClientTransaction& transaction, const char* sql);
  ~ClientQuery();
  ClientQuery(const ClientQuery&) = delete;
  ClientQuery& operator=(const ClientQuery&) = delete;

  std::int64_t Run();
  std::int64_t Run(std::int32_t parameter);

  // Row by row, for callers that read the columns themselves (from 1).
  void Execute(std::int32_t parameter);
  bool Fetch();
  std::int32_t Int(int column) const;
  // A VARCHAR column's bytes as stored.
  std::string Text(int column) const;
  ISC_QUAD BlobId(int column) const;

 private:
  const XSQLVAR& Column(int column) const;
  std::int64_t FetchAll();

  ClientTransaction& transaction_;
  isc_stmt_handle handle_ = 0;
  std::vector<char> outputArea_;
  std::vector<char> inputArea_;
  std::vector<std::vector<std::int64_t>> buffers_;
  std::vector<short> nulls_;
  std::int32_t parameter_ = 0;
  short parameterNull_ = 0;
};

// A whole blob, read with its largest segment as the read size, as the
// library reads blobs.
std::vector<unsigned char> ReadClientBlob(ClientAttachment& attachment, ClientTransaction& transaction,
                                          ISC_QUAD id);

}  // namespace lxtest
