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
#include <optional>
#include <random>
#include <stdexcept>
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

// A CONCRETEVALUE row with this text, written through a parameter; no text
// is NULL.
std::int32_t AddText(SqlScope& scope, const std::optional<std::wstring>& text) {
  IBPP::Statement statement = scope.NewStatement();
  statement.Prepare("INSERT INTO CONCRETEVALUE (STRVAL) VALUES (?) RETURNING ID");
  text ? SetDbText(statement, 1, *text) : statement.SetNull(1);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get(1, id);
  return id;
}

// Whether the row's text is null, and the text, read by column number and
// then by name; over a sentinel, so that a null must be written over.
using TextRead = std::pair<bool, std::wstring>;
std::vector<TextRead> ReadText(SqlScope& scope, std::int32_t id) {
  IBPP::Statement statement = scope.NewStatement();
  statement.Prepare("SELECT ID, STRVAL FROM CONCRETEVALUE WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  if (!statement.Fetch()) throw std::runtime_error("no such value row");
  TextRead byNumber{false, L"sentinel"};
  TextRead byName{false, L"sentinel"};
  byNumber.first = GetDbText(statement, 2, byNumber.second);
  byName.first = GetDbText(statement, "STRVAL", byName.second);
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

TEST(WritingOperation, ExceptionBeforeTheCommitLeavesNothing) {
  TestCatalog catalog;
  {
    SqlScope scope(catalog.Provider());
    EXPECT_THROW(
        {
          CommitGuard writing(scope);
          scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('first')");
          throw std::runtime_error("before the commit");
        },
        std::runtime_error);
    // The same scope sees nothing either: the guard rolled back at once.
    EXPECT_EQ(scope.Int(L"SELECT COUNT(*) FROM FOLDER"), 0);
  }
  EXPECT_EQ(Folders(catalog.Provider()), 0);
}

TEST(WritingOperation, ScopeGoesOnAfterACommit) {
  TestCatalog catalog;
  {
    SqlScope scope(catalog.Provider());
    scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('first')");
    scope.Commit();
    scope.Run(L"INSERT INTO FOLDER (NAME) VALUES ('second')");
    scope.Commit();
  }
  EXPECT_EQ(Folders(catalog.Provider()), 2);
}

// Write access, read committed without record versions, no wait: a row that
// another scope changed and has not committed can be neither changed nor
// read, and the refusal comes at once. The change ends with its scope.
TEST(TransactionKind, RowChangedByAnotherScopeFailsAtOnce) {
  TestCatalog catalog;
  lxtest::CatalogSql(*catalog.Provider()).Execute(L"INSERT INTO FOLDER (ID, NAME) VALUES (1, 'shared')");
  {
    SqlScope holder(catalog.Provider());
    holder.Run(L"UPDATE FOLDER SET NAME = 'held'");
    SqlScope other(catalog.Provider());
    EXPECT_THROW(other.Run(L"UPDATE FOLDER SET NAME = 'other'"), IBPP::Exception);
    EXPECT_THROW(other.Texts(L"SELECT NAME FROM FOLDER"), IBPP::Exception);
  }
  EXPECT_THAT(SqlScope(catalog.Provider()).Texts(L"SELECT NAME FROM FOLDER"), ElementsAre(L"shared"));
}

TEST(DatabaseText, CharacterOutsideCodePage1251IsTheOnlyOneLost) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  const std::int32_t id = AddText(scope, L"Отвод 90\u00B0 \u2211 Ду100");
  EXPECT_EQ(ReadText(scope, id)[0].second, L"Отвод 90\u00B0  Ду100");
  // Stored as code page 1251 bytes, one per character.
  IBPP::Statement statement = scope.NewStatement();
  statement.Execute("SELECT STRVAL FROM CONCRETEVALUE");
  ASSERT_TRUE(statement.Fetch());
  std::string bytes;
  statement.Get(1, bytes);
  EXPECT_EQ(bytes, "\xCE\xF2\xE2\xEE\xE4 90\xB0  \xC4\xF3" "100");

  // Read by column number and by name; a null reads as empty. Numbers and
  // their nulls are the client layer's alone (IbppTest).
  EXPECT_EQ(ReadText(scope, AddText(scope, L"Ширина")), (std::vector<TextRead>{{false, L"Ширина"}, {false, L"Ширина"}}));
  EXPECT_EQ(ReadText(scope, AddText(scope, std::nullopt)), (std::vector<TextRead>{{true, L""}, {true, L""}}));
}

TEST(DatabaseText, EveryStoredByteReadsAsItsCodePage1251CharacterAndTheUndefinedOneIsDropped) {
  TestCatalog catalog;
  SqlScope scope(catalog.Provider());
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  IBPP::Statement statement = scope.NewStatement();
  statement.Prepare("INSERT INTO CONCRETEVALUE (STRVAL) VALUES (?) RETURNING ID");
  statement.Set(1, std::string_view(bytes));
  statement.Execute();
  std::int32_t id = 0;
  statement.Get(1, id);

  const std::vector<TextRead> read = ReadText(scope, id);
  for (const auto& [isNull, text] : read) {
    EXPECT_FALSE(isNull);
    ASSERT_EQ(text.size(), 254u) << "only 0x98 has no character";
    EXPECT_EQ(text, Cp1251ToWide(bytes));
    EXPECT_EQ(text[0x41 - 1], L'A');
    EXPECT_EQ(text[0x88 - 1], L'\u20AC');   // euro sign
    EXPECT_EQ(text[0x99 - 2], L'\u2122');   // trade mark, behind the dropped byte
    EXPECT_EQ(text[0xC0 - 2], L'\u0410');   // А
    EXPECT_EQ(text[0xFF - 2], L'\u044F');   // я
  }
  // Back through the text parameter, the same bytes.
  EXPECT_EQ(ReadText(scope, AddText(scope, read[0].second))[0].second, read[0].second);
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
