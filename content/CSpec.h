// CSpec: one specification record of a template (a SPECIFICATION row): a
// library name, a style, two part numbers, and numbered columns, each a text
// formula, read on first need. The list of a template is shared by all its
// sizes and kept in the provider's cache.
//
// Owned by its list in the provider's cache. Not thread-safe: used under
// the frame lock.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formula/CFormula.h"

class IContentStore;

class CSpec {
 public:
  struct Row {
    std::int32_t id = 0;
    std::wstring libName;
    std::int32_t styleNumber = 0;
    std::int32_t firstPart = 0;
    std::int32_t secondPart = 0;
  };
  struct Column {
    std::int32_t number = 0;
    FormulaPtr formula;
    std::wstring text;
  };
  // A column as stored, before it is parsed.
  struct StoredColumn {
    std::int32_t number = 0;
    std::wstring text;
  };

  CSpec(Row row, IContentStore& store) : row_(std::move(row)), store_(store) {}

  CSpec(const CSpec&) = delete;
  CSpec& operator=(const CSpec&) = delete;

  std::int32_t GetId() const { return row_.id; }
  const std::wstring& GetLibName() const { return row_.libName; }
  std::int32_t GetStyleNumber() const { return row_.styleNumber; }
  std::int32_t GetFirstPart() const { return row_.firstPart; }
  std::int32_t GetSecondPart() const { return row_.secondPart; }

  std::int32_t _ColumnCount();
  std::int32_t _ColumnNumber(std::int32_t index);
  const wchar_t* _ColumnStrFormula(std::int32_t index);
  // The first column of this number, or null.
  const Column* GetColumnByNum(std::int32_t number);

 private:
  // Reads and parses every column unless done; all or nothing, so a column
  // that does not parse leaves the columns unread and throws its error.
  bool LoadColumns(const char* method);
  const Column* ColumnAt(std::int32_t index, const char* method);

  Row row_;
  std::vector<Column> columns_;
  IContentStore& store_;
  bool columnsLoaded_ = false;
};
