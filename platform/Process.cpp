#include "platform/Process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

#include "platform/CommandLine.h"
#include "platform/TextCodec.h"

extern char** environ;

namespace {

std::optional<int> WaitForExit(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return std::nullopt;
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
  return std::nullopt;
}

}  // namespace

std::optional<int> RunAndWait(std::wstring_view commandLine) {
  const std::vector<std::wstring> words = SplitCommandLine(commandLine);
  if (words.empty()) return std::nullopt;

  std::string program = WideToUtf8(words.front());
  std::replace(program.begin(), program.end(), '\\', '/');
  std::vector<std::string> arguments{program};
  for (std::size_t i = 1; i < words.size(); ++i) arguments.push_back(WideToUtf8(words[i]));
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);

  pid_t pid = 0;
  if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0) return std::nullopt;
  return WaitForExit(pid);
}

