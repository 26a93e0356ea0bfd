// lxcat: looks into, checks and changes catalogs from the command line.
#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
  CLI::App app{"lxcat: look into, check and change catalogs of standard parts"};
  app.require_subcommand(1);
  CLI11_PARSE(app, argc, argv);
  return 0;
}
