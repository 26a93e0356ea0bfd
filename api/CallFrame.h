// The frame that every export but two runs in. It serialises the call on the
// process-wide recursive lock, starts it with an empty pending list, checks
// the handle arguments first to last, runs the body inside the two exception
// handlers, and writes what the call reported to the debug channel before it
// lets go of the lock. No exception leaves it; every failure is the zero
// value of the result type.
//
// An export is one expression:
//
//   return CallFrame("pool_GetProvider")
//       .Handle(pool, "pool")
//       .Call([&] { return ToHandle(Obj(pool)->_GetProvider(index)); });
//
// Strings(...) makes a null string argument a silent failure.
#pragma once

#include <mutex>
#include <string_view>
#include <type_traits>

#include "api/LibraryState.h"

class CallFrame {
 public:
  // Takes the frame lock and empties the pending list. `function` is the
  // name that stands in the frame's messages; it must outlive the frame.
  explicit CallFrame(const char* function);
  // Flushes the pending list, then releases the lock.
  ~CallFrame();

  CallFrame(const CallFrame&) = delete;
  CallFrame& operator=(const CallFrame&) = delete;

  // Reports the first null handle with its argument name; later checks of
  // the same frame are skipped, as is the body.
  CallFrame& Handle(const void* handle, const char* argumentName);

  // A null string fails the call without a message.
  template <typename... Texts>
  CallFrame& Strings(const Texts*... texts) {
    if (!failed_ && ((texts == nullptr) || ...)) failed_ = true;
    return *this;
  }

  // Runs the body unless a check failed. Returns its result, or the zero
  // value of its result type when a check failed or the body threw.
  template <typename Body, typename Result = std::invoke_result_t<Body&>>
  Result Call(Body&& body) {
    if (failed_) return Result{};
    try {
      if constexpr (std::is_void_v<Result>) {
        body();
      } else {
        return body();
      }
    } catch (...) {
      ReportCurrentException();
    }
    return Result{};
  }

 private:
  // Turns the exception in flight into the frame's second or third message.
  void ReportCurrentException() noexcept;

  std::unique_lock<std::recursive_mutex> lock_;
  const char* function_;
  bool failed_ = false;
};

// A string argument the interface does not test for null: the caller's
// duty. A null one still must not crash the process, so it throws and the
// frame answers with its "unknown exception" message and the zero result.
std::wstring_view Required(const wchar_t* text);

// A number format the client may leave out: null means the library's
// default.
const NumberFormat& FormatOrDefault(const NumberFormat* format);
