// ChildProcess: runs a program to its end, the way a test needs it: with
// arguments given one by one (no shell), extra environment variables, and
// what it wrote to standard output and standard error kept apart. Output
// goes through files in a folder of the run, so a chatty program can never
// block on a full pipe. Also the file helpers that tests of programs share.
#pragma once

#include <filesystem>
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

// A file's bytes, whole; an empty text for a file that cannot be read.
std::string ReadWhole(const std::filesystem::path& path);
void WriteWhole(const std::filesystem::path& path, const std::string& bytes);
// A file in the folder of the running test program, where the project's
// programs are built.
std::string BesideThisProgram(const std::string& name);
// A path as the library writes it into a command line.
std::string Backslashed(const std::filesystem::path& path);

// The lines of a text, without their '\n'; a last line without one counts.
std::vector<std::string> Lines(const std::string& text);

}  // namespace lxtest
