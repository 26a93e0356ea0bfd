// FakeDataSource: an IFormulaDataSource over two fixed tables, recording
// what a formula reads and writes so tests can check evaluation order,
// short-circuiting and the format passed on.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "formula/IFormulaDataSource.h"

class FakeDataSource : public IFormulaDataSource {
 public:
  FakeDataSource() = default;
  FakeDataSource(std::map<int32_t, Value> byNumber, std::map<std::wstring, Value> byName)
      : byNumber_(std::move(byNumber)), byName_(std::move(byName)) {}

  Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) override {
    reads_.push_back(L"[" + name + L"]");
    formats_.push_back(format);
    const auto found = byName_.find(name);
    result = found == byName_.end() ? Value{} : found->second;
    return result;
  }

  Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) override {
    reads_.push_back(L"A" + std::to_wstring(attributeNumber));
    formats_.push_back(format);
    const auto found = byNumber_.find(attributeNumber);
    result = found == byNumber_.end() ? Value{} : found->second;
    return result;
  }

  bool SetValueByNumber(int32_t attributeNumber, const Value& value) override {
    writes_.emplace_back(attributeNumber, value);
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
  std::map<int32_t, Value> byNumber_;
  std::map<std::wstring, Value> byName_;
  bool acceptsWrites_ = true;
  std::vector<std::wstring> reads_;
  std::vector<NumberFormat> formats_;
  std::vector<std::pair<int32_t, Value>> writes_;
};
