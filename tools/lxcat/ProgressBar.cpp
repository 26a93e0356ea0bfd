#include "tools/lxcat/ProgressBar.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>

#include "tools/lxcat/LibraryLog.h"

namespace lxcat {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kQuietTime = std::chrono::seconds(1);
constexpr auto kRedrawEvery = std::chrono::milliseconds(100);
constexpr int kBarWidth = 30;

void WriteUser(const std::string& text) {
  // A bar that cannot be drawn is no failure of the step it decorates.
  [[maybe_unused]] const ssize_t written = write(UserErrors(), text.data(), text.size());
}

std::string Bar(size_t done, size_t total, double seconds) {
  std::string bar(kBarWidth, ' ');
  if (total > 0) {
    const size_t filled = done >= total ? kBarWidth : done * kBarWidth / total;
    for (size_t i = 0; i < filled; ++i) bar[i] = '#';
  } else {
    // No counts: a marker that moves back and forth, four steps a second.
    const int period = 2 * (kBarWidth - 1);
    const int step = static_cast<int>(seconds * 4) % period;
    bar[step < kBarWidth ? step : period - step] = '#';
  }
  char tail[64];
  if (total > 0) {
    std::snprintf(tail, sizeof tail, "] %zu/%zu %.0fs", done, total, seconds);
  } else {
    std::snprintf(tail, sizeof tail, "] %.0fs", seconds);
  }
  return "[" + bar + tail;
}

}  // namespace

bool ProgressBar::Visible() { return isatty(UserErrors()) == 1; }

ProgressBar::ProgressBar(std::string label) : label_(std::move(label)) {
  if (Visible()) timer_ = std::thread([this] { Run(); });
}

ProgressBar::~ProgressBar() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    stopping_ = true;
  }
  stop_.notify_all();
  if (timer_.joinable()) timer_.join();
}

void ProgressBar::Set(size_t done, size_t total) {
  done_ = done;
  total_ = total;
}

void ProgressBar::SetLabel(std::string label) {
  std::lock_guard<std::mutex> lock(mutex_);
  label_ = std::move(label);
}

void ProgressBar::Run() {
  const Clock::time_point start = Clock::now();
  std::unique_lock<std::mutex> lock(mutex_);
  if (stop_.wait_until(lock, start + kQuietTime, [this] { return stopping_; })) return;
  bool drawn = false;
  while (!stop_.wait_for(lock, kRedrawEvery, [this] { return stopping_; })) {
    Draw(std::chrono::duration<double>(Clock::now() - start).count(), drawn);
  }
  // Erase the bar so that what follows starts on a clean line.
  if (drawn) WriteUser("\r\033[K");
}

void ProgressBar::Draw(double seconds, bool& drawn) {
  WriteUser("\r\033[K" + label_ + " " + Bar(done_, total_, seconds));
  drawn = true;
}

}  // namespace lxcat
