#pragma once
#include <functional>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "tools/lxcat/CatalogSession.h"
#include "tools/lxcat/Output.h"

// The subcommands of lxcat. Each Add... function declares its subcommands
// on the application; when the command line picks one, its callback stores
// the work in `chosen`, which main runs after parsing, so that a usage error
// never leaves a half-done change behind.
namespace lxcat {

using Work = std::function<void()>;

// What every command that opens a catalog takes.
struct CatalogOptions {
  std::string catalog;
  std::string user;
  std::string password;

  std::unique_ptr<CatalogSession> Open() const {
    return std::make_unique<CatalogSession>(catalog, ResolveCredentials(user, password));
  }
};

// Adds FILE as the first positional and --user / --password.
void AddCatalogOptions(CLI::App* command, CatalogOptions& options);
// Only --user / --password, for a command that names its catalog otherwise.
void AddCredentialOptions(CLI::App* command, CatalogOptions& options);
// Adds --format with the given default; `allowed` limits the choices.
void AddFormatOption(CLI::App* command, Format& format, bool csvAllowed);

void AddMaintenanceCommands(CLI::App& app, Work& chosen);  // new, upgrade, readonly
void AddReadCommands(CLI::App& app, Work& chosen);         // tree, table, search
void AddEditCommands(CLI::App& app, Work& chosen);         // set, add-size, add-column
void AddImportCommand(CLI::App& app, Work& chosen);
void AddContentCommand(CLI::App& app, Work& chosen);
void AddObjectCommand(CLI::App& app, Work& chosen);
void AddHtmlCommand(CLI::App& app, Work& chosen);

}  // namespace lxcat
