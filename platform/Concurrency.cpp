#include "platform/Concurrency.h"

#include <thread>

namespace platform {

unsigned HardwareThreads() {
  const unsigned count = std::thread::hardware_concurrency();
  return count == 0 ? 1 : count;
}

}  // namespace platform
