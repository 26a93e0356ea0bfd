#include "tools/lxcat/site/SitePages.h"

#include "tools/lxcat/site/HtmlText.h"
#include "tools/lxcat/site/PageAssets.h"

namespace lxcat {
namespace {

void OpenPage(std::string& out, const std::string& title) {
  out += "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>";
  AppendEscaped(out, title);
  // An empty icon of its own keeps the browser from asking for favicon.ico,
  // a file the site does not have.
  out += "</title><link rel=\"icon\" href=\"data:,\"><style>";
  out += kPageStyle;
  out += "</style></head>\n<body>\n";
}

void ClosePage(std::string& out, bool withSearch) {
  if (withSearch) out.append("<script>").append(kSearchScript).append("</script>\n");
  out += "</body></html>\n";
}

void AppendLink(std::string& out, const std::string& href, const std::string& text) {
  out.append("<a href=\"").append(href).append("\">");
  AppendEscaped(out, text);
  out += "</a>";
}

void AppendTree(std::string& out, const std::vector<SiteFolder>& folders, size_t index) {
  out += "<li>";
  AppendLink(out, folders[index].page, folders[index].name);
  if (!folders[index].children.empty()) {
    out += "<ul class=\"tree\">";
    for (const size_t child : folders[index].children) AppendTree(out, folders, child);
    out += "</ul>";
  }
  out += "</li>\n";
}

// Index, then every ancestor as a link, then the folder itself as text.
void AppendTrail(std::string& out, const std::vector<SiteFolder>& folders, size_t index) {
  std::vector<size_t> ancestors;
  for (size_t step = folders[index].parent; step != kNoFolder; step = folders[step].parent) ancestors.push_back(step);
  out += "<nav>";
  AppendLink(out, kIndexPage, "Catalog");
  for (auto it = ancestors.rbegin(); it != ancestors.rend(); ++it) {
    out += " / ";
    AppendLink(out, folders[*it].page, folders[*it].name);
  }
  out += " / <span>";
  AppendEscaped(out, folders[index].name);
  out += "</span></nav>\n";
}

void AppendChildren(std::string& out, const std::vector<SiteFolder>& folders, size_t index) {
  const SiteFolder& folder = folders[index];
  out += "<p>Up: ";
  AppendLink(out, folder.parent == kNoFolder ? kIndexPage : folders[folder.parent].page,
             folder.parent == kNoFolder ? "Catalog" : folders[folder.parent].name);
  out += "</p>\n";
  if (folder.children.empty()) return;
  out += "<h2>Folders</h2>\n<ul id=\"folders\">\n";
  for (const size_t child : folder.children) {
    out += "<li>";
    AppendLink(out, folders[child].page, folders[child].name);
    out += "</li>\n";
  }
  out += "</ul>\n";
}

// A calculated column shows its formula when pointed at.
void AppendHeader(std::string& out, const TableData& table, bool withPictures) {
  out += "<thead><tr><th>ID</th>";
  for (const TableColumn& column : table.columns) {
    out += column.formula.empty() ? "<th>" : "<th class=\"calculated\" title=\"= ";
    if (!column.formula.empty()) {
      AppendEscaped(out, column.formula);
      out += "\">";
    }
    AppendEscaped(out, column.name);
    if (!column.measure.empty()) {
      out += ", ";
      AppendEscaped(out, column.measure);
    }
    out += "</th>";
  }
  if (withPictures) out += "<th>Pictures</th>";
  out += "</tr></thead>\n";
}

void AppendPictures(std::string& out, const std::vector<Thumbnail>& pictures) {
  out += "<td>";
  for (const Thumbnail& picture : pictures) {
    out.append("<img src=\"").append(picture.href).append("\" alt=\"");
    AppendEscaped(out, picture.caption);
    out += "\" title=\"";
    AppendEscaped(out, picture.caption);
    out += "\">";
  }
  out += "</td>";
}

void AppendRows(std::string& out, const TableData& table, const std::vector<std::vector<Thumbnail>>& thumbnails) {
  out += "<tbody>\n";
  for (size_t r = 0; r < table.rows.size(); ++r) {
    out += "<tr><td>";
    AppendEscaped(out, table.rows[r].id);
    out += "</td>";
    for (const TableCell& cell : table.rows[r].cells) {
      const bool number = cell.kind == LX_VALUE_INT || cell.kind == LX_VALUE_DOUBLE;
      out += number ? "<td class=\"number\">" : "<td>";
      AppendEscaped(out, cell.text);
      out += "</td>";
    }
    if (!thumbnails.empty()) AppendPictures(out, thumbnails[r]);
    out += "</tr>\n";
  }
  out += "</tbody>\n";
}

void AppendTable(std::string& out, const TableData& table, const std::vector<std::vector<Thumbnail>>& thumbnails) {
  const size_t count = table.rows.size();
  out += "<h2>Sizes</h2>\n";
  out += "<input id=\"search\" type=\"search\" placeholder=\"Filter sizes\" aria-label=\"Filter sizes\"> ";
  out.append("<span class=\"count\">").append(std::to_string(count)).append(count == 1 ? " size" : " sizes");
  out += "</span>\n<table id=\"sizes\">\n";
  AppendHeader(out, table, !thumbnails.empty());
  AppendRows(out, table, thumbnails);
  out += "</table>\n";
}

}  // namespace

std::string IndexPage(const std::vector<SiteFolder>& folders) {
  std::string out;
  OpenPage(out, "Catalog");
  out += "<h1>Catalog</h1>\n";
  if (folders.empty()) out += "<p>The catalog has no packets.</p>\n";
  out += "<ul class=\"tree\" id=\"packets\">\n";
  for (size_t i = 0; i < folders.size(); ++i) {
    if (folders[i].parent == kNoFolder) AppendTree(out, folders, i);
  }
  out += "</ul>\n";
  ClosePage(out, false);
  return out;
}

std::string FolderPage(const std::vector<SiteFolder>& folders, size_t index, const TableData& table,
                       const std::vector<std::vector<Thumbnail>>& thumbnails) {
  std::string out;
  OpenPage(out, folders[index].path);
  AppendTrail(out, folders, index);
  out += "<h1>";
  AppendEscaped(out, folders[index].path);
  out += "</h1>\n";
  AppendChildren(out, folders, index);
  const bool hasTable = !table.rows.empty() || !table.columns.empty();
  if (hasTable) AppendTable(out, table, thumbnails);
  else out += "<p>No sizes in this folder.</p>\n";
  ClosePage(out, hasTable);
  return out;
}

}  // namespace lxcat
