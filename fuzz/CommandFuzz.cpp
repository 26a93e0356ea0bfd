// libFuzzer target of command documents: each input, read as UTF-8, is a
// document handed to provider_RunCommand on a small catalog made once per
// process in a private temporary folder.
//
// Beyond the sanitizers, the target aborts when a document leaves half its
// work behind: a call that returns false must leave every specification row
// and column as it found them. A call that returns true may have changed
// anything a command names.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "LxDataAccess.h"
#include "platform/TextCodec.h"
#include "storage/CDataProvider.h"
#include "tests/support/CatalogSql.h"

namespace {

struct Catalog {
  LxDataProvider* provider = nullptr;
  lxtest::CatalogSql* sql = nullptr;
};

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "command fuzz set-up failed: %s\n", what);
  std::abort();
}

// Packet "P": the root holds size "R", its child "F" the sizes "A" and "B"
// (two templates), and "F" a child "G" with "C"; every template has a
// specification to replace.
Catalog& TheCatalog() {
  static Catalog catalog = [] {
    char pattern[] = "/tmp/lx-command-fuzz-XXXXXX";
    Require(mkdtemp(pattern) != nullptr, "mkdtemp");
    const std::wstring path = Utf8ToWide(std::string(pattern) + "/catalog.fdb");
    Require(lxCreateEmptyFDB(path.c_str()), "lxCreateEmptyFDB");
    LxProviderPool* pool = lxAddLibraryProviderPool(L"command-fuzz", L"/command-fuzz.ulb");
    Require(pool != nullptr, "pool");
    Catalog made;
    made.provider = pool_AddProvider(pool, L"", path.c_str(), L"SYSDBA", L"");
    Require(made.provider != nullptr, "provider");
    LxPacket* packet = provider_AddPacket(made.provider, L"P");
    Require(packet != nullptr, "packet");
    LxFolder* root = packet_GetRootFolder(packet);
    LxFolder* f = folder_AddChildFolder(root, L"F");
    LxFolder* g = f ? folder_AddChildFolder(f, L"G") : nullptr;
    Require(g != nullptr, "folders");
    for (const auto& [folder, id] : {std::pair{root, L"R"}, {f, L"A"}, {f, L"B"}, {g, L"C"}})
      Require(table_AddStdSize(folder_GetTable(folder), id) != nullptr, "size");
    made.sql = new lxtest::CatalogSql(L"", path, L"SYSDBA", L"");
    made.sql->Execute(
        L"INSERT INTO SPECIFICATION (IDOBJECT, STYLENUMBER, FIRSTPART, SECONDPART, LIBNAME) "
        L"SELECT ID, 1, 2, 3, 'seed' FROM OBJECT");
    made.sql->Execute(
        L"INSERT INTO SPECIFICATIONCOLUMN (SPECIFICATIONID, COLNUMBER, FORMULA) SELECT ID, 1, '{A1}' FROM "
        L"SPECIFICATION");
    return made;
  }();
  return catalog;
}

// Every specification row and column, ids included, as one list.
std::vector<std::wstring> Specifications(lxtest::CatalogSql& sql) {
  std::vector<std::wstring> rows = sql.Texts(
      L"SELECT ID || '|' || IDOBJECT || '|' || STYLENUMBER || '|' || FIRSTPART || '|' || SECONDPART || '|' || "
      L"LIBNAME FROM SPECIFICATION ORDER BY ID");
  for (std::wstring& column : sql.Texts(L"SELECT ID || '|' || SPECIFICATIONID || '|' || COLNUMBER || '|' || "
                                        L"FORMULA FROM SPECIFICATIONCOLUMN ORDER BY ID"))
    rows.push_back(std::move(column));
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Catalog& catalog = TheCatalog();
  const std::wstring document = Utf8ToWide(std::string_view(reinterpret_cast<const char*>(data), size));
  const std::vector<std::wstring> before = Specifications(*catalog.sql);
  const bool ran = provider_RunCommand(catalog.provider, document.c_str());
  if (!ran && Specifications(*catalog.sql) != before) {
    std::fprintf(stderr, "a document that failed left a change behind\n");
    std::abort();
  }
  return 0;
}
