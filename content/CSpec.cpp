#include "content/CSpec.h"

#include "content/IContentStore.h"
#include "formula/FormulaParser.h"
#include "platform/Report.h"

bool CSpec::LoadColumns(const char* method) {
  if (columnsLoaded_) return true;
  std::vector<StoredColumn> stored;
  if (store_.LoadSpecColumns(row_.id, stored)) {
    std::vector<Column> parsed;
    parsed.reserve(stored.size());
    for (StoredColumn& column : stored)
      parsed.push_back(Column{column.number, ParseTextFormula(column.text), std::move(column.text)});
    columns_ = std::move(parsed);
    columnsLoaded_ = true;
    return true;
  }
  Report(L"Не смогли загрузить колонки для спецификации id = " + std::to_wstring(row_.id), method);
  return false;
}

std::int32_t CSpec::_ColumnCount() {
  if (!LoadColumns("CSpec::_ColumnCount")) return 0;
  return static_cast<std::int32_t>(columns_.size());
}

const CSpec::Column* CSpec::ColumnAt(std::int32_t index, const char* method) {
  if (!LoadColumns(method)) return nullptr;
  if (index < 0 || static_cast<std::size_t>(index) >= columns_.size()) {
    ReportIndexOutOfRange(index, static_cast<std::int64_t>(columns_.size()), method);
    return nullptr;
  }
  return &columns_[static_cast<std::size_t>(index)];
}

std::int32_t CSpec::_ColumnNumber(std::int32_t index) {
  const Column* column = ColumnAt(index, "CSpec::_ColumnNumber");
  return column ? column->number : 0;
}

const wchar_t* CSpec::_ColumnStrFormula(std::int32_t index) {
  const Column* column = ColumnAt(index, "CSpec::_ColumnStrFormula");
  return column ? column->text.c_str() : nullptr;
}

const CSpec::Column* CSpec::GetColumnByNum(std::int32_t number) {
  if (!LoadColumns("CSpec::GetColumnByNum")) return nullptr;
  for (const Column& column : columns_)
    if (column.number == number) return &column;
  return nullptr;
}
