#include "SchemaInspectionOperation.h"

#include <stdexcept>

namespace {

// The engine's field type codes (RDB$FIELDS.RDB$FIELD_TYPE).
std::string TypeWords(std::int32_t code, std::int32_t length, std::int32_t subType, std::int32_t segment) {
  switch (code) {
    case 7: return "small";
    case 8: return "int";
    case 16: return "bigint";
    case 27: return "double";
    case 37: return "text " + std::to_string(length);
    case 14: return "char " + std::to_string(length);
    case 261:
      if (subType == 0 && segment == 80) return "blob";
      return "blob sub_type " + std::to_string(subType) + " segment " + std::to_string(segment);
    default: return "type " + std::to_string(code);
  }
}

std::string Text(const IBPP::Statement& statement, int column) {
  std::string text;
  statement.Get(column, text);
  return text;
}

std::int32_t Int(const IBPP::Statement& statement, int column) {
  std::int32_t value = 0;
  statement.Get(column, value);
  return value;
}

}  // namespace

SchemaInspectionOperation::DatabaseFacts SchemaInspectionOperation::Facts() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT M.MON$PAGE_SIZE, M.MON$ODS_MAJOR, M.MON$ODS_MINOR, M.MON$SQL_DIALECT, TRIM(D.RDB$CHARACTER_SET_NAME) "
      "FROM MON$DATABASE M CROSS JOIN RDB$DATABASE D");
  if (!statement.Fetch()) throw std::runtime_error("no MON$DATABASE row");
  return {Int(statement, 1), Int(statement, 2), Int(statement, 3), Int(statement, 4), Text(statement, 5)};
}

std::vector<std::string> SchemaInspectionOperation::Tables() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RDB$RELATION_NAME) FROM RDB$RELATIONS "
      "WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 AND RDB$VIEW_BLR IS NULL ORDER BY 1");
  std::vector<std::string> tables;
  while (statement.Fetch()) tables.push_back(Text(statement, 1));
  return tables;
}

std::vector<SchemaInspectionOperation::Column> SchemaInspectionOperation::Columns(const std::string& table) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare(
      "SELECT TRIM(RF.RDB$FIELD_NAME), F.RDB$FIELD_TYPE, COALESCE(F.RDB$CHARACTER_LENGTH, 0), "
      "COALESCE(F.RDB$FIELD_SUB_TYPE, 0), COALESCE(F.RDB$SEGMENT_LENGTH, 0), COALESCE(RF.RDB$NULL_FLAG, 0), "
      "TRIM(CAST(RF.RDB$DEFAULT_SOURCE AS VARCHAR(200))) "
      "FROM RDB$RELATION_FIELDS RF JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = RF.RDB$FIELD_SOURCE "
      "WHERE RF.RDB$RELATION_NAME = ? ORDER BY RF.RDB$FIELD_POSITION");
  statement.Set(1, std::string_view(table));
  statement.Execute();
  std::vector<Column> columns;
  while (statement.Fetch()) {
    columns.push_back({Text(statement, 1),
                       TypeWords(Int(statement, 2), Int(statement, 3), Int(statement, 4), Int(statement, 5)),
                       Int(statement, 6) != 0, Text(statement, 7)});
  }
  return columns;
}

std::map<std::string, SchemaInspectionOperation::Key> SchemaInspectionOperation::Keys() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RC.RDB$CONSTRAINT_NAME), TRIM(RC.RDB$CONSTRAINT_TYPE), TRIM(RC.RDB$RELATION_NAME), "
      "TRIM(S.RDB$FIELD_NAME) "
      "FROM RDB$RELATION_CONSTRAINTS RC JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = RC.RDB$INDEX_NAME "
      "JOIN RDB$RELATIONS R ON R.RDB$RELATION_NAME = RC.RDB$RELATION_NAME "
      "WHERE RC.RDB$CONSTRAINT_TYPE IN ('PRIMARY KEY', 'UNIQUE') AND COALESCE(R.RDB$SYSTEM_FLAG, 0) = 0 "
      "ORDER BY RC.RDB$CONSTRAINT_NAME, S.RDB$FIELD_POSITION");
  std::map<std::string, Key> keys;
  while (statement.Fetch()) {
    Key& key = keys[Text(statement, 1)];
    key.type = Text(statement, 2);
    key.table = Text(statement, 3);
    if (!key.fields.empty()) key.fields += ",";
    key.fields += Text(statement, 4);
  }
  return keys;
}

std::map<std::string, SchemaInspectionOperation::ForeignKey> SchemaInspectionOperation::ForeignKeys() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RC.RDB$CONSTRAINT_NAME), TRIM(RC.RDB$RELATION_NAME), TRIM(S.RDB$FIELD_NAME), "
      "TRIM(PK.RDB$RELATION_NAME), TRIM(REF.RDB$UPDATE_RULE), TRIM(REF.RDB$DELETE_RULE) "
      "FROM RDB$RELATION_CONSTRAINTS RC "
      "JOIN RDB$REF_CONSTRAINTS REF ON REF.RDB$CONSTRAINT_NAME = RC.RDB$CONSTRAINT_NAME "
      "JOIN RDB$RELATION_CONSTRAINTS PK ON PK.RDB$CONSTRAINT_NAME = REF.RDB$CONST_NAME_UQ "
      "JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = RC.RDB$INDEX_NAME "
      "WHERE RC.RDB$CONSTRAINT_TYPE = 'FOREIGN KEY'");
  std::map<std::string, ForeignKey> keys;
  while (statement.Fetch()) {
    keys[Text(statement, 1)] = {Text(statement, 2), Text(statement, 3), Text(statement, 4), Text(statement, 5),
                                Text(statement, 6)};
  }
  return keys;
}

std::map<std::string, std::string> SchemaInspectionOperation::Checks() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT DISTINCT TRIM(CC.RDB$CONSTRAINT_NAME), TRIM(RC.RDB$RELATION_NAME), "
      "TRIM(CAST(T.RDB$TRIGGER_SOURCE AS VARCHAR(200))) "
      "FROM RDB$CHECK_CONSTRAINTS CC "
      "JOIN RDB$RELATION_CONSTRAINTS RC ON RC.RDB$CONSTRAINT_NAME = CC.RDB$CONSTRAINT_NAME "
      "JOIN RDB$TRIGGERS T ON T.RDB$TRIGGER_NAME = CC.RDB$TRIGGER_NAME "
      "WHERE RC.RDB$CONSTRAINT_TYPE = 'CHECK'");
  std::map<std::string, std::string> checks;
  while (statement.Fetch()) checks[Text(statement, 1)] = Text(statement, 2) + ": " + Text(statement, 3);
  return checks;
}

std::map<std::string, std::string> SchemaInspectionOperation::PlainIndexes() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(I.RDB$INDEX_NAME), TRIM(I.RDB$RELATION_NAME), TRIM(S.RDB$FIELD_NAME), "
      "COALESCE(I.RDB$UNIQUE_FLAG, 0) "
      "FROM RDB$INDICES I JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = I.RDB$INDEX_NAME "
      "WHERE COALESCE(I.RDB$SYSTEM_FLAG, 0) = 0 AND NOT EXISTS "
      "(SELECT 1 FROM RDB$RELATION_CONSTRAINTS RC WHERE RC.RDB$INDEX_NAME = I.RDB$INDEX_NAME)");
  std::map<std::string, std::string> indexes;
  while (statement.Fetch()) {
    indexes[Text(statement, 1)] =
        Text(statement, 2) + "." + Text(statement, 3) + (Int(statement, 4) != 0 ? " unique" : "");
  }
  return indexes;
}

std::vector<std::string> SchemaInspectionOperation::Generators() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RDB$GENERATOR_NAME) FROM RDB$GENERATORS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 ORDER BY 1");
  std::vector<std::string> generators;
  while (statement.Fetch()) generators.push_back(Text(statement, 1));
  return generators;
}

std::int64_t SchemaInspectionOperation::GeneratorValue(const std::string& generator) {
  for (char c : generator) {
    if (!(c == '_' || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')))
      throw std::invalid_argument("not a generator name: " + generator);
  }
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT GEN_ID(" + generator + ", 0) FROM RDB$DATABASE");
  if (!statement.Fetch()) throw std::runtime_error("GEN_ID gave no row");
  std::int32_t value = 0;
  statement.Get(1, value);
  return value;
}

std::map<std::string, SchemaInspectionOperation::Trigger> SchemaInspectionOperation::Triggers() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RDB$TRIGGER_NAME), TRIM(RDB$RELATION_NAME), RDB$TRIGGER_TYPE, COALESCE(RDB$TRIGGER_INACTIVE, 0) "
      "FROM RDB$TRIGGERS WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0");
  std::map<std::string, Trigger> triggers;
  while (statement.Fetch()) {
    triggers[Text(statement, 1)] = {Text(statement, 2), Int(statement, 3), Int(statement, 4) == 0};
  }
  return triggers;
}

std::map<std::string, std::string> SchemaInspectionOperation::Exceptions() {
  IBPP::Statement statement = NewStatement();
  statement.Execute("SELECT TRIM(RDB$EXCEPTION_NAME), RDB$MESSAGE FROM RDB$EXCEPTIONS");
  std::map<std::string, std::string> exceptions;
  while (statement.Fetch()) exceptions[Text(statement, 1)] = Text(statement, 2);
  return exceptions;
}

std::vector<std::string> SchemaInspectionOperation::Procedures() {
  IBPP::Statement statement = NewStatement();
  statement.Execute(
      "SELECT TRIM(RDB$PROCEDURE_NAME) FROM RDB$PROCEDURES WHERE COALESCE(RDB$SYSTEM_FLAG, 0) = 0 ORDER BY 1");
  std::vector<std::string> procedures;
  while (statement.Fetch()) procedures.push_back(Text(statement, 1));
  return procedures;
}

std::vector<std::string> SchemaInspectionOperation::ProcedureParameters(const std::string& procedure) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare(
      "SELECT TRIM(P.RDB$PARAMETER_NAME), P.RDB$PARAMETER_TYPE, F.RDB$FIELD_TYPE, "
      "COALESCE(F.RDB$CHARACTER_LENGTH, 0), COALESCE(F.RDB$FIELD_SUB_TYPE, 0), COALESCE(F.RDB$SEGMENT_LENGTH, 0) "
      "FROM RDB$PROCEDURE_PARAMETERS P JOIN RDB$FIELDS F ON F.RDB$FIELD_NAME = P.RDB$FIELD_SOURCE "
      "WHERE P.RDB$PROCEDURE_NAME = ? ORDER BY P.RDB$PARAMETER_TYPE, P.RDB$PARAMETER_NUMBER");
  statement.Set(1, std::string_view(procedure));
  statement.Execute();
  std::vector<std::string> parameters;
  while (statement.Fetch()) {
    parameters.push_back(std::string(Int(statement, 2) == 0 ? "in " : "out ") + Text(statement, 1) + " " +
                         TypeWords(Int(statement, 3), Int(statement, 4), Int(statement, 5), Int(statement, 6)));
  }
  return parameters;
}
