// Helpers for stating expected Values in tests: the same kind, and the same
// payload (doubles within a relative 1e-12, NaN equal to NaN).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "formula/Value.h"
#include "platform/TextCodec.h"

inline std::string Utf8(std::wstring_view text) { return WideToUtf8(text); }

inline std::string DescribeValue(const Value& value) {
  switch (value.index()) {
    case LX_VALUE_INT:
      return "int " + std::to_string(std::get<LX_VALUE_INT>(value));
    case LX_VALUE_DOUBLE: {
      char buffer[64];
      std::snprintf(buffer, sizeof buffer, "double %.17g", std::get<LX_VALUE_DOUBLE>(value));
      return buffer;
    }
    case LX_VALUE_STRING:
      return "string \"" + Utf8(std::get<LX_VALUE_STRING>(value)) + "\"";
    default:
      return "empty";
  }
}

inline ::testing::AssertionResult SameValue(const Value& actual, const Value& expected) {
  bool same = actual.index() == expected.index();
  if (same && IsDouble(actual)) {
    const double a = std::get<LX_VALUE_DOUBLE>(actual);
    const double e = std::get<LX_VALUE_DOUBLE>(expected);
    same = (std::isnan(a) && std::isnan(e)) || a == e ||
           std::fabs(a - e) <= 1e-12 * std::max(1.0, std::fabs(e));
  } else if (same) {
    same = actual == expected;
  }
  if (same) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "got " << DescribeValue(actual) << ", expected " << DescribeValue(expected);
}
