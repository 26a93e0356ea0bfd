#include "tools/lxcat/Commands.h"

namespace lxcat {

void AddCatalogOptions(CLI::App* command, CatalogOptions& options) {
  command->add_option("FILE", options.catalog, "catalog: a file, host:path or host/port:path")->required();
  AddCredentialOptions(command, options);
}

void AddCredentialOptions(CLI::App* command, CatalogOptions& options) {
  command->add_option("--user", options.user, "user name on a server (else ISC_USER, else SYSDBA)");
  command->add_option("--password", options.password, "password on a server (else ISC_PASSWORD)");
}

void AddFormatOption(CLI::App* command, Format& format, bool csvAllowed) {
  std::vector<std::string> names{"text", "json"};
  if (csvAllowed) names.insert(names.begin() + 1, "csv");
  command
      ->add_option_function<std::string>(
          "--format", [&format](const std::string& name) { format = FormatNames().at(name); },
          csvAllowed ? "text (the default), csv or json" : "text (the default) or json")
      ->check(CLI::IsMember(names));
}

}  // namespace lxcat
