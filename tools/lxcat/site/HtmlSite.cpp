#include "tools/lxcat/site/HtmlSite.h"

namespace lxcat {

bool WriteHtmlSite(LxDataProvider*, const std::filesystem::path&, const SiteProgress&, std::string& error) {
  error = "the site writer is not built yet";
  return false;
}

}  // namespace lxcat
