// Starting a program and waiting for it, for the editor tool.
#pragma once

#include <optional>
#include <string_view>

// Runs the command line (split as SplitCommandLine does) with the caller's
// environment and working folder, waits without a time limit and returns the
// exit code. A program that ends by a signal counts as exit code 128 + signal.
// Returns nothing when the program could not be started. Backslashes in the
// program's path are read as '/', since command lines are built with them.
std::optional<int> RunAndWait(std::wstring_view commandLine);

