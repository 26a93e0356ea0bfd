#include "CatalogSql.h"

#include <algorithm>
#include <array>
#include <cwctype>

#include "platform/TextCodec.h"
#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"

namespace lxtest {
namespace {

// A SELECT opens a cursor; anything else with columns (RETURNING, EXECUTE
// PROCEDURE) delivers its one row at Execute, and fetching it is an error.
bool OpensCursor(const std::wstring& sql) {
  std::wstring head = sql.substr(sql.find_first_not_of(L" \n\t"), 6);
  std::transform(head.begin(), head.end(), head.begin(), [](wchar_t ch) { return std::towupper(ch); });
  return head == L"SELECT";
}

// Each query gives text columns only; a line is its columns joined by ' '.
constexpr std::array kSchemaQueries{
    "SELECT 'table', TRIM(RDB$RELATION_NAME) FROM RDB$RELATIONS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'column', TRIM(RF.RDB$RELATION_NAME) || '.' || TRIM(RF.RDB$FIELD_NAME), "
    "  F.RDB$FIELD_TYPE || ' ' || COALESCE(F.RDB$FIELD_LENGTH, 0) || ' ' || COALESCE(F.RDB$FIELD_SUB_TYPE, 0) "
    "  || ' ' || COALESCE(F.RDB$SEGMENT_LENGTH, 0) || ' null ' || COALESCE(RF.RDB$NULL_FLAG, 0) "
    "  || ' position ' || RF.RDB$FIELD_POSITION, "
    "  COALESCE(CAST(RF.RDB$DEFAULT_SOURCE AS VARCHAR(200)), '') "
    "FROM RDB$RELATION_FIELDS RF JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = RF.RDB$FIELD_SOURCE "
    "WHERE COALESCE(RF.RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'key', TRIM(RC.RDB$CONSTRAINT_NAME), TRIM(RC.RDB$CONSTRAINT_TYPE), TRIM(RC.RDB$RELATION_NAME), "
    "  TRIM(S.RDB$FIELD_NAME) || '@' || S.RDB$FIELD_POSITION "
    "FROM RDB$RELATION_CONSTRAINTS RC JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = RC.RDB$INDEX_NAME "
    "WHERE RC.RDB$CONSTRAINT_TYPE IN ('PRIMARY KEY', 'UNIQUE', 'FOREIGN KEY')",

    "SELECT 'foreign', TRIM(R.RDB$CONSTRAINT_NAME), TRIM(K.RDB$RELATION_NAME), TRIM(R.RDB$UPDATE_RULE), "
    "  TRIM(R.RDB$DELETE_RULE) "
    "FROM RDB$REF_CONSTRAINTS R JOIN RDB$RELATION_CONSTRAINTS K ON K.RDB$CONSTRAINT_NAME = R.RDB$CONST_NAME_UQ",

    "SELECT DISTINCT 'check', TRIM(RC.RDB$CONSTRAINT_NAME), TRIM(RC.RDB$RELATION_NAME), "
    "  CAST(T.RDB$TRIGGER_SOURCE AS VARCHAR(500)) "
    "FROM RDB$RELATION_CONSTRAINTS RC JOIN RDB$CHECK_CONSTRAINTS C ON C.RDB$CONSTRAINT_NAME = RC.RDB$CONSTRAINT_NAME "
    "JOIN RDB$TRIGGERS T ON T.RDB$TRIGGER_NAME = C.RDB$TRIGGER_NAME WHERE RC.RDB$CONSTRAINT_TYPE = 'CHECK'",

    "SELECT 'index', TRIM(I.RDB$INDEX_NAME), TRIM(I.RDB$RELATION_NAME), "
    "  'unique ' || COALESCE(I.RDB$UNIQUE_FLAG, 0) || ' inactive ' || COALESCE(I.RDB$INDEX_INACTIVE, 0), "
    "  TRIM(S.RDB$FIELD_NAME) "
    "FROM RDB$INDICES I JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = I.RDB$INDEX_NAME "
    "WHERE COALESCE(I.RDB$SYSTEM_FLAG, 0) = 0 AND I.RDB$INDEX_NAME NOT STARTING WITH 'RDB$'",

    "SELECT 'trigger', TRIM(RDB$TRIGGER_NAME), TRIM(COALESCE(RDB$RELATION_NAME, '')), "
    "  RDB$TRIGGER_TYPE || ' ' || RDB$TRIGGER_SEQUENCE || ' inactive ' || COALESCE(RDB$TRIGGER_INACTIVE, 0), "
    "  CAST(RDB$TRIGGER_SOURCE AS VARCHAR(8000)) "
    "FROM RDB$TRIGGERS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 AND RDB$TRIGGER_NAME NOT STARTING WITH 'CHECK_'",

    "SELECT 'procedure', TRIM(RDB$PROCEDURE_NAME), CAST(RDB$PROCEDURE_SOURCE AS VARCHAR(8000)) "
    "FROM RDB$PROCEDURES WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'parameter', TRIM(P.RDB$PROCEDURE_NAME) || '.' || TRIM(P.RDB$PARAMETER_NAME), "
    "  P.RDB$PARAMETER_TYPE || ' #' || P.RDB$PARAMETER_NUMBER || ' type ' || F.RDB$FIELD_TYPE || ' ' "
    "  || COALESCE(F.RDB$FIELD_LENGTH, 0) "
    "FROM RDB$PROCEDURE_PARAMETERS P JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = P.RDB$FIELD_SOURCE "
    "WHERE COALESCE(P.RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'generator', TRIM(RDB$GENERATOR_NAME) FROM RDB$GENERATORS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'exception', TRIM(RDB$EXCEPTION_NAME), RDB$MESSAGE FROM RDB$EXCEPTIONS "
    "WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0",
};

}  // namespace

std::int32_t SqlScope::Int(const std::wstring& sql) {
  IBPP::Statement statement = NewStatement();
  statement.Execute(WideToCp1251(sql));
  std::int32_t value = 0;
  if (statement.Columns() > 0 && (!OpensCursor(sql) || statement.Fetch())) statement.Get(1, value);
  return value;
}

std::vector<std::wstring> SqlScope::Texts(const std::wstring& query) {
  IBPP::Statement statement = NewStatement();
  statement.Execute(WideToCp1251(query));
  std::vector<std::wstring> texts;
  while (statement.Fetch()) {
    std::wstring text;
    GetDbText(statement, 1, text);
    texts.push_back(std::move(text));
  }
  return texts;
}

std::vector<unsigned char> SqlScope::Blob(const std::wstring& query) {
  IBPP::Statement statement = NewStatement();
  statement.Execute(WideToCp1251(query));
  IBPP::Blob blob = NewBlob();
  if (!statement.Fetch() || statement.Get(1, blob)) return {};
  return ReadWholeBlob(blob);
}

void SqlScope::Commit() { CommitGuard(*this).Commit(); }

CatalogSql::CatalogSql(std::wstring server, std::wstring database, std::wstring user, std::wstring password)
    : provider_(std::move(server), std::move(database), std::move(user), std::move(password)) {}

CatalogSql::CatalogSql(const CDataProvider& catalog)
    : CatalogSql(catalog.GetServerName(), catalog.GetDatabaseName(), catalog.GetUserName(), catalog.GetPassword()) {}

void CatalogSql::Execute(std::initializer_list<std::wstring> statements) {
  SqlScope scope(&provider_);
  for (const std::wstring& sql : statements) scope.Run(sql);
  scope.Commit();
}

std::int32_t CatalogSql::Int(const std::wstring& sql) {
  SqlScope scope(&provider_);
  const std::int32_t value = scope.Int(sql);
  scope.Commit();
  return value;
}

std::vector<std::wstring> CatalogSql::Texts(const std::wstring& query) { return SqlScope(&provider_).Texts(query); }

std::vector<std::string> CatalogSql::Schema() {
  SqlScope scope(&provider_);
  std::vector<std::string> lines;
  for (const char* sql : kSchemaQueries) {
    IBPP::Statement statement = scope.NewStatement();
    statement.Execute(sql);
    while (statement.Fetch()) {
      std::string line;
      for (int column = 1; column <= statement.Columns(); ++column) {
        std::string text;
        statement.Get(column, text);
        line += (column > 1 ? " " : "") + text;
      }
      lines.push_back(std::move(line));
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace lxtest
