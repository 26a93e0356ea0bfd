#include "platform/Concurrency.h"

#include <thread>

unsigned HardwareThreads() { return std::thread::hardware_concurrency(); }

