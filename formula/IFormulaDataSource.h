// IFormulaDataSource: where a formula tree reads the attributes it names, so
// that one tree serves a standard size and a placed object alike.
//
// A source is made by the caller for one top-level read, lives on its stack
// and belongs to that one evaluation: it is never shared between threads.
// Reads never fail; whatever is missing comes back as an empty Value.
#pragma once

#include <cstdint>
#include <string>

#include "formula/Value.h"

class IFormulaDataSource {
 public:
  virtual ~IFormulaDataSource() = default;

  // The value of the attribute called `name`; `format` travels on to any
  // formula the read evaluates in turn. Returns `result`.
  virtual Value& GetValueByName(Value& result, const std::wstring& name, const NumberFormat& format) = 0;

  // The value of the attribute numbered `attributeNumber`. Returns `result`.
  virtual Value& GetValueByNumber(Value& result, int32_t attributeNumber, const NumberFormat& format) = 0;

  // Writes `value` to the attribute numbered `attributeNumber`; true when it
  // was taken.
  virtual bool SetValueByNumber(int32_t attributeNumber, const Value& value) = 0;
};
