#include "tools/lxcat/FolderTable.h"

#include <charconv>

#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

TableColumn ColumnOf(LxAttribute* attribute) {
  TableColumn column;
  column.number = attribute_GetNumber(attribute);
  column.name = Text(attribute_GetName(attribute));
  column.type = attribute_GetType(attribute);
  column.measure = Text(attribute_GetMeasure(attribute));
  column.formula = Text(attribute_GetFormula(attribute));
  return column;
}

}  // namespace

TableCell CellOf(const ValueView& view) {
  TableCell cell;
  cell.kind = view.index;
  switch (view.index) {
    case LX_VALUE_INT: cell.text = std::to_string(view.payload.integer); break;
    case LX_VALUE_DOUBLE: {
      char buffer[32];
      const auto result = std::to_chars(buffer, buffer + sizeof buffer, view.payload.number);
      cell.text.assign(buffer, result.ptr);
      break;
    }
    case LX_VALUE_STRING:
      cell.text = view.payload.text ? WideToUtf8(std::wstring_view(view.payload.text, view.length)) : std::string();
      break;
    default: cell.kind = LX_VALUE_EMPTY; break;
  }
  return cell;
}

TableData ReadFolderTable(LxFolderTable* table) {
  TableData data;
  std::vector<LxAttribute*> attributes;
  const int32_t columnCount = table_GetAttributeCount(table);
  for (int32_t i = 0; i < columnCount; ++i) {
    LxAttribute* attribute = table_GetAttribute(table, i);
    if (!attribute) continue;
    attributes.push_back(attribute);
    data.columns.push_back(ColumnOf(attribute));
  }
  const int32_t sizeCount = table_GetStdSizeCount(table);
  data.rows.reserve(sizeCount > 0 ? sizeCount : 0);
  for (int32_t i = 0; i < sizeCount; ++i) {
    LxStdSize* size = table_GetStdSize(table, i);
    if (!size) continue;
    TableRow row;
    row.size = size;
    row.id = Text(stdsize_GetID(size));
    row.cells.reserve(attributes.size());
    for (LxAttribute* attribute : attributes) {
      ValueView view{};
      row.cells.push_back(stdsize_GetValue(size, attribute, nullptr, &view) ? CellOf(view) : TableCell{});
    }
    data.rows.push_back(std::move(row));
  }
  return data;
}

}  // namespace lxcat
