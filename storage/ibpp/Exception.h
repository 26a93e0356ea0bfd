// The one exception type of the database layer. Whatever the Firebird client
// reports (connection refused, SQL error, lock conflict) arrives as this, with
// the client library's full error text; the call frame turns it into a message.
#pragma once

#include <exception>
#include <string>

namespace IBPP {

class Exception : public std::exception {
 public:
  explicit Exception(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

}  // namespace IBPP
