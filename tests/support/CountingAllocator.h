// Counts the calls of the global allocation functions in a program that
// links CountingAllocator.cpp, which replaces them. For checks that a piece
// of code touches no heap: compare the count before and after.
#pragma once

namespace lxtest {

long AllocationCount();

}  // namespace lxtest
