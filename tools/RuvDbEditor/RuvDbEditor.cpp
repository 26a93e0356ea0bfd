// RuvDbEditor.exe: the catalog library's editor tool. The library starts it
// for the work it does not do in-process: raising a database's on-disk
// structure, bringing its schema up to date, setting or clearing its
// read-only state, and checking an application library's module (see
// EditorCommand.h for the command lines).
//
// Everything runs through the embedded engine, as SYSDBA, on a file no other
// process has open. Exit code 0 means done; 1 a failure, 2 a command line
// that makes no command; either way standard error gets exactly one line
// with the reason. Success is silent: the tool shares the host's output.
#include <clocale>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "AccessModeChange.h"
#include "DatabaseRebuild.h"
#include "EditorCommand.h"
#include "ModuleCheck.h"
#include "SchemaUpdate.h"
#include "StructureUpdate.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

// Engine messages come in several lines; the reason must stay one line.
std::string OneLine(std::string text) {
  std::string line;
  for (char c : text) {
    if (c == '\n') {
      line += "; ";
    } else if (c != '\r') {
      line += c;
    }
  }
  return line;
}

void Perform(const EditorCommand& command) {
  switch (command.Action()) {
    case EditorAction::kUpdateOds:
      StructureUpdate::Run(command.Target());
      break;
    case EditorAction::kRebuild:
      DatabaseRebuild::Run(command.Target());
      break;
    case EditorAction::kUpdateSchema:
      SchemaUpdate::Run(command.Target());
      break;
    case EditorAction::kSetReadOnly:
      AccessModeChange::Run(command.Target(), command.ReadOnly());
      break;
    case EditorAction::kUpdateUlb:
      ModuleCheck::Run(command.Target());
      break;
  }
}

}  // namespace

int main(int argc, char** argv) {
  // Paths arrive in UTF-8; the client library reads file names in the
  // locale's encoding.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  const std::optional<EditorCommand> command = EditorCommand::Parse(arguments);
  if (!command) {
    std::cerr << EditorCommand::Usage() << '\n';
    return kUsage;
  }
  try {
    Perform(*command);
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "RuvDbEditor.exe: " << OneLine(failure.what()) << '\n';
    return kFailed;
  } catch (...) {
    std::cerr << "RuvDbEditor.exe: an unexpected failure\n";
    return kFailed;
  }
}
