// import: sizes and values from a CSV file into one folder's table, the
// whole file or nothing. Every record is checked against the table before
// the first write, because the library commits each write on its own and
// cannot take back what an earlier row wrote.
#include <cstdio>
#include <map>
#include <optional>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/CsvFile.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"
#include "tools/lxcat/TypedValue.h"
#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

struct ImportColumn {
  std::string name;
  LxAttribute* attribute = nullptr;  // null until made, for a new column
  int32_t type = LX_VALUE_STRING;
};

struct ImportRow {
  std::string id;
  LxStdSize* size = nullptr;  // null until made, for a new size
  std::vector<std::optional<TypedValue>> values;  // one per column; empty cells leave the value alone
};

struct ImportPlan {
  std::vector<ImportColumn> columns;
  std::vector<ImportRow> rows;
};

class PlanBuilder {
 public:
  PlanBuilder(std::string file, LxFolderTable* table) : file_(std::move(file)), table_(table) {}
  ImportPlan Build(const std::vector<CsvRecord>& records);

 private:
  [[noreturn]] void Fail(size_t line, const std::string& what) const {
    throw Failure(file_ + " line " + std::to_string(line) + ": " + what);
  }
  void Columns(const std::vector<CsvRecord>& records);
  ImportRow Row(const CsvRecord& record);
  LxStdSize* ExistingSize(const CsvRecord& record, const std::string& id) const;

  std::string file_;
  LxFolderTable* table_;
  ImportPlan plan_;
  std::map<std::string, size_t> lineOfId_;
};

ImportPlan PlanBuilder::Build(const std::vector<CsvRecord>& records) {
  if (records.empty()) throw Failure(file_ + ": no header row");
  Columns(records);
  for (size_t i = 1; i < records.size(); ++i) plan_.rows.push_back(Row(records[i]));
  return std::move(plan_);
}

// The header's first field names the identifier column, whatever it says;
// the others are columns, found as the library finds them (case folded) or
// made new, typed by what the file holds for them.
void PlanBuilder::Columns(const std::vector<CsvRecord>& records) {
  const CsvRecord& header = records.front();
  std::map<LxAttribute*, std::string> seen;
  std::map<std::string, size_t> newNames;
  for (size_t c = 1; c < header.fields.size(); ++c) {
    ImportColumn column{header.fields[c]};
    if (column.name.empty()) Fail(header.line, "column " + std::to_string(c + 1) + " has no name");
    column.attribute = table_FindAttribute(table_, Utf8ToWide(column.name).c_str());
    if (column.attribute) {
      if (seen.count(column.attribute)) Fail(header.line, "column '" + column.name + "' stands twice");
      seen[column.attribute] = column.name;
      const wchar_t* formula = attribute_GetFormula(column.attribute);
      if (formula && *formula) Fail(header.line, "column '" + column.name + "' is calculated");
      column.type = attribute_GetType(column.attribute);
    } else {
      if (!newNames.emplace(column.name, c).second) Fail(header.line, "column '" + column.name + "' stands twice");
      std::vector<const std::string*> texts;
      for (size_t r = 1; r < records.size(); ++r) {
        if (c < records[r].fields.size()) texts.push_back(&records[r].fields[c]);
      }
      column.type = TypeOfTexts(texts);
    }
    plan_.columns.push_back(std::move(column));
  }
}

LxStdSize* PlanBuilder::ExistingSize(const CsvRecord& record, const std::string& id) const {
  const std::wstring wide = Utf8ToWide(id);
  if (LxStdSize* size = table_FindStdSize(table_, wide.c_str())) return size;
  // Identifiers are unique in the whole packet: the library would make this
  // one 'id (0)', which is not what the file says.
  LxFolder* folder = table_GetFolder(table_);
  LxPacket* packet = folder ? folder_GetPacket(folder) : nullptr;
  if (packet && packet_FindStdSize(packet, wide.c_str())) Fail(record.line, "size '" + id + "' is in another folder");
  if (folder && folder_IsVirtual(folder)) Fail(record.line, "a virtual folder takes no new size ('" + id + "')");
  return nullptr;
}

ImportRow PlanBuilder::Row(const CsvRecord& record) {
  if (record.fields.size() != plan_.columns.size() + 1) {
    Fail(record.line, std::to_string(record.fields.size()) + " fields where the header has " +
                          std::to_string(plan_.columns.size() + 1));
  }
  ImportRow row;
  row.id = record.fields.front();
  if (row.id.empty()) Fail(record.line, "no size identifier");
  const auto [first, added] = lineOfId_.emplace(row.id, record.line);
  if (!added) Fail(record.line, "size '" + row.id + "' stands on line " + std::to_string(first->second) + " too");
  row.size = ExistingSize(record, row.id);
  for (size_t c = 0; c < plan_.columns.size(); ++c) {
    const std::string& text = record.fields[c + 1];
    const ImportColumn& column = plan_.columns[c];
    if (text.empty()) {
      row.values.emplace_back();
      continue;
    }
    auto value = ParseTypedValue(column.type, text);
    if (!value) Fail(record.line, "'" + text + "' is not a value of the " + TypeName(column.type) + " column '" +
                                      column.name + "'");
    row.values.push_back(std::move(value));
  }
  return row;
}

// What the size shows already needs no write; a file imported twice writes
// nothing the second time.
bool Shows(LxStdSize* size, LxAttribute* column, const TypedValue& value) {
  ValueView view{};
  if (!stdsize_GetValue(size, column, nullptr, &view) || view.index != value.type) return false;
  switch (value.type) {
    case LX_VALUE_INT: return view.payload.integer == value.integer;
    case LX_VALUE_DOUBLE: return view.payload.number == value.number;
    default: return view.payload.text && std::wstring_view(view.payload.text, view.length) == value.text;
  }
}

struct ImportCounts {
  size_t columns = 0;
  size_t sizes = 0;
  size_t values = 0;
};

ImportCounts Write(ImportPlan& plan, LxFolderTable* table) {
  ImportCounts counts;
  for (ImportColumn& column : plan.columns) {
    if (column.attribute) continue;
    column.attribute = Checked(
        [&] { return table_AddAttribute(table, Utf8ToWide(column.name).c_str(), L"", column.type); },
        "cannot add the column '" + column.name + "'");
    ++counts.columns;
  }
  ProgressBar bar("importing");
  for (size_t r = 0; r < plan.rows.size(); ++r) {
    bar.Set(r, plan.rows.size());
    ImportRow& row = plan.rows[r];
    if (!row.size) {
      row.size = Checked([&] { return table_AddStdSize(table, Utf8ToWide(row.id).c_str()); },
                         "cannot add the size '" + row.id + "'");
      ++counts.sizes;
    }
    for (size_t c = 0; c < plan.columns.size(); ++c) {
      if (!row.values[c] || Shows(row.size, plan.columns[c].attribute, *row.values[c])) continue;
      Checked([&] { return WriteTypedValue(row.size, plan.columns[c].attribute, *row.values[c]); },
              "cannot set '" + plan.columns[c].name + "' of '" + row.id + "'");
      ++counts.values;
    }
  }
  return counts;
}

struct ImportOptions {
  CatalogOptions catalog;
  std::string folder;
  std::string file;
};

void Import(const ImportOptions& options) {
  const std::vector<CsvRecord> records = ReadCsvFile(options.file);
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  ImportPlan plan = PlanBuilder(options.file, table).Build(records);
  if (!provider_IsEditable(session->Provider())) throw Failure("catalog '" + options.catalog.catalog + "' is read-only");
  const ImportCounts counts = Write(plan, table);
  std::printf("%zu rows: %zu new sizes, %zu new columns, %zu values written\n", plan.rows.size(), counts.sizes,
              counts.columns, counts.values);
}

}  // namespace

void AddImportCommand(CLI::App& app, Work& chosen) {
  auto import = std::make_shared<ImportOptions>();
  CLI::App* command = app.add_subcommand(
      "import", "sizes and values from CSV: a header of column names (the first is the size identifier), one "
                "size per row; all rows or none");
  AddCatalogOptions(command, import->catalog);
  command->add_option("FOLDER", import->folder, "folder as 'Packet\\Folder\\...'")->required();
  command->add_option("ROWS", import->file, "CSV file")->required();
  command->callback([&chosen, import] { chosen = [import] { Import(*import); }; });
}

}  // namespace lxcat
