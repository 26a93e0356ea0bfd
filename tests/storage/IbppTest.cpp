// The client layer on its own, against a real catalog: statements and their
// parameter and column conversions, the errors of misuse, blobs, and the
// text of IBPP::Exception. These tests drive IBPP directly, below the
// operation scope, so the SQL stands here.
#include "TestCatalog.h"

#include "platform/TextCodec.h"
#include "storage/ibpp/IBPP.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

using lxtest::TestCatalog;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// An attachment and a started transaction on the test's catalog.
class IbppTest : public ::testing::Test {
 protected:
  IbppTest()
      : database_(WideToUtf8(catalog_.Provider()->GetServerName()), catalog_.File().string(),
                  WideToUtf8(catalog_.Provider()->GetUserName()),
                  WideToUtf8(catalog_.Provider()->GetPassword()), "", "", ""),
        transaction_(database_) {
    database_.Connect();
    transaction_.Start();
  }

  IBPP::Statement NewStatement() { return IBPP::Statement(database_, transaction_); }

  TestCatalog catalog_;
  IBPP::Database database_;
  IBPP::Transaction transaction_;
};

TEST_F(IbppTest, SqlErrorCarriesTheWholeClientText) {
  auto statement = NewStatement();
  try {
    statement.Execute("SELEC 1 FROM RDB$DATABASE");
    FAIL() << "a misspelt statement was prepared";
  } catch (const IBPP::Exception& failure) {
    EXPECT_THAT(failure.what(), StartsWith("Dynamic SQL Error\n"));
    EXPECT_THAT(failure.what(), HasSubstr("Token unknown"));
    EXPECT_THAT(failure.what(), HasSubstr("SELEC"));
  }
}

TEST_F(IbppTest, ExecuteProcedureAndReturningGiveTheirRowWithoutFetch) {
  auto statement = NewStatement();
  statement.Prepare("EXECUTE PROCEDURE GET_ATTR_NAME(?)");
  statement.Set(1, std::string_view("Length"));
  statement.Execute();
  std::int32_t first = 0;
  EXPECT_FALSE(statement.Get("ID", first));
  EXPECT_GT(first, 0);
  statement.Execute();  // the same text again finds the same row
  std::int32_t again = 0;
  statement.Get(1, again);
  EXPECT_EQ(again, first);

  statement.Prepare("INSERT INTO ATTRIBUTEGROUP (NAME) VALUES (?) RETURNING ID");
  statement.Set(1, std::string_view("group"));
  statement.Execute();
  std::int32_t group = 0;
  EXPECT_FALSE(statement.Get("id", group));  // names ignore ASCII case
  EXPECT_EQ(group, 1);
  EXPECT_THROW(statement.Fetch(), IBPP::Exception);
}

TEST_F(IbppTest, OnePreparedTextRunsForSeveralKeysAndOutlivesACommit) {
  auto statement = NewStatement();
  statement.Prepare("SELECT NAME FROM PROJECTION WHERE ID >= ? ORDER BY ID");
  std::vector<std::size_t> rowsPerKey;
  for (std::int32_t key : {1, 4, 7}) {
    statement.Set(1, key);
    statement.Execute();
    std::size_t rows = 0;
    while (statement.Fetch()) ++rows;
    rowsPerKey.push_back(rows);
  }
  EXPECT_EQ(rowsPerKey, (std::vector<std::size_t>{6, 3, 0}));

  // Executing again before the cursor is exhausted starts it over.
  statement.Set(1, std::int32_t{1});
  statement.Execute();
  ASSERT_TRUE(statement.Fetch());
  statement.Execute();
  std::size_t rows = 0;
  while (statement.Fetch()) ++rows;
  EXPECT_EQ(rows, 6u);

  // A prepared statement outlives a commit and a restart.
  statement.Prepare("INSERT INTO ATTRIBUTENAME (NAME) VALUES (?)");
  statement.Set(1, std::string_view("before"));
  statement.Execute();
  transaction_.Commit();
  transaction_.Start();
  statement.Set(1, std::string_view("after"));
  statement.Execute();
  statement.Execute("SELECT COUNT(*) FROM ATTRIBUTENAME");
  ASSERT_TRUE(statement.Fetch());
  std::int32_t count = 0;
  statement.Get(1, count);
  EXPECT_EQ(count, 2);
}

TEST_F(IbppTest, ColumnsConvertBetweenNumericTypes) {
  auto statement = NewStatement();
  statement.Execute(
      "SELECT CAST(7 AS SMALLINT), CAST(1234567890123 AS BIGINT) / 1000000, CAST(2.25 AS NUMERIC(9,2)), "
      "CAST(0.5 AS FLOAT), COUNT(*) FROM RDB$DATABASE");
  ASSERT_TRUE(statement.Fetch());
  std::int32_t small = 0, big = 0, count = 0;
  double numeric = 0, real = 0, smallAsDouble = 0;
  for (bool isNull : {statement.Get(1, small), statement.Get(2, big), statement.Get(3, numeric),
                      statement.Get(4, real), statement.Get(5, count), statement.Get(1, smallAsDouble)}) {
    EXPECT_FALSE(isNull);
  }
  EXPECT_EQ(std::make_tuple(small, big, numeric, real, count, smallAsDouble), std::make_tuple(7, 1234567, 2.25, 0.5, 1, 7.0));
}

TEST_F(IbppTest, ParametersTakeTheirOwnTypesAndNull) {
  auto statement = NewStatement();
  statement.Prepare("SELECT CAST(? AS INTEGER), CAST(? AS DOUBLE PRECISION), CAST(? AS VARCHAR(20)), "
                    "CAST(? AS INTEGER) FROM RDB$DATABASE");
  statement.Set(1, std::string_view("15"));  // the server converts to the parameter's type
  statement.Set(2, std::int32_t{3});
  statement.Set(3, std::int32_t{42});
  statement.SetNull(4);
  statement.Execute();
  ASSERT_TRUE(statement.Fetch());
  std::int32_t integer = 0, missing = -1;
  double real = 0;
  std::string text;
  EXPECT_FALSE(statement.Get(1, integer));
  EXPECT_FALSE(statement.Get(2, real));
  EXPECT_FALSE(statement.Get(3, text));
  EXPECT_TRUE(statement.Get(4, missing));
  EXPECT_TRUE(statement.IsNull(4));
  EXPECT_EQ(integer, 15);
  EXPECT_DOUBLE_EQ(real, 3.0);
  EXPECT_EQ(text, "42");
  EXPECT_EQ(missing, 0);
}

TEST_F(IbppTest, MisuseIsAnExceptionNamingTheProblem) {
  auto statement = NewStatement();
  statement.Prepare("SELECT NAME FROM PROJECTION WHERE ID = ?");
  EXPECT_THAT([&] { statement.Execute(); },
              ::testing::ThrowsMessage<IBPP::Exception>(HasSubstr("parameter 1 has not been set")));
  EXPECT_THROW(statement.Set(2, std::int32_t{1}), IBPP::Exception);
  statement.Set(1, std::int32_t{1});
  std::int32_t number = 0;
  std::string text;
  EXPECT_THROW(statement.Get(1, text), IBPP::Exception);  // no row yet
  statement.Execute();
  ASSERT_TRUE(statement.Fetch());
  EXPECT_THAT([&] { statement.Get(1, number); },
              ::testing::ThrowsMessage<IBPP::Exception>(HasSubstr("NAME cannot be read as an integer")));
  EXPECT_THAT([&] { statement.Get("LABEL", text); },
              ::testing::ThrowsMessage<IBPP::Exception>(HasSubstr("no column named LABEL")));
  EXPECT_THROW(statement.Get(2, text), IBPP::Exception);
  EXPECT_THROW(transaction_.Start(), IBPP::Exception);
}

TEST_F(IbppTest, BlobSegmentsAreLimitedAndReadBackInPieces) {
  IBPP::Blob blob(database_, transaction_);
  blob.Create();
  const std::vector<char> tooLong(32768, 'x');
  EXPECT_THROW(blob.Write(tooLong.data(), 32768), IBPP::Exception);
  blob.Write(tooLong.data(), 32767);
  blob.Write("abc", 3);
  blob.Close();

  auto statement = NewStatement();
  statement.Prepare("INSERT INTO FRAGMENT (THUMBNAIL) VALUES (?) RETURNING ID");
  statement.Set(1, blob);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get(1, id);

  statement.Prepare("SELECT THUMBNAIL, FRAGMENT FROM FRAGMENT WHERE ID = ?");
  statement.Set(1, id);
  statement.Execute();
  ASSERT_TRUE(statement.Fetch());
  IBPP::Blob thumbnail(database_, transaction_), fragment(database_, transaction_);
  EXPECT_FALSE(statement.Get(1, thumbnail));
  EXPECT_TRUE(statement.Get("FRAGMENT", fragment));
  EXPECT_THROW(fragment.Open(), IBPP::Exception);

  thumbnail.Open();
  int total = 0, largest = 0, segments = 0;
  thumbnail.Info(&total, &largest, &segments);
  EXPECT_EQ(total, 32770);
  EXPECT_EQ(largest, 32767);
  EXPECT_EQ(segments, 2);
  // A read smaller than the segment returns what fits and goes on from there.
  std::vector<char> bytes(total);
  int done = 0;
  while (done < total) {
    const int read = thumbnail.Read(bytes.data() + done, 10000);
    ASSERT_GT(read, 0);
    done += read;
  }
  EXPECT_EQ(thumbnail.Read(bytes.data(), 1), 0);
  thumbnail.Close();
  EXPECT_EQ(std::string(bytes.end() - 4, bytes.end()), "xabc");
}

}  // namespace
