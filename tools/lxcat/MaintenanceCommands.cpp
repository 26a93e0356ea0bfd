// new, upgrade, readonly: work on a catalog file as a file, through the
// library's maintenance calls (upgrade and readonly run the editor tool).
#include <cstdio>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"

namespace lxcat {
namespace {

struct FileOptions {
  std::string file;
  std::string state;
};

void New(const FileOptions& options) {
  const std::wstring file = LocalFile(options.file);
  Checked([&] { return lxCreateEmptyFDB(file.c_str()); }, "cannot write an empty catalog to '" + options.file + "'");
  std::printf("%s: empty catalog written\n", options.file.c_str());
}

void Upgrade(const FileOptions& options) {
  const std::wstring file = LocalFile(options.file);
  ProgressBar bar("upgrading " + options.file);
  Checked([&] { return lxUpdateDatabase(file.c_str()); },
          "cannot upgrade '" + options.file + "' (a missing file, or the editor tool failed)");
  std::printf("%s: structure and schema up to date\n", options.file.c_str());
}

void ReadOnly(const FileOptions& options) {
  const std::wstring file = LocalFile(options.file);
  const bool readOnly = options.state == "on";
  Checked([&] { return lxSetDatabaseReadonly(file.c_str(), readOnly); },
          "cannot set '" + options.file + "' read-" + (readOnly ? "only" : "write") +
              " (a missing file, or the editor tool failed)");
  std::printf("%s: %s\n", options.file.c_str(), readOnly ? "read-only" : "read-write");
}

CLI::App* FileCommand(CLI::App& app, const char* name, const char* description, Work& chosen,
                      void (*run)(const FileOptions&), std::shared_ptr<FileOptions> options) {
  CLI::App* command = app.add_subcommand(name, description);
  command->add_option("FILE", options->file, "catalog file")->required();
  command->callback([&chosen, run, options] { chosen = [run, options] { run(*options); }; });
  return command;
}

}  // namespace

void AddMaintenanceCommands(CLI::App& app, Work& chosen) {
  FileCommand(app, "new", "write an empty catalog (an existing file is replaced)", chosen, New,
              std::make_shared<FileOptions>());
  FileCommand(app, "upgrade", "raise a catalog's structure and schema through the editor tool", chosen, Upgrade,
              std::make_shared<FileOptions>());
  auto readOnly = std::make_shared<FileOptions>();
  CLI::App* command = FileCommand(app, "readonly", "make a catalog read-only or writable again", chosen, ReadOnly,
                                  readOnly);
  command->add_option("STATE", readOnly->state, "on or off")->required()->check(CLI::IsMember({"on", "off"}));
}

}  // namespace lxcat
