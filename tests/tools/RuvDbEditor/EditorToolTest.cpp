// RuvDbEditor.exe run directly, as the library runs it: its command lines,
// exit codes and one-line reasons, and what each option does to a real
// catalog: the rebuild through backup and restore, the on-disk structure
// check, the read-only state and the schema update.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "ChildProcess.h"
#include "TestCatalog.h"
#include "TempDir.h"
#include "storage/ibpp/IBPP.h"

namespace {

using lxtest::ChildResult;
using lxtest::EmbeddedCatalog;
using lxtest::Backslashed;
using lxtest::RunChild;

ChildResult Tool(const std::vector<std::string>& arguments) {
  return RunChild(lxtest::BesideThisProgram("RuvDbEditor.exe"), arguments);
}

ino_t Inode(const std::filesystem::path& file) {
  struct stat info {};
  stat(file.c_str(), &info);
  return info.st_ino;
}

std::vector<std::string> FolderContents(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

void ExpectSuccess(const ChildResult& run) {
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "");
}

void ExpectOneLineFailure(const ChildResult& run, int exitCode = 1) {
  EXPECT_EQ(run.exitCode, exitCode);
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  EXPECT_EQ(run.err.back(), '\n');
  EXPECT_EQ(run.out, "");
}

// ---- command lines

class ToolCommandLine : public ::testing::TestWithParam<std::vector<std::string>> {};

TEST_P(ToolCommandLine, WithoutACommandPrintsUsageAndFails) {
  const ChildResult run = Tool(GetParam());
  ExpectOneLineFailure(run, 2);
  EXPECT_EQ(run.err.rfind("usage: RuvDbEditor.exe", 0), 0u) << run.err;
}

INSTANTIATE_TEST_SUITE_P(
    Refused, ToolCommandLine,
    ::testing::Values(std::vector<std::string>{}, std::vector<std::string>{"--bogus", "x.fdb"},
                      std::vector<std::string>{"--update-ods"}, std::vector<std::string>{"--update-ods", ""},
                      std::vector<std::string>{"--update-schema", "a.fdb", "b.fdb"},
                      std::vector<std::string>{"--set-database-readonly", "a.fdb"},
                      std::vector<std::string>{"--set-database-readonly", "a.fdb", "yes"},
                      std::vector<std::string>{"--update-ulb", "m.ulb", "true"},
                      std::vector<std::string>{"update-ods", "a.fdb"}));

// A file that is no database fails every command that opens one and is
// left as it was.
TEST(ToolOnAFileThatIsNoDatabase, EveryCommandFailsAndLeavesItAlone) {
  lxtest::TempDir folder;
  const std::filesystem::path file = folder.path() / "catalog.fdb";
  lxtest::WriteWhole(file, std::string(40000, 'z'));
  for (const char* command : {"--rebuild", "--update-ods", "--update-schema"}) {
    ExpectOneLineFailure(Tool({command, Backslashed(file)}));
  }
  ExpectOneLineFailure(Tool({"--set-database-readonly", Backslashed(file), "true"}));
  ExpectOneLineFailure(Tool({"--set-database-readonly", Backslashed(folder.path() / "missing.fdb"), "false"}));
  EXPECT_EQ(lxtest::ReadWhole(file), std::string(40000, 'z'));
  EXPECT_EQ(FolderContents(folder.path()), std::vector<std::string>{"catalog.fdb"});
}

// ---- --update-ulb

TEST(ToolModuleCheck, AReadableModuleIsConfirmedAndNotTouchedAnythingElseFails) {
  lxtest::TempDir folder;
  const std::filesystem::path module = folder.path() / "lib" / "Вентиляция.ulb";
  std::filesystem::create_directories(module.parent_path());
  lxtest::WriteWhole(module, "module bytes");
  const auto written = std::filesystem::last_write_time(module);
  ExpectSuccess(Tool({"--update-ulb", Backslashed(module)}));
  EXPECT_EQ(lxtest::ReadWhole(module), "module bytes");
  EXPECT_EQ(std::filesystem::last_write_time(module), written);
  // A missing module or a folder fails.
  ExpectOneLineFailure(Tool({"--update-ulb", Backslashed(folder.path() / "missing.ulb")}));
  ExpectOneLineFailure(Tool({"--update-ulb", Backslashed(folder.path())}));
}

// ---- --rebuild and --update-ods

// Not while another process holds the catalog: then it fails and leaves
// the file alone.
TEST(ToolRebuild, WritesANewFileWithTheSameContentModeAndState) {
  EmbeddedCatalog catalog;
  catalog.Sql().Execute(L"INSERT INTO FOLDER (NAME) VALUES ('Воздуховоды')");
  std::filesystem::permissions(catalog.File(), std::filesystem::perms(0640));
  const ino_t before = Inode(catalog.File());
  const std::vector<std::string> schema = catalog.Sql().Schema();
  {
    IBPP::Database holder("", catalog.File().string(), "SYSDBA", "", "", "", "");
    holder.Connect();
    ExpectOneLineFailure(Tool({"--rebuild", Backslashed(catalog.File())}));
    holder.Disconnect();
  }
  EXPECT_EQ(Inode(catalog.File()), before);
  EXPECT_EQ(FolderContents(catalog.Folder()), std::vector<std::string>{"catalog.fdb"});

  ExpectSuccess(Tool({"--rebuild", Backslashed(catalog.File())}));
  EXPECT_NE(Inode(catalog.File()), before);
  EXPECT_EQ(std::filesystem::status(catalog.File()).permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(catalog.Sql().Texts(L"SELECT NAME FROM FOLDER"), std::vector<std::wstring>{L"Воздуховоды"});
  EXPECT_EQ(catalog.Sql().Schema(), schema);
  EXPECT_EQ(catalog.Sql().Int(L"SELECT GEN_ID(GEN_PROJECTION_ID, 0) FROM RDB$DATABASE"), 6);
  EXPECT_EQ(FolderContents(catalog.Folder()), std::vector<std::string>{"catalog.fdb"});
}

// ---- --update-schema

// What a catalog of an older version lacks: the ORIENTATION column of MODEL,
// the four template tables with the columns and foreign keys that lead to
// them, a generator, procedures (one of them calling another), a trigger
// with the exception it raises, an index, and a table with its first row.
const std::initializer_list<std::wstring> kOlderCatalog{
    L"ALTER TABLE OBJECT DROP CONSTRAINT INTEG_81",
    L"ALTER TABLE OBJECTATTRIBUTE DROP CONSTRAINT INTEG_82",
    L"DROP TABLE TEMPLATEATTRIBUTE",
    L"DROP TABLE TEMPLATEGROUP",
    L"DROP TABLE TEMPLATE",
    L"DROP TABLE ATTRIBUTEGROUP",
    L"DROP GENERATOR GEN_TEMPLATE_ID",
    L"ALTER TABLE OBJECT DROP TEMPLATEID",
    L"ALTER TABLE OBJECTATTRIBUTE DROP ATTRIBUTEGROUPID",
    L"ALTER TABLE MODEL DROP ORIENTATION",
    L"DROP PROCEDURE INSERT_ADDITIONALFILE",
    L"DROP PROCEDURE CREATE_OBJ_ATTR",
    L"DROP PROCEDURE GET_ATTR_DESCR",
    L"DROP TRIGGER TR_PROJECTION_STD_MODIFY",
    L"DROP EXCEPTION UNABLE_CHANGE_STD_PROJECTION",
    L"DROP INDEX CONCRETEVALUE_STR",
    L"DROP TABLE INFO",
};

// The engine here writes the structure the empty catalog has, so a catalog
// of ours is current and is not rewritten; nor does its schema change.
TEST(ToolSchemaUpdate, AnUpToDateCatalogIsNotChanged) {
  EmbeddedCatalog catalog;
  const ino_t before = Inode(catalog.File());
  ExpectSuccess(Tool({"--update-ods", Backslashed(catalog.File())}));
  EXPECT_EQ(Inode(catalog.File()), before);
  EXPECT_EQ(FolderContents(catalog.Folder()), std::vector<std::string>{"catalog.fdb"});

  const std::vector<std::string> schema = catalog.Sql().Schema();
  const std::int32_t nameCounter = catalog.Sql().Int(L"SELECT GEN_ID(RDB$CONSTRAINT_NAME, 0) FROM RDB$DATABASE");
  ExpectSuccess(Tool({"--update-schema", Backslashed(catalog.File())}));
  EXPECT_EQ(catalog.Sql().Schema(), schema);
  EXPECT_EQ(catalog.Sql().Int(L"SELECT GEN_ID(RDB$CONSTRAINT_NAME, 0) FROM RDB$DATABASE"), nameCounter);
  EXPECT_EQ(catalog.Sql().Int(L"SELECT COUNT(*) FROM PROJECTION"), 6);
}

TEST(ToolSchemaUpdate, AnOlderCatalogGetsEverythingItLacksAndKeepsItsRows) {
  EmbeddedCatalog catalog;
  const std::vector<std::string> schema = catalog.Sql().Schema();
  catalog.Sql().Execute(L"INSERT INTO FOLDER (NAME) VALUES ('Старый каталог')");
  // Emptied tables get their first rows back; generators only rise.
  catalog.Sql().Execute({L"DELETE FROM OBJECTTYPE", L"UPDATE BASE_PARAM SET VAL = '7' WHERE NAME = 'VERSION'",
                         L"SET GENERATOR GEN_PROJECTION_ID TO 100", L"SET GENERATOR GEN_REPRESENTATION_ID TO 0"});
  // DDL takes effect at commit; each statement on its own keeps the drops
  // from depending on one another inside one transaction.
  for (const std::wstring& statement : kOlderCatalog) catalog.Sql().Execute(statement);
  ASSERT_NE(catalog.Sql().Schema(), schema);

  ExpectSuccess(Tool({"--update-schema", Backslashed(catalog.File())}));
  EXPECT_EQ(catalog.Sql().Schema(), schema);
  EXPECT_EQ(catalog.Sql().Texts(L"SELECT NAME FROM FOLDER"), std::vector<std::wstring>{L"Старый каталог"});
  EXPECT_EQ(catalog.Sql().Texts(L"SELECT PARAMETER_NAME || '=' || PARAMETER_VALUE FROM INFO"),
            std::vector<std::wstring>{L"version=11"});
  // What came back works: a procedure runs, the template table draws its
  // ids, the trigger raises its exception.
  catalog.Sql().Execute(L"EXECUTE PROCEDURE GET_ATTR_DESCR('Длина')");
  EXPECT_EQ(catalog.Sql().Int(L"SELECT COUNT(*) FROM ATTRIBUTEDESCRIPTION WHERE DESCRIPTION = 'Длина'"), 1);
  catalog.Sql().Execute(L"INSERT INTO TEMPLATE (NAME) VALUES ('Шаблон')");
  EXPECT_EQ(catalog.Sql().Int(L"SELECT ID FROM TEMPLATE"), 1);
  EXPECT_THROW(catalog.Sql().Execute(L"DELETE FROM PROJECTION WHERE ID = 1"), IBPP::Exception);
  EXPECT_EQ(catalog.Sql().Texts(L"SELECT SVAL FROM OBJECTTYPE ORDER BY ID"),
            (std::vector<std::wstring>{L"SEGMENT", L"VENTBOX", L"ELEMENT"}));
  EXPECT_EQ(catalog.Sql().Texts(L"SELECT VAL FROM BASE_PARAM"), std::vector<std::wstring>{L"7"});
  EXPECT_EQ(catalog.Sql().Int(L"SELECT GEN_ID(GEN_PROJECTION_ID, 0) FROM RDB$DATABASE"), 100);
  EXPECT_EQ(catalog.Sql().Int(L"SELECT GEN_ID(GEN_REPRESENTATION_ID, 0) FROM RDB$DATABASE"), 4);
}

TEST(ToolSchemaUpdate, OneFailingChangeLeavesTheCatalogAsItWas) {
  EmbeddedCatalog catalog;
  catalog.Sql().Execute(L"ALTER TABLE MODEL DROP ORIENTATION");
  catalog.Sql().Execute(L"ALTER TABLE PROJECTION DROP CONSTRAINT UNQ_PROJECTION_1");
  catalog.Sql().Execute({L"INSERT INTO PROJECTION (ID, NAME) VALUES (7, 'дважды')",
                         L"INSERT INTO PROJECTION (ID, NAME) VALUES (8, 'дважды')"});
  const std::vector<std::string> before = catalog.Sql().Schema();

  // MODEL comes before PROJECTION in the script: its column is added first,
  // then the unique key fails on the duplicate names.
  const ChildResult run = Tool({"--update-schema", Backslashed(catalog.File())});
  ExpectOneLineFailure(run);
  EXPECT_NE(run.err.find("UNQ_PROJECTION_1"), std::string::npos) << run.err;
  EXPECT_EQ(catalog.Sql().Schema(), before);
}

// --set-database-readonly sets and clears the state under any path; on a
// read-only catalog a rebuild keeps the state, and a schema update that
// finds nothing to do needs no write; one that has work fails.
TEST(ToolOnAReadOnlyCatalog, RebuildKeepsTheStateAndOnlyANeededUpdateFails) {
  EmbeddedCatalog catalog("Каталоги с пробелом");
  ExpectSuccess(Tool({"--set-database-readonly", Backslashed(catalog.File()), "true"}));
  EXPECT_THROW(catalog.Sql().Execute(L"INSERT INTO FOLDER (NAME) VALUES ('нельзя')"), IBPP::Exception);
  ExpectSuccess(Tool({"--rebuild", Backslashed(catalog.File())}));
  EXPECT_EQ(catalog.Sql().Int(L"SELECT MON$READ_ONLY FROM MON$DATABASE"), 1);
  ExpectSuccess(Tool({"--update-schema", Backslashed(catalog.File())}));

  ExpectSuccess(Tool({"--set-database-readonly", catalog.File().string(), "false"}));
  EXPECT_EQ(catalog.Sql().Int(L"SELECT MON$READ_ONLY FROM MON$DATABASE"), 0);
  catalog.Sql().Execute(L"ALTER TABLE MODEL DROP ORIENTATION");
  ExpectSuccess(Tool({"--set-database-readonly", Backslashed(catalog.File()), "true"}));
  ExpectOneLineFailure(Tool({"--update-schema", Backslashed(catalog.File())}));
}

}  // namespace
