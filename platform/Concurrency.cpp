#include "platform/Concurrency.h"

#include <thread>

namespace platform {

unsigned HardwareThreads() { return std::thread::hardware_concurrency(); }

}  // namespace platform
