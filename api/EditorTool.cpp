#include "api/EditorTool.h"

#include <algorithm>
#include <filesystem>

#include "platform/Files.h"
#include "platform/ModulePaths.h"
#include "platform/Process.h"
#include "platform/TextCodec.h"

namespace {

std::wstring WithBackslashes(std::wstring_view path) {
  std::wstring converted(path);
  std::replace(converted.begin(), converted.end(), L'/', L'\\');
  return converted;
}

}  // namespace

std::wstring EditorTool::Path() {
  return DirectoryOf(ExecutableFilePath()) + L"/" + kFileName;
}

std::wstring EditorTool::CommandLine(std::wstring_view toolPath, std::wstring_view option, std::wstring_view target,
                                     std::wstring_view extra) {
  std::wstring line = WithBackslashes(toolPath);
  line += L' ';
  line += option;
  line += L" \"";
  line += WithBackslashes(target);
  line += L'"';
  if (!extra.empty()) {
    line += L' ';
    line += extra;
  }
  return line;
}

bool EditorTool::Run(std::wstring_view option, std::wstring_view target, std::wstring_view extra) {
  const std::wstring tool = Path();
  if (!std::filesystem::exists(FilePath(tool))) return false;
  const std::optional<int> exitCode = RunAndWait(CommandLine(tool, option, target, extra));
  return exitCode == 0;
}
