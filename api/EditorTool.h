// Runs the editor tool RuvDbEditor.exe, which lives in the folder of the host
// executable (not of this library), and tells whether it exited with 0.
#pragma once

#include <string>
#include <string_view>

class EditorTool {
 public:
  static constexpr const wchar_t* kFileName = L"RuvDbEditor.exe";

  // The tool's full path; it may not exist.
  static std::wstring Path();

  // Formats the command line, with '/' written as '\\' in both paths and
  // only the target quoted: `<tool> <option> "<target>"[ <extra>]`.
  static std::wstring CommandLine(std::wstring_view toolPath, std::wstring_view option, std::wstring_view target,
                                  std::wstring_view extra = {});

  // False when the tool is missing, cannot start, or exits with non-zero.
  static bool Run(std::wstring_view option, std::wstring_view target, std::wstring_view extra = {});
};
