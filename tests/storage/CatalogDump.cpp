#include "CatalogDump.h"

#include <algorithm>
#include <sstream>

namespace lxtest {
namespace {

void DumpTable(LxFolderTable* table, const std::wstring& path, std::vector<std::wstring>& lines) {
  const int32_t columns = table_GetAttributeCount(table);
  for (int32_t c = 0; c < columns; ++c) {
    LxAttribute* attribute = table_GetAttribute(table, c);
    std::wostringstream line;
    line << path << L" column " << attribute_GetNumber(attribute) << L" '" << attribute_GetName(attribute)
         << L"' type " << attribute_GetType(attribute) << L" old " << attribute_GetOldNumber(attribute) << L" desc '"
         << attribute_GetDescription(attribute) << L"' measure '" << attribute_GetMeasure(attribute) << L"' var '"
         << attribute_GetVarName(attribute) << L"' formula '" << attribute_GetFormula(attribute) << L"'";
    lines.push_back(line.str());
  }
  const int32_t sizes = table_GetStdSizeCount(table);
  for (int32_t s = 0; s < sizes; ++s) {
    LxStdSize* size = table_GetStdSize(table, s);
    std::wstring line = path + L" size '" + stdsize_GetID(size) + L"' type '" + stdsize_GetType(size) + L"'";
    for (int32_t c = 0; c < columns; ++c) line += L" | " + ValueText(size, table_GetAttribute(table, c));
    lines.push_back(line);
  }
}

}  // namespace

const NumberFormat kDumpFormat{false, 6};

std::wstring ValueText(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format) {
  ValueView view{};
  if (!stdsize_GetValue(size, attribute, format, &view)) return L"<none>";
  std::wostringstream text;
  switch (view.index) {
    case LX_VALUE_INT: text << L"i:" << view.payload.integer; break;
    case LX_VALUE_DOUBLE: text << L"d:" << view.payload.number; break;
    case LX_VALUE_STRING: text << L"s:" << std::wstring(view.payload.text, view.length); break;
    default: text << L"?" << static_cast<int>(view.index); break;
  }
  return text.str();
}

std::vector<std::wstring> DumpFolder(LxFolder* root) {
  std::vector<std::wstring> lines;
  std::vector<std::pair<LxFolder*, std::wstring>> pending{{root, L"/"}};
  while (!pending.empty()) {
    auto [folder, path] = pending.back();
    pending.pop_back();
    lines.push_back(path + (folder_IsVirtual(folder) ? L" virtual" : L" real"));
    if (LxFolderTable* table = folder_GetTable(folder)) DumpTable(table, path, lines);
    for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
      LxFolder* child = folder_GetChildFolder(folder, i);
      pending.emplace_back(child, path + folder_GetName(child) + L"/");
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace lxtest
