// The messages of the current call, in the order they were reported. The
// frame empties the list when a call begins and writes it to the debug
// channel when the call ends; class code appends through Report.h.
//
// Not thread-safe on its own: the frame lock guards the one process-wide list.
#pragma once

#include <string>
#include <vector>

class PendingList {
 public:
  // Destroys the messages but keeps the capacity, so a call that reports
  // nothing allocates nothing.
  void Clear() noexcept { messages_.clear(); }
  void Append(std::wstring message) { messages_.push_back(std::move(message)); }
  bool Empty() const noexcept { return messages_.empty(); }

  // The flush text: ">LxDataAcces: ", then each message behind an indent that
  // grows by ">   " per message, each ending in "\n".
  std::wstring DebugText() const;

  // Writes DebugText() to the debug channel in one write, if there is
  // anything to write. The list keeps its content until the next Clear().
  void Flush() const noexcept;

 private:
  std::vector<std::wstring> messages_;
};

// The one list of the process. Built on first use; the library state touches
// it while it is being built itself, so the list outlives the pools, whose
// destruction may still report.
PendingList& Pending();

