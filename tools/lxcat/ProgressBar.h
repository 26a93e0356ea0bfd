#pragma once
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

// A progress bar on the user's standard error for one long step. It stays
// invisible for the first second and never shows at all when standard
// error is not a terminal, so piped output gets nothing extra. The library
// reports no progress of its own, so a step without counts (a packet load)
// shows a moving marker and the time spent; a step with counts shows them.
//
// Set() may be called from any thread; the bar draws from a timer thread of
// its own, which the destructor stops after clearing the line.
namespace lxcat {

class ProgressBar {
 public:
  explicit ProgressBar(std::string label);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void Set(size_t done, size_t total);
  void SetLabel(std::string label);

  // Whether bars are drawn at all in this process.
  static bool Visible();

 private:
  void Run();
  void Draw(double seconds, bool& drawn);

  std::mutex mutex_;
  std::condition_variable stop_;
  bool stopping_ = false;
  std::string label_;
  std::atomic<size_t> done_{0};
  std::atomic<size_t> total_{0};
  std::thread timer_;
};

}  // namespace lxcat
