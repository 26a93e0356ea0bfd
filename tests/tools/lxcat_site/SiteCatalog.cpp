// site_catalog: writes the small catalog whose site the browser test opens,
// through the public interface only, as a client of the library would.
//   site_catalog CATALOG ICON MODEL FRAGMENT
// ICON and FRAGMENT are pictures, MODEL is not: the site must show the first
// two and leave the model file out. Names carry HTML's special characters so
// that the test sees whether the pages escape them.
#include <cstdio>
#include <string>

#include "LxDataAccess.h"

namespace lxtest {
namespace {

std::wstring Wide(const char* text) { return std::wstring(text, text + std::char_traits<char>::length(text)); }

// Folder "Болты": a stored number with a unit, a text, and a calculated
// column; three sizes, two of which share one model, and one projection.
bool FillBolts(LxFolder* bolts, const std::wstring& icon, const std::wstring& model, const std::wstring& fragment) {
  LxFolderTable* table = folder_GetTable(bolts);
  LxAttribute* diameter = table_AddAttribute(table, L"D", L"Диаметр", 2);
  LxAttribute* thread = table_AddAttribute(table, L"Резьба", L"Резьба", 3);
  LxAttribute* doubled = table_AddAttribute(table, L"2D", L"Два диаметра", 2);
  if (!diameter || !thread || !doubled || !attribute_SetMeasure(diameter, L"мм")) return false;
  const struct {
    const wchar_t* id;
    double diameter;
    const wchar_t* thread;
  } rows[] = {{L"M6", 6, L"крупная"}, {L"M8", 8, L"мелкая <i>"}, {L"M10", 10, L"крупная"}};
  for (const auto& row : rows) {
    LxStdSize* size = table_AddStdSize(table, row.id);
    if (!size || !stdsize_SetValueD(size, diameter, row.diameter) || !stdsize_SetValueS(size, thread, row.thread))
      return false;
    if (row.diameter < 10 && !model_SetModelEx(stdsize_GetModel(size), model.c_str(), icon.c_str(), L"model-1", 1))
      return false;
  }
  const std::wstring formula = L"{A" + std::to_wstring(attribute_GetNumber(diameter)) + L"*2}";
  if (!attribute_SetFormula(doubled, formula.c_str())) return false;
  LxProjections* projections = stdsize_GetProjections(table_FindStdSize(table, L"M6"));
  return projections_AddProjectionEx(projections, fragment.c_str(), icon.c_str(), L"fragment-1", 1, L"", 0);
}

bool WriteCatalog(char** argv) {
  const std::wstring catalog = Wide(argv[1]);
  if (!lxCreateEmptyFDB(catalog.c_str())) return false;
  LxProviderPool* pool = lxAddLibraryProviderPool(L"SiteCatalog", L"/lib/site-catalog.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", catalog.c_str(), L"SYSDBA", L"masterkey");
  LxPacket* packet = provider ? provider_AddPacket(provider, L"Крепёж <b>&\"'") : nullptr;
  LxFolder* root = packet ? packet_GetRootFolder(packet) : nullptr;
  LxFolder* bolts = root ? folder_AddChildFolder(root, L"Болты") : nullptr;
  LxFolder* nuts = root ? folder_AddChildFolder(root, L"Гайки") : nullptr;
  const bool written = bolts && nuts && folder_AddChildFolder(nuts, L"Мелкие & малые") &&
                       provider_AddPacket(provider, L"Пустой") &&
                       FillBolts(bolts, Wide(argv[2]), Wide(argv[3]), Wide(argv[4]));
  lxDeleteProviderPool(pool);
  return written;
}

}  // namespace
}  // namespace lxtest

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "usage: site_catalog CATALOG ICON MODEL FRAGMENT\n");
    return 2;
  }
  return lxtest::WriteCatalog(argv) ? 0 : 1;
}
