#pragma once
#include <cstdio>
#include <map>
#include <string>
#include <vector>

// The three forms lxcat prints in. Text is for people (aligned columns),
// CSV for spreadsheets and scripts (every field quoted by libcsv), JSON for
// programs (nlohmann-json).
namespace lxcat {

enum class Format { Text, Csv, Json };

// The names the --format option takes, for CLI11's transform.
const std::map<std::string, Format>& FormatNames();

using Row = std::vector<std::string>;

// One CSV record; fields are UTF-8.
void WriteCsvRow(std::FILE* out, const Row& fields);
// Rows aligned in columns two blanks apart; the last column is not padded.
void WriteTextTable(std::FILE* out, const std::vector<Row>& rows, const std::string& indent = "");
// Characters of UTF-8 text, for alignment.
size_t DisplayWidth(const std::string& text);

}  // namespace lxcat
