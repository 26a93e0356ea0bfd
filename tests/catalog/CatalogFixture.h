// The catalog fixtures. CatalogFixture: a test with a catalog of its own, a
// new file written by lxCreateEmptyFDB, a pool of its own, and a provider
// attached through pool_AddProvider. TableFixture adds the packet "Пакет",
// whose root folder has the child "Болты", reached through the interface,
// and helpers that lay out the shapes the interface cannot make (templates
// with common values, several sizes per template, formulas) as SQL, read
// rows back, and come back to the same objects after a reload, since a
// reload destroys every handle below the provider.
//
// Embedded by default (a private folder, one file per test, since only one
// process may open a file embedded). With LX_TEST_SERVER set (see
// tests/storage/with-server.sh) the file goes to LX_TEST_DB_DIR and is opened
// through that server as LX_TEST_USER with LX_TEST_PASSWORD.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "CatalogSql.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "TempDir.h"

namespace lxtest {

using Texts = std::vector<std::wstring>;

// A wide path as the file system's path.
std::filesystem::path Path(const std::wstring& path);
// A text as an SQL string literal.
std::wstring Quoted(const std::wstring& text);

struct Connection {
  std::wstring server;
  std::wstring user;
  std::wstring password;
  static Connection FromEnvironment();
};

class CatalogFixture : public ::testing::Test {
 protected:
  CatalogFixture();
  ~CatalogFixture() override;

  // Writes a new empty catalog file and returns its path.
  std::wstring NewCatalogFile(const std::string& name);
  // Attaches the file as a provider of this test's pool (null on failure).
  LxDataProvider* Attach(const std::wstring& file);
  // SQL on this test's catalog.
  CatalogSql& Sql() { return *sql_; }
  // Reloads this test's catalog.
  bool Reload() { return lxReloadProvider(connection_.server.c_str(), database_.c_str()); }
  // The child with exactly this name; fails the test if there is none.
  static LxFolder* ChildNamed(LxFolder* parent, const std::wstring& name);
  // The number of rows of the table (and condition).
  std::int32_t Count(const std::wstring& table) { return Sql().Int(L"SELECT COUNT(*) FROM " + table); }
  // The stored id of the folder with this name.
  std::int32_t FolderId(const std::wstring& name);
  // Runs `action` while the catalog file is moved away, so that any database
  // work in it fails; gives what Captured gives.
  template <typename Action>
  auto WithoutDatabase(Action&& action);

  Connection connection_;
  std::wstring database_;
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;

 private:
  TempDir folder_;
  std::unique_ptr<CatalogSql> sql_;
};

// One OBJECTATTRIBUTE row as CREATE_OBJ_ATTR makes it. `values` are the
// procedure's last three arguments (IVAL, DVAL, SVAL) as SQL; a row without
// any keeps CONCRETEVALUEID null, so the load gives it its type's default.
struct AttributeRow {
  std::int32_t number;
  std::int32_t type;
  std::wstring name;
  std::wstring description;
  std::wstring values = L"NULL, NULL, NULL";
  std::wstring formula{};
  std::wstring measure{};
  std::wstring varName{};
  std::int32_t oldNumber = 0;
};

class TableFixture : public CatalogFixture {
 protected:
  static constexpr const wchar_t* kPacket = L"Пакет";
  static constexpr const wchar_t* kFolder = L"Болты";

  void SetUp() override;

  // SQL for one OBJECT row (a template) of this packet; `model` is SQL too.
  std::wstring TemplateRow(std::int32_t id, const std::wstring& name, std::int32_t folderId,
                           std::int32_t objectType = 1, std::int32_t representation = 4,
                           const std::wstring& model = L"NULL") const;
  static std::wstring SizeRow(std::int32_t id, std::int32_t templateId, const std::wstring& identifier);
  static std::wstring AttributeRowSql(std::int32_t templateId, const AttributeRow& row);
  // An own value of a size: `values` as in AttributeRow.
  static std::wstring SizeValueSql(std::int32_t number, std::int32_t sizeId, const std::wstring& values);

  // A folder "Гайки" beside "Болты" with template 900 "Гайка", its size
  // "Г1" and this one column, with an own value of "Г1" unless `ownValue`
  // is empty. Gives the folder's id.
  std::int32_t LayNuts(const AttributeRow& column, const std::wstring& ownValue = L"");
  // The names of the templates of the folder, by id.
  Texts StoredTemplateNames(std::int32_t folderId);

  // Reloads the provider and walks again to packet_, root_, folder_, table_.
  void ReloadAndWalk();
  // The column of this exact name in table_ (null if none), found by walking
  // the columns, so that it does not depend on table_FindAttribute.
  LxAttribute* Column(const std::wstring& name) const { return ColumnOf(table_, name); }
  static LxAttribute* ColumnOf(LxFolderTable* table, const std::wstring& name);
  LxStdSize* Size(const std::wstring& identifier) const { return table_FindStdSize(table_, identifier.c_str()); }
  // Column names of a table in table_GetAttribute order.
  static std::vector<std::wstring> ColumnNames(LxFolderTable* table);
  // Identifiers of a table's sizes in table_GetStdSize order.
  static std::vector<std::wstring> SizeIds(LxFolderTable* table);
  // Names of the records of a size's template, in their order.
  static std::vector<std::wstring> RecordNames(LxStdSize* size);

  // What stdsize_GetValue shows: Described, or "-" for false.
  static std::wstring Shown(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format = nullptr);
  // A view as "i:10", "d:2.5", "s:text" or "e", with a note when a number
  // has a length, a text no terminating NUL, or an empty view any payload.
  static std::wstring Described(const ValueView& view);

  // `expression` over `oa` (OBJECTATTRIBUTE), `an` (its ATTRIBUTENAME) and
  // `ad` (its ATTRIBUTEDESCRIPTION) for the row of this number in every
  // template of the folder, by template id; a null shows as "<null>".
  std::vector<std::wstring> Stored(std::int32_t folderId, std::int32_t number, const std::wstring& expression);
  // Every field of the attribute rows that `condition` (over `oa` and its
  // template `o`) picks, as "NUMBER|OLD_NUMBER|ATTRTYPE|NAME|DESCRIPTION|
  // MEASURE|VARNAME|FORMULA", by template and number.
  Texts StoredColumns(const std::wstring& condition);
  // Own values of the sizes for the attribute rows of this number in the
  // folder, as "identifier=INTVAL|DOUBLEVAL|STRVAL", by identifier.
  std::vector<std::wstring> StoredSizeValues(std::int32_t folderId, std::int32_t number);

  LxPacket* packet_ = nullptr;
  LxFolder* root_ = nullptr;
  LxFolder* folder_ = nullptr;
  LxFolderTable* table_ = nullptr;
  std::int32_t packetId_ = 0;
  std::int32_t folderId_ = 0;
};

template <typename Action>
auto CatalogFixture::WithoutDatabase(Action&& action) {
  const std::filesystem::path file = Path(database_);
  const std::filesystem::path away = Path(database_ + L".away");
  std::filesystem::rename(file, away);
  struct Back {
    std::filesystem::path from, to;
    ~Back() { std::filesystem::rename(from, to); }
  } back{away, file};
  return Captured(action);
}

}  // namespace lxtest
