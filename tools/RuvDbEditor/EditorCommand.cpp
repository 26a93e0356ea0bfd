#include "EditorCommand.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct OptionName {
  std::string_view option;
  EditorAction action;
};

constexpr std::array<OptionName, 5> kOptions{{
    {"--update-ods", EditorAction::kUpdateOds},
    {"--rebuild", EditorAction::kRebuild},
    {"--update-schema", EditorAction::kUpdateSchema},
    {"--set-database-readonly", EditorAction::kSetReadOnly},
    {"--update-ulb", EditorAction::kUpdateUlb},
}};

std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::optional<bool> Flag(std::string_view word) {
  if (word == "true") return true;
  if (word == "false") return false;
  return std::nullopt;
}

}  // namespace

std::optional<EditorCommand> EditorCommand::Parse(const std::vector<std::string>& arguments) {
  if (arguments.size() < 2 || arguments[1].empty()) return std::nullopt;
  const auto known = std::find_if(kOptions.begin(), kOptions.end(),
                                  [&](const OptionName& name) { return name.option == arguments[0]; });
  if (known == kOptions.end()) return std::nullopt;

  if (known->action == EditorAction::kSetReadOnly) {
    if (arguments.size() != 3) return std::nullopt;
    const std::optional<bool> readOnly = Flag(arguments[2]);
    if (!readOnly) return std::nullopt;
    return EditorCommand(known->action, WithSlashes(arguments[1]), *readOnly);
  }
  if (arguments.size() != 2) return std::nullopt;
  return EditorCommand(known->action, WithSlashes(arguments[1]), false);
}

const char* EditorCommand::Usage() {
  return "usage: RuvDbEditor.exe --update-ods|--rebuild|--update-schema \"<database>\""
         " | --set-database-readonly \"<database>\" true|false | --update-ulb \"<module>\"";
}
