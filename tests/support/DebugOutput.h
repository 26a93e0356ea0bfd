// Runs a piece of client code while capturing the library's debug channel.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "StderrCapture.h"

namespace lxtest {

// Each element is one write to the debug channel, as UTF-8.
using Writes = std::vector<std::string>;

template <typename Action>
auto Captured(Action&& action) {
  StderrCapture capture;
  auto result = action();
  return std::make_pair(result, capture.FinishWrites());
}

// The text one flush writes for these messages.
inline std::string FlushText(const std::vector<std::string>& messages) {
  std::string text = ">LxDataAcces: ";
  std::string indent;
  for (const std::string& message : messages) {
    text += indent + message + "\n";
    indent += ">   ";
  }
  return text;
}

}  // namespace lxtest
