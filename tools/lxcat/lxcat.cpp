// lxcat: looks into, checks and changes catalogs from the command line. It
// uses only the library's public C interface.
#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

}  // namespace

int main(int argc, char** argv) {
  // Before anything can write: CLI11's own texts must not land in the capture.
  lxcat::CaptureLibraryMessages();

  CLI::App app{"lxcat: look into, check and change catalogs of standard parts"};
  app.require_subcommand(1);
  lxcat::Work chosen;
  lxcat::AddMaintenanceCommands(app, chosen);
  lxcat::AddReadCommands(app, chosen);
  lxcat::AddEditCommands(app, chosen);
  lxcat::AddImportCommand(app, chosen);
  lxcat::AddContentCommand(app, chosen);
  lxcat::AddObjectCommand(app, chosen);
  lxcat::AddHtmlCommand(app, chosen);

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help);
  } catch (const CLI::CallForAllHelp& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& error) {
    lxcat::PrintError(std::string(error.what()) + " (see --help)");
    return kUsage;
  }
  try {
    chosen();
    if (std::fflush(stdout) != 0) throw lxcat::Failure("cannot write the output");
  } catch (const lxcat::Failure& failure) {
    std::fflush(stdout);
    lxcat::PrintError(failure.what());
    return kFailed;
  } catch (const std::exception& error) {
    lxcat::PrintError(std::string("unexpected failure: ") + error.what());
    return kFailed;
  }
  return 0;
}
