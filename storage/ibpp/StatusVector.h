// StatusVector: the status array that every call into the Firebird client
// library fills, and the one place that turns a failed call into an
// IBPP::Exception. Internal to the layer's .cpp files: it brings <ibase.h>
// with it, which the layer's public headers keep out.
//
// One per call site; not shared between threads.
#pragma once

#include <ibase.h>

#include <string>
#include <string_view>

namespace IBPP::detail {

class StatusVector {
 public:
  StatusVector();

  // Passed as the first argument of a client-library call.
  ISC_STATUS* Get() { return vector_; }

  bool Failed() const;
  // Every message of the vector, as fb_interpret words it, joined by '\n'.
  std::string Text() const;
  // Throws IBPP::Exception with Text() when the last call failed.
  void ThrowIfFailed() const;

 private:
  ISC_STATUS_ARRAY vector_;
};

// For the layer's own precondition failures, which have no status vector.
[[noreturn]] void ThrowUsageError(std::string_view where, std::string_view what);

}  // namespace IBPP::detail
