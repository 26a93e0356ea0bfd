// Cutting the schema script into statements.
#include "storage/tools/SqlScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using ::testing::ElementsAre;

TEST(SqlScript, SplitsOnTheTerminatorOutsideTextAndComments) {
  EXPECT_THAT(SqlScript::Split("SELECT 'a;b' FROM T; -- c;d\nSELECT \"X;\" FROM U;/* e; */ SELECT 'it''s;' FROM V;"),
              ElementsAre("SELECT 'a;b' FROM T", "SELECT \"X;\" FROM U", "SELECT 'it''s;' FROM V"));
  // Text after the last terminator is a statement; blanks are none.
  EXPECT_THAT(SqlScript::Split("A; B"), ElementsAre("A", "B"));
  EXPECT_THAT(SqlScript::Split("  \n "), ElementsAre());

  // Comments inside a statement stay, those between go.
  EXPECT_THAT(SqlScript::Split("/* head */\n-- note\nSELECT 1 /* inner; */ FROM T;\n-- tail\n"),
              ElementsAre("SELECT 1 /* inner; */ FROM T"));
}

TEST(SqlScript, SetTermChangesTheTerminatorAndIsConsumed) {
  const char* script =
      "CREATE TABLE T (ID INTEGER);\n"
      "SET TERM ^ ;\n"
      "CREATE PROCEDURE P AS BEGIN DELETE FROM T; END^\n"
      "set term ; ^\n"
      "COMMIT;\n";
  EXPECT_THAT(SqlScript::Split(script),
              ElementsAre("CREATE TABLE T (ID INTEGER)", "CREATE PROCEDURE P AS BEGIN DELETE FROM T; END", "COMMIT"));
}

}  // namespace
