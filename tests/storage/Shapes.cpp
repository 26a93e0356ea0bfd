#include "Shapes.h"

#include <algorithm>
#include <sstream>

#include "CatalogFixture.h"

namespace lxtest::shapes {
namespace {

std::wstring N(std::int32_t number) { return std::to_wstring(number); }

// IVAL, DVAL, SVAL arguments with `value` in the slot of `type`.
std::wstring ValueSlots(std::int32_t type, const std::wstring& value) {
  return (type == 1 ? value : L"NULL") + L", " + (type == 2 ? value : L"NULL") + L", " +
         (type == 3 || type > 3 ? value : L"NULL");
}

}  // namespace

std::wstring Folder(std::int32_t id, const std::wstring& name, std::int32_t parent) {
  return L"INSERT INTO FOLDER (ID, NAME, ID_PARENT) VALUES (" + N(id) + L", " + Quoted(name) + L", " +
         (parent == 0 ? L"NULL" : N(parent)) + L")";
}

std::wstring Packet(std::int32_t id, const std::wstring& name, std::int32_t rootFolder) {
  return L"INSERT INTO PACKET (ID, PACKETID, FOLDERID) VALUES (" + N(id) + L", " + Quoted(name) + L", " +
         N(rootFolder) + L")";
}

std::wstring Template(std::int32_t id, std::int32_t folder, std::int32_t packet, const std::wstring& name,
                      std::int32_t objectType) {
  return L"INSERT INTO OBJECT (ID, REPRESENTATIONID, OBJECTTYPEID, FOLDERID, PACKETID, NAME) VALUES (" + N(id) +
         L", 4, " + N(objectType) + L", " + N(folder) + L", " + N(packet) + L", " + Quoted(name) + L")";
}

std::wstring Column(std::int32_t templateId, std::int32_t number, std::int32_t type, const std::wstring& name,
                    const std::wstring& value, const std::wstring& formula) {
  return L"EXECUTE PROCEDURE CREATE_OBJ_ATTR(" + N(templateId) + L", " + N(number) + L", " + N(number) + L", " +
         N(type) + L", " + Quoted(name) + L", " + Quoted(L"Описание " + name) + L", 'мм', NULL, " +
         (formula.empty() ? L"NULL" : Quoted(formula)) + L", " + ValueSlots(type, value) + L")";
}

std::wstring Size(std::int32_t id, std::int32_t templateId, const std::wstring& identifier) {
  return L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (" + N(id) + L", " + N(templateId) + L", " +
         Quoted(identifier) + L")";
}

std::wstring SizeValue(std::int32_t sizeId, std::int32_t number, std::int32_t type, const std::wstring& value) {
  return L"EXECUTE PROCEDURE CREATE_ATTR_VAL(" + N(number) + L", " + N(sizeId) + L", " + ValueSlots(type, value) + L")";
}

}  // namespace lxtest::shapes

namespace lxtest {

std::wstring ValueText(LxStdSize* size, LxAttribute* attribute) {
  const NumberFormat format{false, 6};
  ValueView view{};
  if (!stdsize_GetValue(size, attribute, &format, &view)) return L"<none>";
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
    for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
      LxFolder* child = folder_GetChildFolder(folder, i);
      pending.emplace_back(child, path + folder_GetName(child) + L"/");
    }
    LxFolderTable* table = folder_GetTable(folder);
    if (table == nullptr) continue;
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
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace lxtest
