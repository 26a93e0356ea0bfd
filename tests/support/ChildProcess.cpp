#include "ChildProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "TempDir.h"

extern char** environ;

namespace lxtest {
namespace {

// posix_spawn's file actions, destroyed on every path out.
class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void OpenAs(int descriptor, const std::string& path, int flags) {
    posix_spawn_file_actions_addopen(&actions_, descriptor, path.c_str(), flags, 0600);
  }
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

std::vector<std::string> MergedEnvironment(const std::vector<std::string>& extra) {
  std::vector<std::string> merged;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text(*entry);
    const std::string name = text.substr(0, text.find('='));
    bool overridden = false;
    for (const std::string& added : extra) overridden = overridden || added.substr(0, added.find('=')) == name;
    if (!overridden) merged.push_back(text);
  }
  merged.insert(merged.end(), extra.begin(), extra.end());
  return merged;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteWhole(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string BesideThisProgram(const std::string& name) {
  return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
}

std::string Backslashed(const std::filesystem::path& path) {
  std::string text = path.string();
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

ChildResult RunChild(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& environment) {
  TempDir outputs;
  const std::filesystem::path out = outputs.path() / "out";
  const std::filesystem::path err = outputs.path() / "err";
  FileActions actions;
  actions.OpenAs(STDIN_FILENO, "/dev/null", O_RDONLY);
  actions.OpenAs(STDOUT_FILENO, out.string(), O_WRONLY | O_CREAT | O_TRUNC);
  actions.OpenAs(STDERR_FILENO, err.string(), O_WRONLY | O_CREAT | O_TRUNC);

  std::vector<std::string> argv{program};
  argv.insert(argv.end(), arguments.begin(), arguments.end());
  std::vector<std::string> envp = MergedEnvironment(environment);
  std::vector<char*> argvPointers = Pointers(argv);
  std::vector<char*> envpPointers = Pointers(envp);

  ChildResult result;
  pid_t pid = 0;
  if (posix_spawnp(&pid, program.c_str(), actions.Get(), nullptr, argvPointers.data(), envpPointers.data()) != 0) {
    return result;
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) result.exitCode = 128 + WTERMSIG(status);
  result.out = ReadWhole(out);
  result.err = ReadWhole(err);
  return result;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace lxtest
