// ChildProcess: runs a program to its end, the way a test needs it: with
// arguments given one by one (no shell), extra environment variables, and
// what it wrote to standard output and standard error kept apart. Output
// goes through files in a folder of the run, so a chatty program can never
// block on a full pipe.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace lxtest {

struct ChildResult {
  // The exit code; 128 + signal for a program that a signal ended; -1 when
  // it could not be started.
  int exitCode = -1;
  std::string out;
  std::string err;
};

// `program` is looked up in PATH when it has no '/'. `environment` adds to
// (or overrides in) the caller's environment, as NAME=value.
ChildResult RunChild(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& environment = {});

// The lines of a text, without their '\n'; a last line without one counts.
std::vector<std::string> Lines(const std::string& text);

}  // namespace lxtest
