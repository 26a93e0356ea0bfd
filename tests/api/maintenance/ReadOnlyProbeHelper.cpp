// A client of the library for the one check root cannot make: the
// writability probe on a catalog file that the process may read but not
// write. The test runs this program as an unprivileged user that owns the
// catalog file:
//
//   maintenance_read_only_probe <catalog> [--read-only-after-attach]
//
// It attaches the catalog through the C interface; with the option it then
// takes the write permission away from the file (only its owner may, and
// root would write anyway), and it asks the probe. It prints
//   attached <0|1> editable <0|1>
// on standard output; the library's debug channel stays on standard error,
// for the test to read. ASCII paths only: the helper sees only the public
// interface.
#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "LxDataAccess.h"

int main(int argc, char** argv) {
  const bool readOnlyAfterAttach = argc == 3 && std::strcmp(argv[2], "--read-only-after-attach") == 0;
  if (argc != 2 && !readOnlyAfterAttach) {
    std::fprintf(stderr, "usage: maintenance_read_only_probe <catalog> [--read-only-after-attach]\n");
    return 2;
  }
  const std::wstring catalog(argv[1], argv[1] + std::strlen(argv[1]));
  LxProviderPool* pool = lxAddLibraryProviderPool(L"ReadOnlyProbe", L"/lib/read-only-probe.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.c_str(), L"SYSDBA", L"");
  if (provider != nullptr && readOnlyAfterAttach && chmod(argv[1], 0444) != 0) {
    std::perror("chmod");
    return 1;
  }
  const bool editable = provider != nullptr && provider_IsEditable(provider);
  std::printf("attached %d editable %d\n", provider != nullptr ? 1 : 0, editable ? 1 : 0);
  lxDeleteProviderPool(pool);
  return 0;
}
