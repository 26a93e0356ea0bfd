#include "storage/BaseOperation.h"

#include "platform/Report.h"
#include "platform/TextCodec.h"
#include "storage/BlobTransfer.h"
#include "storage/CDataProvider.h"

#include <stdexcept>
#include <utility>

BaseOperation::BaseOperation(CDataProvider* provider) : provider_(provider) {
  if (provider_ == nullptr) throw std::invalid_argument("BaseOperation needs a provider");
  IBPP::Transaction& transaction = GetTransaction();
  if (!transaction.Started()) transaction.Start();
}

BaseOperation::BaseOperation(BaseOperation&& other) noexcept
    : provider_(std::exchange(other.provider_, nullptr)),
      database_(std::move(other.database_)),
      transaction_(std::move(other.transaction_)) {}

BaseOperation::~BaseOperation() { End(); }

// A failure here cannot be reported: the scope is going away, often because
// of an exception already under way, and the engine drops an uncommitted
// transaction of a lost attachment by itself.
void BaseOperation::End() noexcept {
  if (provider_ != nullptr) {
    try {
      if (transaction_ && transaction_->Started()) transaction_->Rollback();
    } catch (...) {
    }
    try {
      if (database_ && database_->Connected()) database_->Disconnect();
    } catch (...) {
    }
  }
  transaction_.reset();
  database_.reset();
}

IBPP::Database& BaseOperation::GetDatabase() {
  if (!database_) {
    // Connection strings are not catalog content: they take the system's
    // narrow encoding, which is UTF-8 here, not code page 1251.
    auto database = std::make_unique<IBPP::Database>(
        WideToUtf8(provider_->GetServerName()), WideToUtf8(provider_->GetDatabaseName()),
        WideToUtf8(provider_->GetUserName()), WideToUtf8(provider_->GetPassword()), "", "", "");
    database->Connect();
    database_ = std::move(database);
  }
  return *database_;
}

IBPP::Transaction& BaseOperation::GetTransaction() {
  if (!transaction_) transaction_ = std::make_unique<IBPP::Transaction>(GetDatabase());
  return *transaction_;
}

IBPP::Statement BaseOperation::NewStatement() { return IBPP::Statement(GetDatabase(), GetTransaction()); }

IBPP::Blob BaseOperation::NewBlob() { return IBPP::Blob(GetDatabase(), GetTransaction()); }

ByteDataPtr BaseOperation::ReadContentById(IBPP::Statement& statement, const char* sql, std::int32_t id, int column,
                                           std::wstring_view noRow, std::wstring_view noData, const char* method) {
  statement.Prepare(sql);
  statement.Set(1, id);
  statement.Execute();
  if (!statement.Fetch()) {
    Report(std::wstring(noRow) + std::to_wstring(id) + L" из базы", method);
    return nullptr;
  }
  IBPP::Blob blob = NewBlob();
  ByteDataPtr content = LoadBlobColumn(statement, column, blob);
  if (!content) Report(noData, method);
  return content;
}
