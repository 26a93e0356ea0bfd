// IBPP::Exception: the one failure type of the database layer. Whatever the
// Firebird client library reports (a refused connection, bad credentials, an
// SQL error, a lock conflict) arrives here with the library's full text, and
// so do misuses of the layer itself (a column that does not exist, a value
// that cannot be read as the asked-for type).
//
// Immutable once built; safe to read from any thread.
#pragma once

#include <exception>
#include <string>

namespace IBPP {

class Exception : public std::exception {
 public:
  explicit Exception(std::string message);

  // The message as the client library wrote it, lines joined by '\n'.
  const char* what() const noexcept override;

 private:
  std::string message_;
};

}  // namespace IBPP
