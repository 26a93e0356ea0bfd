// Redirects file descriptor 2 into a pipe for the life of the object, so a
// test can read exactly what the library wrote to its debug channel and in
// how many writes. Not reentrant: one capture at a time per process.
#pragma once

#include <string>
#include <thread>

namespace lxtest {

class StderrCapture {
 public:
  StderrCapture();
  ~StderrCapture();
  StderrCapture(const StderrCapture&) = delete;
  StderrCapture& operator=(const StderrCapture&) = delete;

  // Stops capturing (if still on) and returns everything written, as UTF-8.
  std::string Finish();

 private:
  int savedStderr_ = -1;
  int readEnd_ = -1;
  std::string captured_;
  std::thread reader_;
};

}  // namespace lxtest
