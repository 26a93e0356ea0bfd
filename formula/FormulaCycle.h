// The message of a formula that reads too much (a cycle, as a rule). It goes
// straight to the debug channel, not to the call's pending messages, and at
// most once per data source.
#pragma once

#include <cstdint>
#include <string>

// Writes the message for the size `sizeIdentifier` unless `reported` is
// already set; sets it.
void ReportFormulaCycle(bool& reported, const std::wstring& sizeIdentifier);

// The read budget of one data source: reads (and an object's writes) past
// the limit are refused, and the first refusal writes the message for the
// size. The count never goes down, so it bounds the total work of one
// top-level read, cycle or not.
class FormulaReadGuard {
 public:
  static constexpr std::int32_t kReadLimit = 50;

  // Counts one access; false once past the limit.
  bool Count(const std::wstring& sizeIdentifier) {
    if (++readCount_ <= kReadLimit) return true;
    ReportFormulaCycle(cycleReported_, sizeIdentifier);
    return false;
  }

 private:
  bool cycleReported_ = false;
  std::int32_t readCount_ = 0;
};
