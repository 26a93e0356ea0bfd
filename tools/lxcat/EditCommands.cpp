// set, add-size, add-column: one change to a folder's table each.
#include <cstdio>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/TypedValue.h"
#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

struct EditOptions {
  CatalogOptions catalog;
  std::string folder;
  std::string size;
  std::string column;
  std::string value;
  int32_t type = LX_VALUE_STRING;
  std::string description;
  std::string measure;
  std::string formula;
};

LxStdSize* SizeOf(LxFolderTable* table, const EditOptions& options) {
  LxStdSize* size = table_FindStdSize(table, Utf8ToWide(options.size).c_str());
  if (!size) throw Failure("no size '" + options.size + "' in '" + options.folder + "'");
  return size;
}

LxAttribute* ColumnOf(LxFolderTable* table, const EditOptions& options) {
  LxAttribute* column = table_FindAttribute(table, Utf8ToWide(options.column).c_str());
  if (!column) throw Failure("no column '" + options.column + "' in '" + options.folder + "'");
  return column;
}

void Set(const EditOptions& options) {
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  LxStdSize* size = SizeOf(table, options);
  LxAttribute* column = ColumnOf(table, options);
  const int32_t type = attribute_GetType(column);
  const auto value = ParseTypedValue(type, options.value);
  if (!value) throw Failure("'" + options.value + "' is not a value of the " + TypeName(type) + " column '" +
                            options.column + "'");
  Checked([&] { return WriteTypedValue(size, column, *value); },
          "cannot set '" + options.column + "' of '" + options.size + "'");
  std::printf("%s %s %s = %s\n", options.folder.c_str(), options.size.c_str(), options.column.c_str(),
              options.value.c_str());
}

void AddSize(const EditOptions& options) {
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  LxStdSize* size = Checked([&] { return table_AddStdSize(table, Utf8ToWide(options.size).c_str()); },
                            "cannot add the size '" + options.size + "' to '" + options.folder + "'");
  // A taken identifier is not refused: the library picks a free one.
  std::printf("%s\n", Text(stdsize_GetID(size)).c_str());
}

void AddColumn(const EditOptions& options) {
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  const std::string what = "cannot add the column '" + options.column + "' to '" + options.folder + "'";
  // The library keeps no measure or formula on a virtual folder's column;
  // refusing first keeps the column from being made without them.
  LxFolder* folder = table_GetFolder(table);
  if ((!options.measure.empty() || !options.formula.empty()) && folder && folder_IsVirtual(folder)) {
    throw Failure(what + ": a virtual folder's column takes no measure or formula");
  }
  LxAttribute* column = Checked(
      [&] {
        return table_AddAttribute(table, Utf8ToWide(options.column).c_str(), Utf8ToWide(options.description).c_str(),
                                  options.type);
      },
      what);
  if (!options.measure.empty()) {
    Checked([&] { return attribute_SetMeasure(column, Utf8ToWide(options.measure).c_str()); }, what + " (measure)");
  }
  if (!options.formula.empty()) {
    Checked([&] { return attribute_SetFormula(column, Utf8ToWide(options.formula).c_str()); }, what + " (formula)");
  }
  std::printf("%d\n", attribute_GetNumber(column));
}

CLI::App* FolderCommand(CLI::App& app, const char* name, const char* description, EditOptions& options) {
  CLI::App* command = app.add_subcommand(name, description);
  AddCatalogOptions(command, options.catalog);
  command->add_option("FOLDER", options.folder, "folder as 'Packet\\Folder\\...'")->required();
  return command;
}

}  // namespace

void AddEditCommands(CLI::App& app, Work& chosen) {
  auto set = std::make_shared<EditOptions>();
  CLI::App* command = FolderCommand(app, "set", "set one value of a size, typed by its column", *set);
  command->add_option("SIZE", set->size, "size identifier")->required();
  command->add_option("COLUMN", set->column, "column name")->required();
  command->add_option("VALUE", set->value, "the value")->required();
  command->callback([&chosen, set] { chosen = [set] { Set(*set); }; });

  auto size = std::make_shared<EditOptions>();
  command = FolderCommand(app, "add-size", "add a size; prints the identifier it got", *size);
  command->add_option("SIZE", size->size, "size identifier")->required();
  command->callback([&chosen, size] { chosen = [size] { AddSize(*size); }; });

  auto column = std::make_shared<EditOptions>();
  command = FolderCommand(app, "add-column", "add a column; prints its number", *column);
  command->add_option("NAME", column->column, "column name")->required();
  const std::map<std::string, int32_t> types{
      {"integer", LX_VALUE_INT}, {"double", LX_VALUE_DOUBLE}, {"text", LX_VALUE_STRING}};
  command->add_option("--type", column->type, "integer, double or text (the default)")
      ->transform(CLI::CheckedTransformer(types, CLI::ignore_case));
  command->add_option("--description", column->description, "description of the column");
  command->add_option("--measure", column->measure, "unit of measure");
  command->add_option("--formula", column->formula, "formula of a calculated column");
  command->callback([&chosen, column] { chosen = [column] { AddColumn(*column); }; });
}

}  // namespace lxcat
