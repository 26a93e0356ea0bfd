// EditorCommand: what one run of the editor tool is asked to do, read from
// its command line. The library writes its paths with '\\' separators (the
// command lines are the same on every platform), so every path argument is
// read with '\\' and '/' alike as separators.
//
//   RuvDbEditor.exe --update-ods "<database>"
//   RuvDbEditor.exe --update-schema "<database>"
//   RuvDbEditor.exe --set-database-readonly "<database>" true|false
//   RuvDbEditor.exe --update-ulb "<module>"
//   RuvDbEditor.exe --rebuild "<database>"
//
// --rebuild is the tool's own: the backup and restore that --update-ods does
// only when the on-disk structure is older than the engine's, done always.
//
// A plain value; Parse is pure and thread-safe.
#pragma once

#include <optional>
#include <string>
#include <vector>

enum class EditorAction { kUpdateOds, kRebuild, kUpdateSchema, kSetReadOnly, kUpdateUlb };

class EditorCommand {
 public:
  // Nothing when the arguments (without the program name) make no command.
  static std::optional<EditorCommand> Parse(const std::vector<std::string>& arguments);
  // The one line printed when Parse gives nothing.
  static const char* Usage();

  EditorAction Action() const { return action_; }
  // The target file, with '/' separators.
  const std::string& Target() const { return target_; }
  // Only for kSetReadOnly: the state asked for.
  bool ReadOnly() const { return readOnly_; }

 private:
  EditorCommand(EditorAction action, std::string target, bool readOnly)
      : action_(action), target_(std::move(target)), readOnly_(readOnly) {}

  EditorAction action_;
  std::string target_;
  bool readOnly_;
};
