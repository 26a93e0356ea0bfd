#include "StderrCapture.h"

#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace lxtest {

StderrCapture::StderrCapture() {
  int fds[2];
  if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, fds) != 0) throw std::runtime_error("socketpair failed");
  int bufferSize = 4 << 20;
  setsockopt(fds[0], SOL_SOCKET, SO_RCVBUF, &bufferSize, sizeof bufferSize);
  setsockopt(fds[1], SOL_SOCKET, SO_SNDBUF, &bufferSize, sizeof bufferSize);
  savedStderr_ = dup(STDERR_FILENO);
  dup2(fds[1], STDERR_FILENO);
  close(fds[1]);
  readEnd_ = fds[0];
  // Drain on a thread so that a chatty call never blocks on a full socket.
  reader_ = std::thread([this] {
    std::string buffer(1 << 20, '\0');
    for (;;) {
      ssize_t n = recv(readEnd_, buffer.data(), buffer.size(), 0);
      if (n <= 0) break;
      writes_.emplace_back(buffer.data(), static_cast<std::size_t>(n));
    }
  });
}

StderrCapture::~StderrCapture() { FinishWrites(); }

std::vector<std::string> StderrCapture::FinishWrites() {
  if (savedStderr_ >= 0) {
    dup2(savedStderr_, STDERR_FILENO);  // closes the socket's last write end
    close(savedStderr_);
    savedStderr_ = -1;
    reader_.join();
    close(readEnd_);
    readEnd_ = -1;
  }
  return writes_;
}

}  // namespace lxtest
