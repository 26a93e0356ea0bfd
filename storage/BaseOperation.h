// BaseOperation: the scope of one database operation, and the base of every
// class that holds SQL (the ...Operation classes). Constructing it attaches
// to the provider's database and starts a transaction; ending it rolls back
// whatever was not committed and detaches. No attachment, transaction or
// statement outlives the scope: the library keeps no connection between
// calls.
//
// Lives on the stack of one method call or worker task and is never shared
// between threads. Movable, not copyable: a moved-from scope has no provider
// and does nothing when it ends.
#pragma once

#include "content/ByteData.h"
#include "storage/ibpp/IBPP.h"

#include <cstdint>
#include <memory>
#include <string>

class CDataProvider;
class CPacket;

class BaseOperation {
 public:
  // Attaches and starts the transaction; an IBPP::Exception if either fails.
  explicit BaseOperation(CDataProvider* provider);
  virtual ~BaseOperation();

  BaseOperation(BaseOperation&& other) noexcept;
  BaseOperation& operator=(BaseOperation&&) = delete;
  BaseOperation(const BaseOperation&) = delete;
  BaseOperation& operator=(const BaseOperation&) = delete;

  // The basic load of a catalog into the provider: packets, folder trees
  // and the attribute dictionaries, in one scope. False with a report when a
  // step fails; database errors are thrown.
  static bool BasicLoading(CDataProvider* provider);
  // Reads everything below the folders of one packet.
  static bool LoadPacket(CPacket* packet);
  // The BASE_PARAM value of name and tag; false with a report when the
  // catalog has no such table or no such parameter.
  static bool GetParam(CDataProvider* provider, const std::wstring& name, const std::wstring& tag,
                       std::wstring& value);

  // Created and attached on first use.
  IBPP::Database& GetDatabase();
  // Created on first use; started by the constructor.
  IBPP::Transaction& GetTransaction();

 protected:
  CDataProvider* Provider() const { return provider_; }
  // A statement or blob on this scope's attachment and transaction. Release
  // it before the scope ends.
  IBPP::Statement NewStatement();
  IBPP::Blob NewBlob();
  // Stored content in `column` of the row that `sql` selects by its one
  // parameter, `id`; the statement stays on that row for its other columns.
  // Null when there is no row (reported as `noRow`, the id, " из базы") or
  // no data (reported as `noData`), for `method`.
  ByteDataPtr ReadContentById(IBPP::Statement& statement, const char* sql, std::int32_t id, int column,
                              std::wstring_view noRow, std::wstring_view noData, const char* method);

 private:
  bool LoadPacketsAndFolders();
  bool LoadAttributeNames();
  bool LoadAttributeDescriptions();
  // Reads (id, text) rows into one of the provider's dictionaries.
  bool LoadDictionary(const char* sql, void (CDataProvider::*store)(std::int32_t, std::wstring));
  void End() noexcept;

  // Not owned; null once moved from.
  CDataProvider* provider_;
  // Held by pointer so that statements keep valid references when the scope
  // itself is moved.
  std::unique_ptr<IBPP::Database> database_;
  std::unique_ptr<IBPP::Transaction> transaction_;
};
