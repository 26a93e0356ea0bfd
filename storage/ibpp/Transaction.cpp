#include "storage/ibpp/Transaction.h"

#include "storage/ibpp/Database.h"
#include "storage/ibpp/StatusVector.h"

namespace IBPP {
namespace {

constexpr const char* kWhere = "Transaction";

// Write access, read committed, no record version, no wait.
const char kParameters[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_no_rec_version,
                            isc_tpb_nowait};

}  // namespace

Transaction::Transaction(Database& database) : database_(database) {}

Transaction::~Transaction() {
  if (handle_ == 0) return;
  detail::StatusVector status;
  isc_rollback_transaction(status.Get(), &handle_);
}

void Transaction::Start() {
  if (Started()) detail::ThrowUsageError(kWhere, "Start on a started transaction");
  if (!database_.Connected()) detail::ThrowUsageError(kWhere, "Start on a database that is not attached");
  detail::StatusVector status;
  isc_start_transaction(status.Get(), &handle_, 1, database_.Handle(), static_cast<unsigned short>(sizeof kParameters),
                        kParameters);
  if (status.Failed()) {
    handle_ = 0;
    status.ThrowIfFailed();
  }
}

void Transaction::Commit() {
  if (!Started()) detail::ThrowUsageError(kWhere, "Commit on a transaction that is not started");
  detail::StatusVector status;
  isc_commit_transaction(status.Get(), &handle_);
  status.ThrowIfFailed();
}

void Transaction::Rollback() {
  if (!Started()) detail::ThrowUsageError(kWhere, "Rollback on a transaction that is not started");
  detail::StatusVector status;
  isc_rollback_transaction(status.Get(), &handle_);
  status.ThrowIfFailed();
}

}  // namespace IBPP
