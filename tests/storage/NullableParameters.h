// Setting a statement parameter from an optional value: an empty optional is
// NULL. Text goes through the library's code page 1251 conversion.
#pragma once

#include "storage/DbText.h"
#include "storage/ibpp/Statement.h"

#include <cstdint>
#include <optional>
#include <string>

inline void SetOrNull(IBPP::Statement& statement, int parameter, const std::optional<std::int32_t>& value) {
  if (value) {
    statement.Set(parameter, *value);
  } else {
    statement.SetNull(parameter);
  }
}

inline void SetOrNull(IBPP::Statement& statement, int parameter, const std::optional<double>& value) {
  if (value) {
    statement.Set(parameter, *value);
  } else {
    statement.SetNull(parameter);
  }
}

inline void SetOrNull(IBPP::Statement& statement, int parameter, const std::optional<std::wstring>& text) {
  if (text) {
    SetDbText(statement, parameter, *text);
  } else {
    statement.SetNull(parameter);
  }
}
