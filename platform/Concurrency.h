// How many tasks the machine runs at once.
#pragma once

// What the system reports; 0 when it cannot tell, for the caller to decide.
unsigned HardwareThreads();

