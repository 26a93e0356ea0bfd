// IBPP::Statement: one SQL statement on a Database within a Transaction.
// Text is prepared once and executed as often as needed with new parameter
// values; a SELECT opens a cursor that Fetch walks; an EXECUTE PROCEDURE or
// an INSERT ... RETURNING delivers its one row at Execute, to be read
// without fetching.
//
// Parameters and columns are numbered from 1. Get returns true when the
// value is null, and then gives 0, 0.0, an empty string or an empty blob.
// Text goes in and out as the bytes the database holds: the caller converts.
//
// Made on a Database and Transaction, which must outlive it; it survives a
// commit and restart of its transaction. Not thread-safe.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace IBPP {

class Blob;
class Database;
class Transaction;

class Statement {
 public:
  Statement(Database& database, Transaction& transaction);
  ~Statement();

  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Prepare(std::string_view sql);
  // Runs the prepared text; every parameter must have been set.
  void Execute();
  // Prepares and runs a text without parameters.
  void Execute(std::string_view sql);
  // Moves to the next row of the open cursor; false (and the cursor closed)
  // after the last one.
  bool Fetch();

  int Parameters() const;
  int Columns() const;

  void SetNull(int parameter);
  void Set(int parameter, std::int32_t value);
  void Set(int parameter, double value);
  void Set(int parameter, std::string_view bytes);
  // The blob must have been created, written and closed.
  void Set(int parameter, const Blob& blob);

  bool IsNull(int column) const;
  bool Get(int column, std::int32_t& value) const;
  bool Get(int column, double& value) const;
  bool Get(int column, std::string& value) const;
  // The text in the row's own buffer, without a copy: valid until the next
  // Fetch, Execute or Prepare.
  bool Get(int column, std::string_view& value) const;
  // Gives the blob the column's blob id, ready to be opened.
  bool Get(int column, Blob& blob) const;

  // The same, by the column's name or alias (ASCII case ignored).
  bool IsNull(std::string_view column) const;
  bool Get(std::string_view column, std::int32_t& value) const;
  bool Get(std::string_view column, double& value) const;
  bool Get(std::string_view column, std::string& value) const;
  bool Get(std::string_view column, Blob& blob) const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace IBPP
