// MakeEmptyCatalog: the build step that turns the schema script into the
// empty catalog database the library carries. It runs the script statement
// by statement with the embedded engine (no server), committing after each,
// as isql does with DDL, and writes the database to a temporary name first
// so that an interrupted build never leaves a half-made catalog behind.
//
//   MakeEmptyCatalog <catalog.sql> <output.fdb>
//   MakeEmptyCatalog --representation-row <document.xml>
//
// The second form prints the INSERT of the first REPRESENTATION row for the
// script: the document in its stored form as a binary literal, with its MD5.
//
// The script is UTF-8; its text literals are catalog content and go into the
// database in code page 1251, like everything the library writes.
//
// Exit code 0 on success; otherwise one reason on standard error.
#include "platform/TextCodec.h"
#include "storage/ibpp/IBPP.h"
#include "storage/tools/SqlScript.h"
#include "content/ByteData.h"
#include "platform/Digest.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// The engine gives every object the creating user as its owner.
constexpr const char* kOwner = "SYSDBA";

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.string());
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

// The statement in code page 1251; a character outside it would be lost
// silently, so it stops the build instead.
std::string ToDatabaseText(const std::string& utf8) {
  const std::wstring wide = Utf8ToWide(utf8);
  std::string narrow = WideToCp1251(wide);
  if (Cp1251ToWide(narrow) != wide)
    throw std::runtime_error("a character outside code page 1251 in: " + FirstLine(utf8));
  return narrow;
}

class CatalogBuilder {
 public:
  explicit CatalogBuilder(std::filesystem::path target) : target_(std::move(target)) {}

  void Run(const std::string& statement) {
    std::smatch match;
    if (std::regex_match(statement, match, kDialect)) {
      if (match[1] != "3") throw std::runtime_error("the catalog is dialect 3, not " + match[1].str());
      return;
    }
    if (std::regex_match(statement, match, kCreateDatabase)) {
      Create(match[1].str());
      return;
    }
    if (std::regex_match(statement, kCommit)) return;  // every statement is committed anyway
    if (!database_) throw std::runtime_error("the script must create the database first");

    IBPP::Transaction transaction(*database_);
    transaction.Start();
    {
      IBPP::Statement sql(*database_, transaction);
      sql.Execute(ToDatabaseText(statement));
    }
    transaction.Commit();
  }

  void Finish() {
    if (!database_) throw std::runtime_error("the script creates no database");
    database_->Disconnect();
  }

 private:
  void Create(const std::string& createParams) {
    if (database_) throw std::runtime_error("the script creates a second database");
    database_ = std::make_unique<IBPP::Database>("", target_.string(), kOwner, "", "", "", createParams);
    database_->Create();
  }

  static inline const std::regex kDialect{R"(SET\s+SQL\s+DIALECT\s+(\d+))", std::regex::icase};
  // The file name is the build's; what follows it (page size, character
  // set) is the script's.
  static inline const std::regex kCreateDatabase{R"(CREATE\s+DATABASE\s+'(?:[^']|'')*'\s*([\s\S]*))",
                                                 std::regex::icase};
  static inline const std::regex kCommit{R"(COMMIT(\s+WORK)?)", std::regex::icase};

  std::filesystem::path target_;
  std::unique_ptr<IBPP::Database> database_;
};

int BuildCatalog(const std::filesystem::path& script, const std::filesystem::path& output) {
  const std::vector<std::string> statements = SqlScript::Split(ReadFile(script));
  std::filesystem::path partial = output;
  partial += ".partial";
  std::filesystem::remove(partial);

  std::size_t number = 0;
  try {
    CatalogBuilder builder(partial);
    for (const std::string& statement : statements) {
      ++number;
      builder.Run(statement);
    }
    builder.Finish();
  } catch (const std::exception& failure) {
    std::error_code ignored;
    std::filesystem::remove(partial, ignored);
    std::cerr << script.string() << ", statement " << number << ": " << failure.what() << '\n';
    return 1;
  }
  std::filesystem::rename(partial, output);
  return 0;
}

int PrintRepresentationRow(const std::filesystem::path& document) {
  const std::string text = ReadFile(document);
  const std::span<const unsigned char> bytes(reinterpret_cast<const unsigned char*>(text.data()), text.size());
  ByteData stored(bytes.data(), static_cast<std::int32_t>(bytes.size()));
  stored.Compress();
  static const char kDigits[] = "0123456789ABCDEF";
  std::string literal;
  for (unsigned char byte : std::span<const unsigned char>(stored.Data(), static_cast<std::size_t>(stored.Size()))) {
    literal += kDigits[byte >> 4];
    literal += kDigits[byte & 0x0F];
  }
  std::cout << "INSERT INTO REPRESENTATION (ID, DIGEST, DATA)\nVALUES (4, '" << Md5Hex(bytes) << "',\nx'"
            << literal << "');\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc == 3 && std::string(argv[1]) == "--representation-row") return PrintRepresentationRow(argv[2]);
    if (argc == 3 && argv[1][0] != '-') return BuildCatalog(argv[1], argv[2]);
    std::cerr << "usage: MakeEmptyCatalog <catalog.sql> <output.fdb> | --representation-row <document.xml>\n";
    return 2;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
