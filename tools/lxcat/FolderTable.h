#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "LxDataAccess.h"

namespace lxcat {

struct TableColumn {
  int32_t number = 0;
  std::string name;
  int32_t type = 0;  // 1 integer, 2 double, 3 text
  std::string measure;
  std::string formula;  // empty for a stored column
};

// A cell as the library gave it, calculated columns already evaluated. Text
// is the printed form; kind tells a reader of JSON whether it is a number.
struct TableCell {
  int8_t kind = LX_VALUE_EMPTY;
  std::string text;
};

struct TableRow {
  LxStdSize* size = nullptr;  // the size the row shows, for what else is read of it
  std::string id;
  std::vector<TableCell> cells;  // one per column, in column order
};

struct TableData {
  std::vector<TableColumn> columns;
  std::vector<TableRow> rows;
};

// Reads everything `table` and `html` print about a folder's table. A value
// the library refuses to give (a formula that fails) is an empty cell: one
// bad formula must not hide a whole table.
TableData ReadFolderTable(LxFolderTable* table);

// The printed form of a value: integers in decimal, doubles in the shortest
// text that reads back to the same double, texts as they are.
TableCell CellOf(const ValueView& view);

}  // namespace lxcat
