// How many tasks the machine runs at once.
#pragma once

namespace platform {

// At least 1, even where the system cannot tell.
unsigned HardwareThreads();

}  // namespace platform
