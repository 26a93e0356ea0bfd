// tree, table, search: what a catalog holds, printed as text, CSV or JSON.
#include <cstdio>
#include <cstdlib>

#include <nlohmann/json.hpp>

#include "tools/lxcat/CatalogPath.h"
#include "tools/lxcat/Commands.h"
#include "tools/lxcat/FolderTable.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"
#include "tools/lxcat/TypedValue.h"
#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

using json = nlohmann::ordered_json;

void PrintJson(const json& document) {
  const std::string text = document.dump(2);
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
}

// ---- tree ----------------------------------------------------------------

int32_t OwnSizes(LxFolder* folder) {
  LxFolderTable* table = folder_GetTable(folder);
  return table ? table_GetStdSizeCount(table) : 0;
}

// A folder with its own size count and its children; `total` gathers the
// sizes of the whole subtree.
json FolderTree(LxFolder* folder, int64_t& total) {
  const int32_t sizes = OwnSizes(folder);
  total += sizes;
  json node{{"name", Text(folder_GetName(folder))}, {"virtual", folder_IsVirtual(folder)}, {"sizes", sizes}};
  json children = json::array();
  const int32_t count = folder_GetChildFolderCount(folder);
  for (int32_t i = 0; i < count; ++i) {
    if (LxFolder* child = folder_GetChildFolder(folder, i)) children.push_back(FolderTree(child, total));
  }
  node["folders"] = std::move(children);
  return node;
}

void PrintFolderText(const json& folder, int depth) {
  std::printf("%*s%s%s  %d sizes\n", depth * 2, "", folder["name"].get<std::string>().c_str(),
              folder["virtual"].get<bool>() ? "  [virtual]" : "", folder["sizes"].get<int>());
  for (const json& child : folder["folders"]) PrintFolderText(child, depth + 1);
}

struct TreeOptions {
  CatalogOptions catalog;
  Format format = Format::Text;
};

void Tree(const TreeOptions& options) {
  const auto session = options.catalog.Open();
  session->LoadAllPackets();
  json packets = json::array();
  const int32_t count = provider_GetPacketCount(session->Provider());
  for (int32_t i = 0; i < count; ++i) {
    LxPacket* packet = provider_GetPacket(session->Provider(), i);
    LxFolder* root = packet ? packet_GetRootFolder(packet) : nullptr;
    if (!root) continue;
    int64_t total = 0;
    json tree = FolderTree(root, total);
    packets.push_back({{"name", Text(packet_GetName(packet))},
                       {"sizes", total},
                       {"rootSizes", tree["sizes"]},
                       {"folders", std::move(tree["folders"])}});
  }
  if (options.format == Format::Json) return PrintJson({{"packets", std::move(packets)}});
  for (const json& packet : packets) {
    std::printf("%s  %lld sizes (%d in the root)\n", packet["name"].get<std::string>().c_str(),
                static_cast<long long>(packet["sizes"].get<int64_t>()), packet["rootSizes"].get<int>());
    for (const json& folder : packet["folders"]) PrintFolderText(folder, 1);
  }
}

// ---- table ---------------------------------------------------------------

json CellJson(const TableCell& cell) {
  switch (cell.kind) {
    case LX_VALUE_INT: return std::strtoll(cell.text.c_str(), nullptr, 10);
    case LX_VALUE_DOUBLE: return std::strtod(cell.text.c_str(), nullptr);
    case LX_VALUE_STRING: return cell.text;
    default: return nullptr;
  }
}

void PrintTableJson(const std::string& path, const TableData& data) {
  json columns = json::array();
  for (const TableColumn& column : data.columns) {
    columns.push_back({{"number", column.number},
                       {"name", column.name},
                       {"type", TypeName(column.type)},
                       {"measure", column.measure},
                       {"formula", column.formula}});
  }
  json sizes = json::array();
  for (const TableRow& row : data.rows) {
    json values = json::array();
    for (const TableCell& cell : row.cells) values.push_back(CellJson(cell));
    sizes.push_back({{"id", row.id}, {"values", std::move(values)}});
  }
  PrintJson({{"folder", path}, {"columns", std::move(columns)}, {"sizes", std::move(sizes)}});
}

Row HeaderRow(const TableData& data) {
  Row header{"id"};
  for (const TableColumn& column : data.columns) header.push_back(column.name);
  return header;
}

Row ValueRow(const TableRow& row) {
  Row fields{row.id};
  for (const TableCell& cell : row.cells) fields.push_back(cell.text);
  return fields;
}

void PrintTableCsv(const TableData& data) {
  WriteCsvRow(stdout, HeaderRow(data));
  for (const TableRow& row : data.rows) WriteCsvRow(stdout, ValueRow(row));
}

void PrintTableText(const std::string& path, const TableData& data) {
  std::printf("%s: %zu columns, %zu sizes\n", path.c_str(), data.columns.size(), data.rows.size());
  std::vector<Row> columns{{"number", "name", "type", "measure", "formula"}};
  for (const TableColumn& column : data.columns) {
    columns.push_back({std::to_string(column.number), column.name, TypeName(column.type), column.measure,
                       column.formula});
  }
  WriteTextTable(stdout, columns, "  ");
  std::vector<Row> sizes{HeaderRow(data)};
  for (const TableRow& row : data.rows) sizes.push_back(ValueRow(row));
  std::fputc('\n', stdout);
  WriteTextTable(stdout, sizes, "  ");
}

struct TableOptions {
  CatalogOptions catalog;
  std::string folder;
  Format format = Format::Text;
};

void Table(const TableOptions& options) {
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  const TableData data = [&] {
    ProgressBar bar("reading " + options.folder);
    return ReadFolderTable(table);
  }();
  switch (options.format) {
    case Format::Text: return PrintTableText(options.folder, data);
    case Format::Csv: return PrintTableCsv(data);
    case Format::Json: return PrintTableJson(options.folder, data);
  }
}

// ---- search --------------------------------------------------------------

struct Found {
  std::string folder;
  std::string id;
};

std::vector<Found> RunSearch(LxProviderPool* pool, const std::string& locations, const std::string& condition) {
  ProgressBar bar("searching");
  LxSearchResult* result = Checked(
      [&] { return pool_GetSearchResult(pool, Utf8ToWide(locations).c_str(), Utf8ToWide(condition).c_str()); },
      "search failed");
  std::vector<Found> found;
  const int32_t count = search_GetCount(result);
  for (int32_t i = 0; i < count; ++i) {
    LxStdSize* size = search_Get(result, i);
    LxFolderTable* table = size ? stdsize_GetTable(size) : nullptr;
    LxFolder* folder = table ? table_GetFolder(table) : nullptr;
    if (size) found.push_back({folder ? WideToUtf8(FolderPath(folder)) : std::string(), Text(stdsize_GetID(size))});
  }
  pool_DeleteSearchResult(pool, result);
  return found;
}

struct SearchOptions {
  CatalogOptions catalog;
  std::string locations;
  std::string condition;
  Format format = Format::Text;
};

void Search(const SearchOptions& options) {
  const auto session = options.catalog.Open();
  const std::vector<Found> found = RunSearch(session->Pool(), options.locations, options.condition);
  if (options.format == Format::Json) {
    json sizes = json::array();
    for (const Found& size : found) sizes.push_back({{"folder", size.folder}, {"id", size.id}});
    return PrintJson({{"count", found.size()}, {"sizes", std::move(sizes)}});
  }
  std::vector<Row> rows{{"folder", "id"}};
  for (const Found& size : found) rows.push_back({size.folder, size.id});
  if (options.format == Format::Csv) {
    for (const Row& row : rows) WriteCsvRow(stdout, row);
  } else {
    WriteTextTable(stdout, rows);
  }
}

}  // namespace

void AddReadCommands(CLI::App& app, Work& chosen) {
  auto tree = std::make_shared<TreeOptions>();
  CLI::App* command = app.add_subcommand("tree", "print the packets and their folders, with size counts");
  AddCatalogOptions(command, tree->catalog);
  AddFormatOption(command, tree->format, false);
  command->callback([&chosen, tree] { chosen = [tree] { Tree(*tree); }; });

  auto table = std::make_shared<TableOptions>();
  command = app.add_subcommand("table", "print a folder's columns and every size with its values");
  AddCatalogOptions(command, table->catalog);
  command->add_option("FOLDER", table->folder, "folder as 'Packet\\Folder\\...'")->required();
  AddFormatOption(command, table->format, true);
  command->callback([&chosen, table] { chosen = [table] { Table(*table); }; });

  auto search = std::make_shared<SearchOptions>();
  command = app.add_subcommand("search", "print the sizes that satisfy a condition, with their folders");
  AddCatalogOptions(command, search->catalog);
  command->add_option("LOCATIONS", search->locations, "'Packet\\Folder;Packet2' where to look")->required();
  command->add_option("CONDITION", search->condition, "a formula condition, e.g. \"D > 10\"")->required();
  AddFormatOption(command, search->format, true);
  command->callback([&chosen, search] { chosen = [search] { Search(*search); }; });
}

}  // namespace lxcat
