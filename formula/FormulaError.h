// FormulaError: what parsing and evaluation of a formula throw.
//
// The payload is the wide message text, kept byte for byte because it is part
// of the library's behaviour even though no layer reads it today: the call
// frame reports every non-database exception with one fixed form. Deriving
// from std::exception lets that generic handler take it like any other
// standard failure. Instances are immutable and may be copied across threads.
#pragma once

#include <exception>
#include <string>

class FormulaError : public std::exception {
 public:
  explicit FormulaError(std::wstring text) : text_(std::move(text)) {}

  const std::wstring& Text() const noexcept { return text_; }

  // The narrow form carries no message: the wide text is the payload, and
  // converting it here would need a code page this layer knows nothing of.
  const char* what() const noexcept override { return "formula error"; }

 private:
  std::wstring text_;
};
