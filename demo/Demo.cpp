// A tour of the library through its C interface, as a client would take it:
// make a catalog, attach it, build a small folder tree, reload, print.
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "LxDataAccess.h"

namespace {

void PrintTree(LxFolder* folder, int depth) {
  std::wprintf(L"%*ls- %ls%ls\n", depth * 2, L"", folder_GetName(folder), folder_IsVirtual(folder) ? L" (virtual)" : L"");
  const int32_t count = folder_GetChildFolderCount(folder);
  for (int32_t i = 0; i < count; ++i) PrintTree(folder_GetChildFolder(folder, i), depth + 1);
}

void PrintCatalog(LxDataProvider* provider) {
  const int32_t packets = provider_GetPacketCount(provider);
  std::wprintf(L"Catalog %ls: %d packet(s)\n", provider_GetDatabaseName(provider), packets);
  for (int32_t i = 0; i < packets; ++i) {
    LxPacket* packet = provider_GetPacket(provider, i);
    std::wprintf(L"Packet \"%ls\"\n", packet_GetName(packet));
    PrintTree(packet_GetRootFolder(packet), 1);
  }
}

std::wstring DemoDatabasePath() {
  const char* tmp = std::getenv("TMP");
  if (tmp == nullptr || *tmp == '\0') tmp = std::getenv("TMPDIR");
  if (tmp == nullptr || *tmp == '\0') tmp = "/tmp";
  std::string path = std::string(tmp) + "/lxdemo-" + std::to_string(getpid()) + "/catalog.fdb";
  return std::wstring(path.begin(), path.end());
}

}  // namespace

int main() {
  std::setlocale(LC_ALL, "C.UTF-8");
  const std::wstring database = DemoDatabasePath();
  if (!lxCreateEmptyFDB(database.c_str())) {
    std::fputs("could not write the empty catalog\n", stderr);
    return 1;
  }
  std::wprintf(L"Wrote an empty catalog to %ls\n", database.c_str());

  LxProviderPool* pool = lxAddLibraryProviderPool(L"Ducts", L"/opt/lib/Ducts.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", database.c_str(), L"SYSDBA", L"masterkey");
  if (provider == nullptr) return 1;
  std::wprintf(L"Writable: %ls; catalog version parameter: %ls\n", provider_IsEditable(provider) ? L"yes" : L"no",
               provider_GetParam(provider, L"VERSION", L""));

  LxPacket* ducts = provider_AddPacket(provider, L"Воздуховоды");
  LxFolder* round = folder_AddChildFolder(packet_GetRootFolder(ducts), L"Круглые");
  folder_AddChildFolder(round, L"Отводы");
  folder_AddChildFolder(round, L"Тройники");
  LxFolder* square = folder_AddChildFolder(packet_GetRootFolder(ducts), L"Прямоугольные");
  folder_AddChildFolder(square, L"Переходы");
  LxPacket* grilles = provider_AddPacket(provider, L"Решётки");
  folder_AddChildFolder(packet_GetRootFolder(grilles), L"Потолочные");

  std::wprintf(L"\nAsking for a folder name that is taken (the reason goes to standard error):\n");
  std::fflush(stdout);
  folder_AddChildFolder(round, L"Отводы");

  std::wprintf(L"\nMoving \"Переходы\" under \"Круглые\" and reloading the catalog from the database:\n");
  folder_MoveTo(folder_GetChildFolder(square, 0), round);
  lxReloadProvider(L"", database.c_str());
  PrintCatalog(provider);

  lxDeleteProviderPool(pool);
  return 0;
}
