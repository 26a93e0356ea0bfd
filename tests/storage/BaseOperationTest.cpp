// The operation scope and the writing pattern against a real catalog: one
// attachment and one transaction per scope, nothing left behind, a write
// whole or absent, the transaction kind, text in code page 1251 and blobs in
// segments.
#include "CatalogSql.h"
#include "TestCatalog.h"

#include "platform/TextCodec.h"
#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/ibpp/Exception.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace {

using lxtest::SqlScope;
using lxtest::TestCatalog;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::int32_t Attachment(SqlScope& scope) { return scope.Int(L"SELECT CURRENT_CONNECTION FROM RDB$DATABASE"); }

// Attachments of users (not the engine's own workers) to the database.
std::vector<std::wstring> UserAttachments(SqlScope& scope) {
  return scope.Texts(L"SELECT MON$ATTACHMENT_ID || '' FROM MON$ATTACHMENTS WHERE MON$SYSTEM_FLAG = 0 ORDER BY 1");
}

std::int32_t Folders(CDataProvider* catalog) { return SqlScope(catalog).Int(L"SELECT COUNT(*) FROM FOLDER"); }

// Two root folders in one committed write; between runs between them.
void AddTwoFolders(SqlScope& scope, const std::function<void()>& between) {
  CommitGuard writing(scope);
  scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('first')");
  between();
  scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('second')");
  writing.Commit();
}

// One committed CONCRETEVALUE row through parameters; an empty optional is
// NULL.
std::int32_t AddValue(SqlScope& scope, std::optional<std::int32_t> integer, std::optional<double> real,
                      std::optional<std::wstring> text) {
  CommitGuard writing(scope);
  IBPP::Statement statement = scope.NewStatement();
  statement.Prepare("INSERT INTO CONCRETEVALUE (INTVAL, DOUBLEVAL, STRVAL) VALUES (?, ?, ?) RETURNING ID");
  integer ? statement.Set(1, *integer) : statement.SetNull(1);
  real ? statement.Set(2, *real) : statement.SetNull(2);
  text ? SetDbText(statement, 3, *text) : statement.SetNull(3);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get("ID", id);
  writing.Commit();
  return id;
}

struct StoredValue {
  std::int32_t integer = -1;  // sentinels, so that a null must be written over
  double real = -1.0;
  std::wstring text = L"sentinel";
  bool integerNull = false, realNull = false, textNull = false;
};

// The row read by column number, then by column name.
std::vector<StoredValue> ReadValue(SqlScope& scope, std::int32_t id) {
  IBPP::Statement statement = scope.NewStatement();
  statement.Prepare("SELECT STRVAL, DOUBLEVAL, INTVAL FROM CONCRETEVALUE WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  if (!statement.Fetch()) throw std::runtime_error("no such value row");
  StoredValue byNumber, byName;
  byNumber.integerNull = statement.Get(3, byNumber.integer);
  byNumber.realNull = statement.Get(2, byNumber.real);
  byNumber.textNull = GetDbText(statement, 1, byNumber.text);
  byName.integerNull = statement.Get("INTVAL", byName.integer);
  byName.realNull = statement.Get("DOUBLEVAL", byName.real);
  byName.textNull = GetDbText(statement, "STRVAL", byName.text);
  return {byNumber, byName};
}

TEST(OperationScope, EachScopeAttachesAndDetachesAgain) {
  TestCatalog catalog;
  std::int32_t first = 0;
  {
    SqlScope scope(catalog.Provider());
    first = Attachment(scope);
    EXPECT_THAT(UserAttachments(scope), ElementsAre(std::to_wstring(first)));
  }
  SqlScope second(catalog.Provider());
  EXPECT_NE(Attachment(second), first);
  EXPECT_THAT(UserAttachments(second), ElementsAre(std::to_wstring(Attachment(second))));
}

TEST(OperationScope, MovedFromScopeLeavesTheAttachmentToItsNewOwner) {
  TestCatalog catalog;
  std::int32_t attachment = 0;
  auto moved = [&] {
    SqlScope original(catalog.Provider());
    attachment = Attachment(original);
    return SqlScope(std::move(original));
  }();
  // original has ended by now; had it detached, this would fail.
  EXPECT_EQ(Attachment(moved), attachment);
  EXPECT_THAT(UserAttachments(moved), ElementsAre(std::to_wstring(attachment)));
}

TEST(OperationScope, ConstructionFailsWithTheClientLibrarysText) {
  TestCatalog catalog;
  CDataProvider missing(catalog.Provider()->GetServerName(), Utf8ToWide(catalog.File().string() + ".missing"),
                        catalog.Provider()->GetUserName(), catalog.Provider()->GetPassword());
  EXPECT_THAT([&] { SqlScope scope(&missing); },
              ::testing::ThrowsMessage<IBPP::Exception>(::testing::AllOf(
                  HasSubstr("\"" + catalog.File().string() + ".missing\""), HasSubstr("Error while trying to open file"))));
}

TEST(OperationScope, PathWithCyrillicLettersAttaches) {
  TestCatalog catalog;
  const std::filesystem::path folder = catalog.File().parent_path() / u8"Каталоги вентиляции";
  std::filesystem::create_directory(folder);
  const std::filesystem::path file = folder / u8"Воздуховоды.fdb";
  std::filesystem::copy_file(catalog.File(), file);
  if (TestCatalog::ThroughServer())
    std::filesystem::permissions(file, std::filesystem::perms::group_read | std::filesystem::perms::group_write,
                                 std::filesystem::perm_options::add);
  CDataProvider cyrillic(catalog.Provider()->GetServerName(), Utf8ToWide(file.string()),
                         catalog.Provider()->GetUserName(), catalog.Provider()->GetPassword());
  EXPECT_EQ(Folders(&cyrillic), 0);
  std::filesystem::remove_all(folder);
}

TEST(OperationScope, WrongPasswordFailsWithTheServersText) {
  if (!TestCatalog::ThroughServer()) GTEST_SKIP() << "the embedded engine ignores passwords";
  TestCatalog catalog;
  const auto wrong = catalog.ProviderWithPassword(L"not-the-password");
  EXPECT_THAT([&] { SqlScope scope(wrong.get()); },
              ::testing::ThrowsMessage<IBPP::Exception>(HasSubstr("Your user name and password are not defined")));
  EXPECT_EQ(Folders(catalog.Provider()), 0);
}

TEST(WritingOperation, CommittedWriteIsSeenByTheNextScope) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  AddTwoFolders(scope, [] {});
  EXPECT_EQ(Folders(catalog.Provider()), 2);
}

TEST(WritingOperation, ExceptionBetweenTwoStatementsLeavesNeither) {
  TestCatalog catalog;
  {
    SqlScope scope(catalog.Provider());
    EXPECT_THROW(AddTwoFolders(scope, [] { throw std::runtime_error("between"); }), std::runtime_error);
    // The same scope sees nothing either: the guard rolled back at once.
    EXPECT_EQ(scope.Int(L"SELECT COUNT(*) FROM FOLDER"), 0);
  }
  EXPECT_EQ(Folders(catalog.Provider()), 0);
}

TEST(WritingOperation, DatabaseFailureInTheSecondStatementLeavesNeither) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  EXPECT_THAT([&] {
    CommitGuard writing(scope);
    scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('first')");
    scope.Run(L"INSERT INTO FOLDER (NAME, ID_PARENT) VALUES ('orphan', 999999)");
    writing.Commit();
  }, ::testing::ThrowsMessage<IBPP::Exception>(HasSubstr("FOLDER_NOT_FOUND")));
  EXPECT_EQ(Folders(catalog.Provider()), 0);
}

TEST(WritingOperation, ScopeGoesOnAfterACommit) {
  TestCatalog catalog;
  std::int32_t first = 0, second = 0;
  {
    SqlScope scope(catalog.Provider());
    first = AddValue(scope, 1, std::nullopt, std::nullopt);
    second = AddValue(scope, 2, std::nullopt, std::nullopt);
  }
  SqlScope reader(catalog.Provider());
  EXPECT_EQ(ReadValue(reader, first)[0].integer, 1);
  EXPECT_EQ(ReadValue(reader, second)[0].integer, 2);
}

TEST(WritingOperation, UncommittedWorkEndsWithTheScope) {
  TestCatalog catalog;
  lxtest::CatalogSql(*catalog.Provider()).Execute(L"INSERT INTO FOLDER (ID, NAME) VALUES (1, 'kept')");
  SqlScope(catalog.Provider()).Run(L"UPDATE FOLDER SET NAME = 'lost'");
  EXPECT_THAT(SqlScope(catalog.Provider()).Texts(L"SELECT NAME FROM FOLDER"), ElementsAre(L"kept"));
}

// Write access, read committed without record versions, no wait: a row that
// another scope changed and has not committed can be neither changed nor
// read, and the refusal comes at once.
TEST(TransactionKind, RowChangedByAnotherScopeFailsAtOnce) {
  TestCatalog catalog;
  lxtest::CatalogSql(*catalog.Provider()).Execute(L"INSERT INTO FOLDER (ID, NAME) VALUES (1, 'shared')");
  SqlScope holder(catalog.Provider());
  holder.Run(L"UPDATE FOLDER SET NAME = 'held'");

  SqlScope other(catalog.Provider());
  EXPECT_THROW(other.Run(L"UPDATE FOLDER SET NAME = 'other'"), IBPP::Exception);
  EXPECT_THROW(other.Texts(L"SELECT NAME FROM FOLDER"), IBPP::Exception);
}

TEST(DatabaseText, CharacterOutsideCodePage1251IsTheOnlyOneLost) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  const std::int32_t id = AddValue(scope, std::nullopt, std::nullopt, L"Отвод 90\u00B0 \u2211 Ду100");
  EXPECT_EQ(ReadValue(scope, id)[0].text, L"Отвод 90\u00B0  Ду100");
  // Stored as code page 1251 bytes, one per character.
  IBPP::Statement statement = scope.NewStatement();
  statement.Execute("SELECT STRVAL FROM CONCRETEVALUE");
  ASSERT_TRUE(statement.Fetch());
  std::string bytes;
  statement.Get(1, bytes);
  EXPECT_EQ(bytes, "\xCE\xF2\xE2\xEE\xE4 90\xB0  \xC4\xF3" "100");
}

// Read by column number and by name; a null reads as 0, 0.0 and empty.
TEST(DatabaseText, ValuesAndNullsReadBackByNumberAndByName) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  for (const StoredValue& value : ReadValue(scope, AddValue(scope, -42, 2.5, L"Ширина"))) {
    EXPECT_FALSE(value.integerNull || value.realNull || value.textNull);
    EXPECT_EQ(std::tie(value.integer, value.real, value.text), std::make_tuple(-42, 2.5, std::wstring(L"Ширина")));
  }
  for (const StoredValue& value : ReadValue(scope, AddValue(scope, std::nullopt, std::nullopt, std::nullopt))) {
    EXPECT_TRUE(value.integerNull && value.realNull && value.textNull);
    EXPECT_EQ(std::tie(value.integer, value.real, value.text), std::make_tuple(0, 0.0, std::wstring()));
  }
}

// A model written whole and read back whole, with the segments it has.
void ExpectModelRoundTrip(const std::vector<unsigned char>& model, int segments) {
  TestCatalog catalog;
  {
    SqlScope writer(catalog.Provider());
    CommitGuard writing(writer);
    IBPP::Blob blob = writer.NewBlob();
    WriteWholeBlob(blob, model);
    IBPP::Statement statement = writer.NewStatement();
    statement.Prepare("INSERT INTO MODEL (MODEL, THUMBNAIL, MODEL_VERSION) VALUES (?, x'010203', 1)");
    statement.Set(1, blob);
    statement.Execute();
    writing.Commit();
  }
  SqlScope reader(catalog.Provider());
  EXPECT_EQ(reader.Blob(L"SELECT MODEL FROM MODEL"), model);
  IBPP::Statement statement = reader.NewStatement();
  statement.Execute("SELECT MODEL FROM MODEL");
  ASSERT_TRUE(statement.Fetch());
  IBPP::Blob blob = reader.NewBlob();
  statement.Get(1, blob);
  blob.Open();
  int total = 0, largest = 0, count = 0;
  blob.Info(&total, &largest, &count);
  blob.Close();
  EXPECT_EQ(total, static_cast<int>(model.size()));
  EXPECT_EQ(largest, std::min<int>(model.size(), 32767));
  EXPECT_EQ(count, segments);
}

TEST(BlobTransfer, BlobOverOneSegmentRoundTripsInSeveralSegments) {
  std::vector<unsigned char> model(100000);
  std::mt19937 generator(7);
  for (auto& byte : model) byte = static_cast<unsigned char>(generator());
  ExpectModelRoundTrip(model, 4);  // 3 x 32767 + 1699
}

TEST(BlobTransfer, BlobOfExactlyOneSegmentStaysOne) { ExpectModelRoundTrip(std::vector<unsigned char>(32767, 0x5A), 1); }

}  // namespace
