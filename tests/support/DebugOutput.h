// Runs a piece of client code while capturing the library's debug channel,
// and states what it should have written.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "StderrCapture.h"

namespace lxtest {

// Each element is one write to the debug channel, as UTF-8.
using Writes = std::vector<std::string>;

template <typename Action>
auto Captured(Action&& action) {
  StderrCapture capture;
  auto result = action();
  return std::make_pair(result, capture.FinishWrites());
}

// The text one flush writes for these messages.
inline std::string FlushText(const std::vector<std::string>& messages) {
  std::string text = ">LxDataAcces: ";
  std::string indent;
  for (const std::string& message : messages) {
    text += indent + message + "\n";
    indent += ">   ";
  }
  return text;
}

// What Captured gives for a call that returns `result` and writes nothing.
template <typename Result>
std::pair<Result, Writes> Quietly(Result result) {
  return {result, Writes{}};
}

// What one flush of these messages writes; no messages write nothing.
inline Writes Flushed(const std::vector<std::string>& messages) {
  return messages.empty() ? Writes{} : Writes{FlushText(messages)};
}

// The writes of a call that is meant to fail. A result that is not null,
// false or 0 comes first as "<did not fail>", so that no comparison with
// expected messages passes.
template <typename Action>
Writes FailureWrites(Action&& action) {
  auto [result, writes] = Captured(action);
  if (result) writes.insert(writes.begin(), "<did not fail>");
  return writes;
}

// Whether what Captured gave is a failure whose one write is the frame's
// report of an exception from the database in `function`.
template <typename Result>
::testing::AssertionResult FailedInDatabase(const std::pair<Result, Writes>& captured, const std::string& function) {
  const std::string head = ">LxDataAcces:  (fun: " + function + ")\n";
  if (!captured.first && captured.second.size() == 1 && captured.second[0].rfind(head, 0) == 0) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "result " << ::testing::PrintToString(captured.first) << ", writes "
                                       << ::testing::PrintToString(captured.second);
}

}  // namespace lxtest

// Expects `call` to fail and to write exactly these messages in one flush,
// or nothing when none are given.
#define EXPECT_FAILS(call, ...) \
  EXPECT_EQ(::lxtest::FailureWrites([&] { return call; }), ::lxtest::Flushed({__VA_ARGS__}))
