// FakeFormulaSource: an IFormulaDataSource over two fixed tables, for the
// formula tests, the formula benchmark and the formula fuzzer.
//
// It can record what a formula reads and writes, so that tests see the order
// of evaluation, short-circuiting and the number format passed on. Recording
// allocates, so the allocation test and the benchmark turn it off and the
// source then allocates nothing of its own. Reads are table look-ups, never
// formulas in turn, so every evaluation ends. Header-only: the fuzzer is
// built from a bare list of sources. Not thread-safe.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "formula/IFormulaDataSource.h"

namespace lxtest {

class FakeFormulaSource : public IFormulaDataSource {
 public:
  using ByNumber = std::map<int32_t, Value>;
  using ByName = std::map<std::wstring, Value>;

  enum class Log { Record, Silent };

  FakeFormulaSource() = default;
  FakeFormulaSource(ByNumber byNumber, ByName byName, Log log = Log::Record)
      : byNumber_(std::move(byNumber)), byName_(std::move(byName)), recording_(log == Log::Record) {}

  Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) override {
    if (recording_) Note(L"[" + name + L"]", format);
    return result = Find(byName_, name);
  }

  Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) override {
    if (recording_) Note(L"A" + std::to_wstring(attributeNumber), format);
    return result = Find(byNumber_, attributeNumber);
  }

  bool SetValueByNumber(int32_t attributeNumber, const Value& value) override {
    if (recording_) writes_.emplace_back(attributeNumber, value);
    return acceptsWrites_;
  }

  void SetAcceptsWrites(bool accepts) { acceptsWrites_ = accepts; }
  // Keeps the tables, forgets what was recorded.
  void ClearLog() {
    reads_.clear();
    formats_.clear();
    writes_.clear();
  }

  const std::vector<std::wstring>& Reads() const { return reads_; }
  const std::vector<NumberFormat>& Formats() const { return formats_; }
  const std::vector<std::pair<int32_t, Value>>& Writes() const { return writes_; }

 private:
  template <typename Table, typename Key>
  static const Value& Find(const Table& table, const Key& key) {
    static const Value none;
    const auto found = table.find(key);
    return found == table.end() ? none : found->second;
  }
  void Note(std::wstring read, const NumberFormat& format) {
    reads_.push_back(std::move(read));
    formats_.push_back(format);
  }

  ByNumber byNumber_;
  ByName byName_;
  bool recording_ = true;
  bool acceptsWrites_ = true;
  std::vector<std::wstring> reads_;
  std::vector<NumberFormat> formats_;
  std::vector<std::pair<int32_t, Value>> writes_;
};

}  // namespace lxtest
