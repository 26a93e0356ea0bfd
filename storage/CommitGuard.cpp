#include "storage/CommitGuard.h"

#include "storage/BaseOperation.h"

CommitGuard::CommitGuard(BaseOperation& operation) : operation_(operation) {}

CommitGuard::~CommitGuard() {
  if (committed_) return;
  // Nothing can be reported from here; if the rollback fails the attachment
  // is gone and the scope's end will find no transaction worth undoing.
  try {
    IBPP::Transaction& transaction = operation_.GetTransaction();
    if (transaction.Started()) transaction.Rollback();
    transaction.Start();
  } catch (...) {
  }
}

void CommitGuard::Commit() {
  IBPP::Transaction& transaction = operation_.GetTransaction();
  transaction.Commit();
  transaction.Start();
  committed_ = true;
}
