/* A client built against an installed LxDataAccess, as a user builds one: it
 * writes an empty catalog, opens it embedded and adds a packet. Written in C
 * so that the installed header is proven to be a C header too. */
#include <LxDataAccess.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: %s CATALOG\n", argv[0]);
    return 2;
  }
  wchar_t path[4096];
  if (mbstowcs(path, argv[1], 4096) == (size_t)-1) return 2;
  if (!lxCreateEmptyFDB(path)) return 1;
  LxProviderPool* pool = lxAddLibraryProviderPool(L"Installed", L"");
  LxDataProvider* provider = pool_AddProvider(pool, L"", path, L"SYSDBA", L"masterkey");
  if (!provider || !provider_AddPacket(provider, L"Ducts")) return 1;
  printf("packets: %d\n", provider_GetPacketCount(provider));
  return lxDeleteProviderPool(pool) ? 0 : 1;
}
