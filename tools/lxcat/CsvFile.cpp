#include "tools/lxcat/CsvFile.h"

#include <csv.h>

#include <fstream>
#include <memory>

#include "tools/lxcat/LibraryLog.h"

namespace lxcat {
namespace {

struct Reader {
  std::vector<CsvRecord> records;
  CsvRecord current;
  size_t line = 0;
  // The line where the record being read began; 0 between records.
  size_t recordStart = 0;
};

void OnField(void* text, size_t length, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  reader.current.fields.emplace_back(static_cast<const char*>(text), length);
}

void OnRecordEnd(int, void* data) {
  auto& reader = *static_cast<Reader*>(data);
  reader.current.line = reader.recordStart ? reader.recordStart : reader.line;
  reader.records.push_back(std::move(reader.current));
  reader.current = CsvRecord{};
  reader.recordStart = 0;
}

struct ParserFree {
  void operator()(csv_parser* parser) const {
    csv_free(parser);
    delete parser;
  }
};

bool Blank(const std::string& line) { return line.find_first_not_of(" \t\r") == std::string::npos; }

}  // namespace

std::vector<CsvRecord> ReadCsvFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Failure("cannot read '" + path + "'");
  std::unique_ptr<csv_parser, ParserFree> parser(new csv_parser);
  if (csv_init(parser.get(), CSV_STRICT | CSV_STRICT_FINI) != 0) throw Failure("cannot start the CSV reader");
  Reader reader;
  std::string text;
  // Fed a line at a time, so that the reader knows where each record starts.
  while (std::getline(in, text)) {
    ++reader.line;
    if (reader.line == 1 && text.rfind("\xEF\xBB\xBF", 0) == 0) text.erase(0, 3);
    if (reader.recordStart == 0 && !Blank(text)) reader.recordStart = reader.line;
    text += '\n';
    if (csv_parse(parser.get(), text.data(), text.size(), OnField, OnRecordEnd, &reader) != text.size()) {
      throw Failure(path + " line " + std::to_string(reader.recordStart ? reader.recordStart : reader.line) + ": " +
                    csv_strerror(csv_error(parser.get())));
    }
  }
  if (csv_fini(parser.get(), OnField, OnRecordEnd, &reader) != 0) {
    throw Failure(path + " line " + std::to_string(reader.recordStart) + ": " + csv_strerror(csv_error(parser.get())));
  }
  return std::move(reader.records);
}

}  // namespace lxcat
