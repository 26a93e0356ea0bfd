#pragma once
#include <stdexcept>
#include <string>

// The library reports why a call failed only as text on standard error, in
// several lines and with a prefix meant for a debug log. lxcat moves the
// library's standard error into a private in-memory file, so that a failure
// reaches the user as one line, and a message of a call that merely fell back
// on a default (a formula that could not be evaluated) never reaches them.
// The editor tool the library starts inherits the same file.
//
// Not thread-safe: set up once in main before any library call.
namespace lxcat {

// Points the process's standard error at the private file; lxcat's own
// writes go to UserErrors() from then on. Without this call both are fd 2.
void CaptureLibraryMessages();
// The descriptor that reaches the user's standard error.
int UserErrors();
// Writes one line to the user's standard error.
void PrintError(const std::string& line);

// Drops what the library has written so far.
void ForgetLibraryMessages();
// What the library wrote since the last ForgetLibraryMessages, as one line
// without its log prefixes; empty when it wrote nothing.
std::string LibraryMessage();

// A step that cannot go on. `what` is lxcat's sentence; main prints it with
// the library's message behind it when there is one.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& what) : std::runtime_error(what) {}
};

// Runs one library call; a zero result becomes a Failure that carries the
// library's message for that call.
template <typename Call>
auto Checked(Call&& call, const std::string& what) {
  ForgetLibraryMessages();
  auto result = call();
  if (!result) {
    const std::string message = LibraryMessage();
    throw Failure(message.empty() ? what : what + ": " + message);
  }
  return result;
}

}  // namespace lxcat
