#include "tools/lxcat/Output.h"

#include <csv.h>

#include <algorithm>

namespace lxcat {

const std::map<std::string, Format>& FormatNames() {
  static const std::map<std::string, Format> names{
      {"text", Format::Text}, {"csv", Format::Csv}, {"json", Format::Json}};
  return names;
}

void WriteCsvRow(std::FILE* out, const Row& fields) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) std::fputc(',', out);
    csv_fwrite(out, fields[i].data(), fields[i].size());
  }
  std::fputs("\r\n", out);
}

size_t DisplayWidth(const std::string& text) {
  // Every byte but a continuation byte starts a character.
  return static_cast<size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void WriteTextTable(std::FILE* out, const std::vector<Row>& rows, const std::string& indent) {
  std::vector<size_t> widths;
  for (const Row& row : rows) {
    if (widths.size() < row.size()) widths.resize(row.size(), 0);
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], DisplayWidth(row[i]));
  }
  std::string line;
  for (const Row& row : rows) {
    line = indent;
    for (size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - DisplayWidth(row[i]) + 2, ' ');
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), out);
  }
}

}  // namespace lxcat
