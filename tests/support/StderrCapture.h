// Redirects file descriptor 2 into a packet socket for the life of the object,
// so a test can read exactly what the library wrote to its debug channel and
// in how many writes: a SOCK_SEQPACKET pair keeps each write(2) as one record.
// Not reentrant: one capture at a time per process.
#pragma once

#include <string>
#include <vector>
#include <thread>

namespace lxtest {

class StderrCapture {
 public:
  StderrCapture();
  ~StderrCapture();
  StderrCapture(const StderrCapture&) = delete;
  StderrCapture& operator=(const StderrCapture&) = delete;

  // Stops capturing (if still on) and returns each write(2) separately, as
  // UTF-8.
  std::vector<std::string> FinishWrites();

 private:
  int savedStderr_ = -1;
  int readEnd_ = -1;
  std::vector<std::string> writes_;
  std::thread reader_;
};

}  // namespace lxtest
