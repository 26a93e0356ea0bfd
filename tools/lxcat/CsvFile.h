#pragma once
#include <cstddef>
#include <string>
#include <vector>

// A CSV file read whole with libcsv, each record with the line it starts on,
// so that a bad record can be named the way an editor shows it.
namespace lxcat {

struct CsvRecord {
  size_t line = 0;
  std::vector<std::string> fields;
};

// Blank lines are skipped. A Failure naming the file (and the line, for
// malformed CSV) when it cannot be read.
std::vector<CsvRecord> ReadCsvFile(const std::string& path);

}  // namespace lxcat
