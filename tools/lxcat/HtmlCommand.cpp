// html: the static site of a whole catalog, written by lxcat_site.
#include <cstdio>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"
#include "tools/lxcat/site/HtmlSite.h"

namespace lxcat {
namespace {

struct HtmlOptions {
  CatalogOptions catalog;
  std::string outDir;
};

void Html(const HtmlOptions& options) {
  const auto session = options.catalog.Open();
  ProgressBar bar("writing the site");
  std::string error;
  const SiteProgress progress = [&bar](size_t done, size_t total) { bar.Set(done, total); };
  ForgetLibraryMessages();
  if (!WriteHtmlSite(session->Provider(), options.outDir, progress, error)) {
    throw Failure("cannot write the site into '" + options.outDir + "'" + (error.empty() ? "" : ": " + error));
  }
  std::printf("%s: site written\n", options.outDir.c_str());
}

}  // namespace

void AddHtmlCommand(CLI::App& app, Work& chosen) {
  auto html = std::make_shared<HtmlOptions>();
  CLI::App* command = app.add_subcommand("html", "write a static site of the whole catalog into OUTDIR");
  AddCatalogOptions(command, html->catalog);
  command->add_option("OUTDIR", html->outDir, "folder for the site (made if missing)")->required();
  command->callback([&chosen, html] { chosen = [html] { Html(*html); }; });
}

}  // namespace lxcat
