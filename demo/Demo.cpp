// A tour of the library through its C interface, as a client would take it.
#include <cstdio>
#include <cwchar>
#include <initializer_list>

#include "LxDataAccess.h"

int main() {
  LxProviderPool* ducts = lxAddLibraryProviderPool(L"Ducts", L"/opt/lib/Ducts.ulb");
  LxProviderPool* pipes = lxAddLibraryProviderPool(L"Pipes", L"/opt/lib/Pipes.ulb");
  if (ducts == nullptr || pipes == nullptr) {
    std::fputs("could not create the pools\n", stderr);
    return 1;
  }

  std::wprintf(L"Pools in the registry:\n");
  for (LxProviderPool* pool : {ducts, pipes}) {
    std::wprintf(L"  %ls -> %ls, %d provider(s)\n", lxGetLibraryName(pool), pool_GetUlbPath(pool),
                 pool_GetProviderCount(pool));
  }
  LxProviderPool* byPath = lxGetLibraryProviderPoolForUlbPath(L"/OPT/LIB/PIPES.ULB");
  std::wprintf(L"Found by module path in other case: %ls\n", byPath ? lxGetLibraryName(byPath) : L"(none)");

  std::wprintf(L"Asking for provider 0 of an empty pool (the reason goes to standard error):\n");
  std::fflush(stdout);
  LxDataProvider* none = pool_GetProvider(ducts, 0);
  std::wprintf(L"  result: %ls\n", none ? L"a provider" : L"null");

  lxDeleteProviderPool(pipes);
  std::wprintf(L"After deleting Pipes, lookup by name gives %ls\n", lxGetLibraryProviderPool(L"Pipes") ? L"a pool" : L"null");
  return 0;
}
