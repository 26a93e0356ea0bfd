#include "StderrCapture.h"

#include <unistd.h>

#include <stdexcept>

namespace lxtest {

StderrCapture::StderrCapture() {
  int fds[2];
  if (pipe(fds) != 0) throw std::runtime_error("pipe failed");
  savedStderr_ = dup(STDERR_FILENO);
  dup2(fds[1], STDERR_FILENO);
  close(fds[1]);
  readEnd_ = fds[0];
  // Drain the pipe on a thread so that a chatty call never blocks on a full pipe.
  reader_ = std::thread([this] {
    char buffer[4096];
    for (;;) {
      ssize_t n = read(readEnd_, buffer, sizeof buffer);
      if (n <= 0) break;
      captured_.append(buffer, static_cast<std::size_t>(n));
    }
  });
}

StderrCapture::~StderrCapture() { Finish(); }

std::string StderrCapture::Finish() {
  if (savedStderr_ >= 0) {
    dup2(savedStderr_, STDERR_FILENO);  // closes the pipe's last write end
    close(savedStderr_);
    savedStderr_ = -1;
    reader_.join();
    close(readEnd_);
    readEnd_ = -1;
  }
  return captured_;
}

}  // namespace lxtest
