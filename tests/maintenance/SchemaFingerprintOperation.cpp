#include "SchemaFingerprintOperation.h"

#include <algorithm>
#include <array>

namespace {

// Each query gives text columns only; a line is its columns joined by ' '.
constexpr std::array kQueries{
    "SELECT 'table', TRIM(RDB$RELATION_NAME) FROM RDB$RELATIONS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0",

    "SELECT 'column', TRIM(RF.RDB$RELATION_NAME) || '.' || TRIM(RF.RDB$FIELD_NAME), "
    "  F.RDB$FIELD_TYPE || ' ' || COALESCE(F.RDB$FIELD_LENGTH, 0) || ' ' || COALESCE(F.RDB$FIELD_SUB_TYPE, 0) "
    "  || ' ' || COALESCE(F.RDB$SEGMENT_LENGTH, 0) || ' null ' || COALESCE(RF.RDB$NULL_FLAG, 0), "
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

std::vector<std::string> SchemaFingerprintOperation::Of(CDataProvider* catalog) {
  SchemaFingerprintOperation operation(catalog);
  std::vector<std::string> lines;
  for (const char* sql : kQueries) operation.Collect(sql, lines);
  std::sort(lines.begin(), lines.end());
  return lines;
}

void SchemaFingerprintOperation::Collect(const char* sql, std::vector<std::string>& lines) {
  IBPP::Statement statement = NewStatement();
  statement.Execute(sql);
  while (statement.Fetch()) {
    std::string line;
    for (int column = 1; column <= statement.Columns(); ++column) {
      std::string text;
      statement.Get(column, text);
      if (column > 1) line += ' ';
      line += text;
    }
    lines.push_back(std::move(line));
  }
}
