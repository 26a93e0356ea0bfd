#include "tools/lxcat/LibraryLog.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <string_view>

namespace lxcat {
namespace {

int userErrors = STDERR_FILENO;
int capture = -1;  // fd 2 itself once captured

// The prefix of every flush and the indent of each further message in it.
constexpr std::string_view kLogPrefix = ">LxDataAcces: ";
constexpr std::string_view kIndent = ">   ";

std::string ReadCapture() {
  std::string text;
  if (capture < 0) return text;
  const off_t end = lseek(capture, 0, SEEK_CUR);
  if (end <= 0) return text;
  text.resize(static_cast<size_t>(end));
  const ssize_t got = pread(capture, text.data(), text.size(), 0);
  text.resize(got > 0 ? static_cast<size_t>(got) : 0);
  return text;
}

std::string_view Trimmed(std::string_view line) {
  while (!line.empty() && (line.front() == ' ' || line.front() == '\t' || line.front() == '\r')) line.remove_prefix(1);
  while (!line.empty() && (line.back() == ' ' || line.back() == '\t' || line.back() == '\r')) line.remove_suffix(1);
  return line;
}

std::string_view WithoutPrefixes(std::string_view line) {
  if (line.substr(0, kLogPrefix.size()) == kLogPrefix) line.remove_prefix(kLogPrefix.size());
  while (line.substr(0, kIndent.size()) == kIndent) line.remove_prefix(kIndent.size());
  return line;
}

}  // namespace

void CaptureLibraryMessages() {
  const int file = memfd_create("lxcat-library-messages", MFD_CLOEXEC);
  const int saved = file < 0 ? -1 : fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
  if (saved < 0 || dup2(file, STDERR_FILENO) < 0) {
    // Without a capture the library's text goes straight to the user:
    // several lines instead of one, but nothing is lost.
    if (file >= 0) close(file);
    if (saved >= 0) close(saved);
    return;
  }
  close(file);
  userErrors = saved;
  capture = STDERR_FILENO;
}

int UserErrors() { return userErrors; }

void PrintError(const std::string& line) {
  const std::string text = "lxcat: " + line + "\n";
  const char* data = text.data();
  size_t left = text.size();
  while (left > 0) {
    const ssize_t written = write(userErrors, data, left);
    if (written <= 0) return;
    data += written;
    left -= static_cast<size_t>(written);
  }
}

void ForgetLibraryMessages() {
  if (capture < 0) return;
  if (ftruncate(capture, 0) == 0) lseek(capture, 0, SEEK_SET);
}

std::string LibraryMessage() {
  const std::string text = ReadCapture();
  std::string line;
  std::string_view rest = text;
  while (!rest.empty()) {
    const size_t end = rest.find('\n');
    const std::string_view part = Trimmed(WithoutPrefixes(rest.substr(0, end)));
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    if (part.empty()) continue;
    if (!line.empty()) line += ' ';
    line += part;
  }
  return line;
}

}  // namespace lxcat
