// lxload: many users of one catalog. Either several client processes, each
// with the library loaded into it, over the private server of
// tests/storage/with-server.sh (LX_TEST_SERVER and the rest; without it the
// run is skipped with exit code 77), or several threads of one client
// process over one pool, embedded. Prints the figures and checks every
// client's writes against the database (LoadDriver.h).
//
//   lxload --processes 8 --seconds 60
//   lxload --threads 8 --seconds 60
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "LoadDriver.h"

int main(int argc, char** argv) {
  lxtest::LoadPlan plan;
  for (int i = 1; i + 1 < argc; i += 2) {
    const int value = std::atoi(argv[i + 1]);
    if (std::strcmp(argv[i], "--processes") == 0) plan.processes = value;
    if (std::strcmp(argv[i], "--threads") == 0) plan.threads = value;
    if (std::strcmp(argv[i], "--seconds") == 0) plan.seconds = value;
  }
  plan.throughServer = plan.processes > 1;
  if (plan.throughServer && std::getenv("LX_TEST_SERVER") == nullptr) {
    std::cout << "several processes share a catalog only through a server; LX_TEST_SERVER is not set\n";
    return 77;
  }
  return lxtest::RunLoad(plan);
}
