// The operation scope and the writing pattern against a real catalog: one
// attachment and one transaction per scope, nothing left behind, a write
// whole or absent, the transaction kind, text in code page 1251 and blobs in
// segments.
#include "StorageTestOperation.h"
#include "TestCatalog.h"

#include "platform/TextCodec.h"
#include "storage/ibpp/Exception.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <stdexcept>
#include <utility>

namespace {

using lxtest::TestCatalog;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::Contains;

TEST(OperationScope, EachScopeAttachesAndDetachesAgain) {
  TestCatalog catalog;
  std::int32_t first = 0;
  {
    StorageTestOperation scope(catalog.Provider());
    first = scope.CurrentAttachment();
    EXPECT_THAT(scope.UserAttachments(), ElementsAre(first));
  }
  std::int32_t second = 0;
  {
    StorageTestOperation scope(catalog.Provider());
    second = scope.CurrentAttachment();
    EXPECT_NE(second, first);
    EXPECT_THAT(scope.UserAttachments(), ElementsAre(second));
  }
  StorageTestOperation observer(catalog.Provider());
  const std::int32_t third = observer.CurrentAttachment();
  EXPECT_THAT(observer.UserAttachments(), ElementsAre(third));
  EXPECT_THAT(observer.UserAttachments(), Not(Contains(second)));
}

TEST(OperationScope, MovedFromScopeLeavesTheAttachmentToItsNewOwner) {
  TestCatalog catalog;
  std::int32_t attachment = 0;
  auto moved = [&] {
    StorageTestOperation original(catalog.Provider());
    attachment = original.CurrentAttachment();
    return StorageTestOperation(std::move(original));
  }();
  // original has ended by now; had it detached, this would fail.
  EXPECT_EQ(moved.CurrentAttachment(), attachment);
  EXPECT_THAT(moved.UserAttachments(), ElementsAre(attachment));
}

TEST(OperationScope, ConstructionFailsWithTheClientLibrarysText) {
  TestCatalog catalog;
  CDataProvider missing(catalog.Provider()->GetServerName(), Utf8ToWide(catalog.File().string() + ".missing"),
                        catalog.Provider()->GetUserName(), catalog.Provider()->GetPassword());
  try {
    StorageTestOperation scope(&missing);
    FAIL() << "attached to a file that does not exist";
  } catch (const IBPP::Exception& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("\"" + catalog.File().string() + ".missing\""));
    EXPECT_THAT(failure.what(), HasSubstr("Error while trying to open file"));
  }
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
  EXPECT_EQ(StorageTestOperation(&cyrillic).CountFolders(), 0);
  std::filesystem::remove_all(folder);
}

TEST(OperationScope, WrongPasswordFailsWithTheServersText) {
  if (!TestCatalog::ThroughServer()) GTEST_SKIP() << "the embedded engine ignores passwords";
  TestCatalog catalog;
  const auto wrong = catalog.ProviderWithPassword(L"not-the-password");
  try {
    StorageTestOperation scope(wrong.get());
    FAIL() << "attached with a wrong password";
  } catch (const IBPP::Exception& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("Your user name and password are not defined"));
  }
  StorageTestOperation scope(catalog.Provider());
  EXPECT_EQ(scope.CountFolders(), 0);
}

TEST(WritingOperation, CommittedWriteIsSeenByTheNextScope) {
  TestCatalog catalog;
  StorageTestOperation(catalog.Provider()).AddTwoFolders(L"first", L"second", [] {});
  EXPECT_EQ(StorageTestOperation(catalog.Provider()).CountFolders(), 2);
}

TEST(WritingOperation, ExceptionBetweenTwoStatementsLeavesNeither) {
  TestCatalog catalog;
  {
    StorageTestOperation scope(catalog.Provider());
    EXPECT_THROW(scope.AddTwoFolders(L"first", L"second", [] { throw std::runtime_error("between"); }),
                 std::runtime_error);
    // The same scope sees nothing either: the guard rolled back at once.
    EXPECT_EQ(scope.CountFolders(), 0);
  }
  EXPECT_EQ(StorageTestOperation(catalog.Provider()).CountFolders(), 0);
}

TEST(WritingOperation, DatabaseFailureInTheSecondStatementLeavesNeither) {
  TestCatalog catalog;
  try {
    StorageTestOperation(catalog.Provider()).AddFolderThenOrphan(L"first");
    FAIL() << "a child of a missing folder was accepted";
  } catch (const IBPP::Exception& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("FOLDER_NOT_FOUND"));
  }
  EXPECT_EQ(StorageTestOperation(catalog.Provider()).CountFolders(), 0);
}

TEST(WritingOperation, ScopeGoesOnAfterACommit) {
  TestCatalog catalog;
  std::int32_t first = 0, second = 0;
  {
    StorageTestOperation scope(catalog.Provider());
    first = scope.AddValue(1, std::nullopt, std::nullopt);
    second = scope.AddValue(2, std::nullopt, std::nullopt);
  }
  StorageTestOperation reader(catalog.Provider());
  EXPECT_EQ(reader.ReadValue(first).integer, 1);
  EXPECT_EQ(reader.ReadValue(second).integer, 2);
}

TEST(WritingOperation, UncommittedWorkEndsWithTheScope) {
  TestCatalog catalog;
  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddCommittedFolder(L"kept");
  StorageTestOperation(catalog.Provider()).RenameFolderUncommitted(id, L"lost");
  EXPECT_EQ(StorageTestOperation(catalog.Provider()).FolderName(id), L"kept");
}

// Write access, read committed without record versions, no wait: a row that
// another scope changed and has not committed can be neither changed nor
// read, and the refusal comes at once.
TEST(TransactionKind, RowChangedByAnotherScopeFailsAtOnce) {
  TestCatalog catalog;
  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddCommittedFolder(L"shared");
  StorageTestOperation holder(catalog.Provider());
  holder.RenameFolderUncommitted(id, L"held");

  StorageTestOperation other(catalog.Provider());
  EXPECT_THROW(other.RenameFolderUncommitted(id, L"other"), IBPP::Exception);
  EXPECT_THROW(other.FolderName(id), IBPP::Exception);
}

TEST(DatabaseText, CharacterOutsideCodePage1251IsTheOnlyOneLost) {
  TestCatalog catalog;
  const std::int32_t id =
      StorageTestOperation(catalog.Provider()).AddValue(std::nullopt, std::nullopt, L"Отвод 90\u00B0 \u2211 Ду100");
  StorageTestOperation reader(catalog.Provider());
  EXPECT_EQ(reader.ReadValue(id).text, L"Отвод 90\u00B0  Ду100");
  // Stored as code page 1251 bytes, one per character.
  EXPECT_EQ(reader.ReadValueBytes(id), "\xCE\xF2\xE2\xEE\xE4 90\xB0  \xC4\xF3" "100");
}

TEST(DatabaseText, NullColumnsReadAsZeroZeroAndEmpty) {
  TestCatalog catalog;
  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddValue(std::nullopt, std::nullopt, std::nullopt);
  StorageTestOperation reader(catalog.Provider());
  for (const auto& value : {reader.ReadValue(id), reader.ReadValueByName(id)}) {
    EXPECT_TRUE(value.integerNull);
    EXPECT_TRUE(value.realNull);
    EXPECT_TRUE(value.textNull);
    EXPECT_EQ(value.integer, 0);
    EXPECT_EQ(value.real, 0.0);
    EXPECT_EQ(value.text, L"");
  }
}

TEST(DatabaseText, ValuesReadBackByNumberAndByName) {
  TestCatalog catalog;
  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddValue(-42, 2.5, L"Ширина");
  StorageTestOperation reader(catalog.Provider());
  for (const auto& value : {reader.ReadValue(id), reader.ReadValueByName(id)}) {
    EXPECT_FALSE(value.integerNull);
    EXPECT_FALSE(value.realNull);
    EXPECT_FALSE(value.textNull);
    EXPECT_EQ(value.integer, -42);
    EXPECT_EQ(value.real, 2.5);
    EXPECT_EQ(value.text, L"Ширина");
  }
}

TEST(BlobTransfer, BlobOverOneSegmentRoundTripsInSeveralSegments) {
  TestCatalog catalog;
  std::vector<unsigned char> model(100000);
  std::mt19937 generator(7);
  for (auto& byte : model) byte = static_cast<unsigned char>(generator());

  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddModel(model);
  StorageTestOperation reader(catalog.Provider());
  const auto shape = reader.ModelShape(id);
  EXPECT_EQ(shape.total, 100000);
  EXPECT_EQ(shape.largestSegment, 32767);
  EXPECT_EQ(shape.segments, 4);  // 3 x 32767 + 1699
  EXPECT_EQ(reader.ReadModel(id), model);
}

TEST(BlobTransfer, BlobOfExactlyOneSegmentStaysOne) {
  TestCatalog catalog;
  const std::vector<unsigned char> model(32767, 0x5A);
  const std::int32_t id = StorageTestOperation(catalog.Provider()).AddModel(model);
  StorageTestOperation reader(catalog.Provider());
  EXPECT_EQ(reader.ModelShape(id).segments, 1);
  EXPECT_EQ(reader.ReadModel(id), model);
}

}  // namespace
