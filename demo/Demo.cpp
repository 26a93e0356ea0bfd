// A tour of the library through its C interface, as a client would take it:
// make a catalog, attach it, build a small folder tree, reload, print; then
// give a size a model and projections and show what the catalog kept.
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

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

std::wstring ValueText(LxStdSize* size, LxAttribute* attribute) {
  ValueView view{};
  if (!stdsize_GetValue(size, attribute, nullptr, &view)) return L"—";
  switch (view.index) {
    case LX_VALUE_INT: return std::to_wstring(view.payload.integer);
    case LX_VALUE_DOUBLE: {
      wchar_t text[64];
      std::swprintf(text, 64, L"%g", view.payload.number);
      return text;
    }
    case LX_VALUE_STRING: return std::wstring(view.payload.text, view.length);
    default: return L"?";
  }
}

LxFolderTable* Bends(LxDataProvider* provider) {
  LxPacket* ducts = provider_GetPacketByName(provider, L"Воздуховоды");
  return folder_GetTable(folder_GetChildFolder(folder_GetChildFolder(packet_GetRootFolder(ducts), 0), 0));
}

// Stands in for the files a modelling program would hand over.
std::wstring WriteFile(const std::filesystem::path& folder, const std::string& name, std::size_t bytes) {
  const std::filesystem::path path = folder / name;
  std::string content(bytes, '\0');
  for (std::size_t i = 0; i < bytes; ++i) content[i] = static_cast<char>(i * 31 % 251);
  std::ofstream(path, std::ios::binary) << content;
  return path.wstring();
}

// Gives the size "ОТ-100" a model and three projections from files, reloads,
// and prints what the catalog gives back: the model's file, written anew
// from the database into the temporary folder, and each projection's.
void TourOfContent(LxDataProvider* provider, const std::filesystem::path& folder) {
  LxStdSize* bend = table_FindStdSize(Bends(provider), L"ОТ-100");
  const std::wstring icon = WriteFile(folder, "icon.bmp", 4096);
  model_SetModelEx(stdsize_GetModel(bend), WriteFile(folder, "bend-100.qmx", 200000).c_str(), icon.c_str(),
                   L"отвод-100-r2", 2);
  LxProjections* projections = stdsize_GetProjections(bend);
  projections_AddProjectionEx(projections, WriteFile(folder, "top.qfx", 30000).c_str(), icon.c_str(),
                              L"отвод-100-сверху", 1, L"", 0);
  projections_AddProjectionEx(projections, WriteFile(folder, "front.qfx", 25000).c_str(), icon.c_str(),
                              L"отвод-100-спереди", 2, L"", 0);
  projections_AddProjectionEx(projections, WriteFile(folder, "iso.qfx", 40000).c_str(), icon.c_str(),
                              L"отвод-100-изометрия", 7, L"изометрия", 1);
  lxReloadProvider(provider_GetServerName(provider), provider_GetDatabaseName(provider));

  bend = table_FindStdSize(Bends(provider), L"ОТ-100");
  LxModel* model = stdsize_GetModel(bend);
  unsigned char* iconData = nullptr;
  int32_t iconSize = 0;
  model_GetIconData(model, &iconData, &iconSize);
  std::wprintf(L"\nModel of \"%ls\" after a reload:\n  file %ls\n  digest %ls, version %d, icon %d bytes\n",
               stdsize_GetID(bend), model_GetModelFile(model), model_GetDigest(model), model_GetVersion(model),
               iconSize);
  projections = stdsize_GetProjections(bend);
  std::wprintf(L"Projections:\n");
  for (int32_t i = 0; i < projections_GetProjectioCount(projections); ++i) {
    LxProjection* projection = projections_GetProjection(projections, i);
    iconSize = 0;
    projection_GetIconData(projection, &iconData, &iconSize);
    std::wprintf(L"  \"%ls\" type %d, view type %d, icon %d bytes\n    fragment %ls\n", projection_GetName(projection),
                 projection_GetType(projection), projection_GetViewType(projection), iconSize,
                 projection_GetFragmentFile(projection));
  }
}

// Builds a small table of bends through the interface and prints it: the
// columns, the rows, and a calculated column.
void TourOfATable(LxDataProvider* provider) {
  LxPacket* ducts = provider_GetPacketByName(provider, L"Воздуховоды");
  LxFolder* round = folder_GetChildFolder(packet_GetRootFolder(ducts), 0);
  LxFolderTable* bends = folder_GetTable(folder_GetChildFolder(round, 0));
  LxAttribute* diameter = table_AddAttribute(bends, L"Диаметр", L"Наружный диаметр", LX_VALUE_INT);
  LxAttribute* angle = table_AddAttribute(bends, L"Угол", L"Угол поворота", LX_VALUE_DOUBLE);
  LxAttribute* title = table_AddAttribute(bends, L"Обозначение", L"Обозначение по каталогу", LX_VALUE_STRING);
  attribute_SetMeasure(diameter, L"мм");
  attribute_SetFormula(title, L"Отвод {A21}/{A22}");
  const int diameters[] = {100, 125, 160};
  for (int d : diameters) {
    LxStdSize* size = table_AddStdSize(bends, (L"ОТ-" + std::to_wstring(d)).c_str());
    stdsize_SetValueI(size, diameter, d);
    stdsize_SetValueD(size, angle, 90.0);
  }
  lxReloadProvider(provider_GetServerName(provider), provider_GetDatabaseName(provider));
  ducts = provider_GetPacketByName(provider, L"Воздуховоды");
  bends = folder_GetTable(folder_GetChildFolder(folder_GetChildFolder(packet_GetRootFolder(ducts), 0), 0));

  std::wprintf(L"\nTable of \"%ls\" after a reload:\n", folder_GetName(table_GetFolder(bends)));
  const int32_t columns = table_GetAttributeCount(bends);
  for (int32_t c = 0; c < columns; ++c) {
    LxAttribute* column = table_GetAttribute(bends, c);
    std::wprintf(L"  column %d \"%ls\" (%ls)%ls%ls\n", attribute_GetNumber(column), attribute_GetName(column),
                 attribute_GetDescription(column), *attribute_GetFormula(column) ? L" = " : L"",
                 attribute_GetFormula(column));
  }
  for (int32_t r = 0; r < table_GetStdSizeCount(bends); ++r) {
    LxStdSize* size = table_GetStdSize(bends, r);
    std::wprintf(L"  %-8ls", stdsize_GetID(size));
    for (int32_t c = 0; c < columns; ++c) std::wprintf(L" | %ls", ValueText(size, table_GetAttribute(bends, c)).c_str());
    std::wprintf(L"\n");
  }
}

// Replaces the specifications of a bend's template with a command document,
// then reads them back through another size of the same template.
void TourOfSpecifications(LxDataProvider* provider) {
  const wchar_t* document =
      L"<commands><command type=\"create_spec\"><stdSize packet=\"Воздуховоды\" id=\"ОТ-100\"/>"
      L"<spec libName=\"ГОСТ\" styleNum=\"1\" firstPart=\"2\" secondPart=\"0\">"
      L"<column num=\"1\" formula=\"Отвод {A21}\"/><column num=\"2\" formula=\"{A22}°\"/></spec>"
      L"</command></commands>";
  std::wprintf(L"\nA command document replaces the specifications of \"ОТ-100\": %ls\n",
               provider_RunCommand(provider, document) ? L"done" : L"failed");
  LxStdSize* size = packet_FindStdSize(provider_GetPacketByName(provider, L"Воздуховоды"), L"ОТ-100");
  for (int32_t i = 0; i < stdsize_GetSpecificationCount(size); ++i) {
    LxSpec* spec = stdsize_GetSpecification(size, i);
    std::wprintf(L"  \"%ls\" style %d, parts %d/%d\n", spec_LibName(spec), spec_Style(spec), spec_FirstPart(spec),
                 spec_SecondPart(spec));
    for (int32_t c = 0; c < spec_ColumnCount(spec); ++c)
      std::wprintf(L"    column %d: %ls\n", spec_ColumnNumber(spec, c), spec_ColumnFormula(spec, c));
  }
  unsigned char block[] = "<representation kind=\"bend\"/>";
  unsigned char* data = nullptr;
  int32_t length = 0;
  if (stdsize_SetRepresentationData(size, block, sizeof block - 1) && stdsize_GetRepresentationData(size, &data, &length))
    std::wprintf(L"Representation data: %d bytes stored and read back\n", length);
}

std::wstring ViewText(const ValueView& view) {
  if (view.index == LX_VALUE_STRING) return std::wstring(view.payload.text, view.length);
  if (view.index == LX_VALUE_DOUBLE) return std::to_wstring(view.payload.number);
  return view.index == LX_VALUE_INT ? std::to_wstring(view.payload.integer) : L"—";
}

// Places a bend in a "drawing", turns it to 45 degrees there only, saves it
// into a byte buffer as a client keeps it in its document, and loads it back
// from the buffer alone.
void TourOfPlacedObjects(LxProviderPool* pool, LxDataProvider* provider) {
  LxStdSize* size = packet_FindStdSize(provider_GetPacketByName(provider, L"Воздуховоды"), L"ОТ-125");
  LxFolderTable* bends = Bends(provider);
  LxObject* placed = pool_CreateObject(pool, size, L"Ducts");
  object_SetValueD(placed, table_FindAttribute(bends, L"Угол"), 45.0);
  ValueView view{};
  object_GetValueByName(placed, L"Обозначение", nullptr, &view);
  std::wprintf(L"\nPlaced \"%ls\", turned to 45° in the drawing only: %ls (the catalog row still says %ls)\n",
               stdsize_GetID(size), ViewText(view).c_str(),
               ValueText(size, table_FindAttribute(bends, L"Обозначение")).c_str());
  std::vector<unsigned char> buffer(1024);
  uint32_t written = 0;
  object_Save(placed, buffer.data(), static_cast<int32_t>(buffer.size()), &written, 1);
  object_Delete(placed);
  const wchar_t *packet = nullptr, *id = nullptr, *library = nullptr;
  object_getPacketInfo(buffer.data(), static_cast<int32_t>(written), &packet, &id, &library);
  std::wprintf(L"Saved into %u bytes naming packet \"%ls\", size \"%ls\", library \"%ls\"\n", written, packet, id,
               library);
  LxObject* loaded = object_Load(pool, buffer.data(), static_cast<int32_t>(written), false);
  object_GetValueByName(loaded, L"Обозначение", nullptr, &view);
  std::wprintf(L"Loaded back: %ls, cache id \"%ls\"\n", ViewText(view).c_str(), object_generateCacheId(loaded));
  object_Delete(loaded);
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

  TourOfATable(provider);
  TourOfContent(provider, std::filesystem::path(database).parent_path());
  TourOfSpecifications(provider);
  TourOfPlacedObjects(pool, provider);

  lxDeleteProviderPool(pool);
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(database).parent_path(), ignored);
  return 0;
}
