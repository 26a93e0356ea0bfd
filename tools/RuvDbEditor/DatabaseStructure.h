// DatabaseStructure: what the engine says about a database file as a file:
// its on-disk structure (ODS) version and whether it is read-only. Read
// through an attachment of its own that ends before Read returns.
//
// A plain value; thread-safe to read.
#pragma once

#include <compare>
#include <string>

// An ODS version, major.minor; newer compares greater.
struct OdsVersion {
  int major = 0;
  int minor = 0;

  auto operator<=>(const OdsVersion&) const = default;
  std::string Text() const { return std::to_string(major) + "." + std::to_string(minor); }
};

class DatabaseStructure {
 public:
  // Attaches embedded as SYSDBA; an IBPP::Exception if the engine cannot
  // open the file or does not answer both questions.
  static DatabaseStructure Read(const std::string& databasePath);

  OdsVersion Ods() const { return ods_; }
  bool ReadOnly() const { return readOnly_; }

 private:
  DatabaseStructure(OdsVersion ods, bool readOnly) : ods_(ods), readOnly_(readOnly) {}

  OdsVersion ods_;
  bool readOnly_;
};
