// CommitGuard: the commit pattern of a writing operation. A write method opens
// one on its operation scope, runs its statements, and calls Commit() once
// at the end. Leaving by any other path (an exception between two
// statements, an early return) rolls the transaction back, so a write is
// either whole or absent.
//
// After Commit() and after the rollback the transaction is started again:
// the scope always holds a started transaction, whatever follows.
//
// Lives on the stack next to its operation scope, which must outlive it.
#pragma once

class BaseOperation;

class CommitGuard {
 public:
  explicit CommitGuard(BaseOperation& operation);
  // Rolls back and restarts unless committed; failures are ignored here.
  ~CommitGuard();

  CommitGuard(const CommitGuard&) = delete;
  CommitGuard& operator=(const CommitGuard&) = delete;

  // Commits the work so far and starts a fresh transaction. An
  // IBPP::Exception if the commit fails; the guard then still rolls back.
  void Commit();
  bool Committed() const { return committed_; }

 private:
  BaseOperation& operation_;
  bool committed_ = false;
};
