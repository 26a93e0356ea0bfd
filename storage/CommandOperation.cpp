#include "storage/CommandOperation.h"

#include "commands/CommandDocument.h"
#include "storage/CDataProvider.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/OperationSupport.h"

CommandOperation::CommandOperation(CDataProvider* provider) : BaseOperation(provider) {}

bool CommandOperation::RunCommand(CDataProvider* provider, const std::wstring& text) {
  pugi::xml_document document;
  if (!ParseCommandDocument(text, document)) return false;
  CommandOperation operation(provider);
  CommitGuard guard(operation);
  if (RunCommandDocument(document, operation) == 0) return false;
  guard.Commit();
  return true;
}

IBPP::Statement& CommandOperation::Prepared(const char* sql) {
  for (auto& [text, statement] : statements_)
    if (text == sql) return statement;
  IBPP::Statement& statement = statements_.emplace_back(sql, NewStatement()).second;
  statement.Prepare(sql);
  return statement;
}

CPacket* CommandOperation::FindPacket(const std::wstring& name) { return Provider()->GetPacketByName(name); }

void CommandOperation::DeleteSpecColumns(std::int32_t specId) {
  IBPP::Statement& statement = Prepared("DELETE FROM SPECIFICATIONCOLUMN WHERE SPECIFICATIONID = ?");
  statement.Set(1, specId);
  statement.Execute();
}

void CommandOperation::DeleteSpecs(std::int32_t templateId) {
  IBPP::Statement& statement = Prepared("DELETE FROM SPECIFICATION WHERE IDOBJECT = ?");
  statement.Set(1, templateId);
  statement.Execute();
}

std::int32_t CommandOperation::InsertSpec(const std::wstring& libName, std::int32_t styleNumber,
                                          std::int32_t templateId, std::int32_t firstPart, std::int32_t secondPart) {
  IBPP::Statement& statement = Prepared(
      "INSERT INTO SPECIFICATION (LIBNAME, STYLENUMBER, IDOBJECT, FIRSTPART, SECONDPART) VALUES(?,?,?,?,?) RETURNING ID");
  SetDbText(statement, 1, libName);
  statement.Set(2, styleNumber);
  statement.Set(3, templateId);
  statement.Set(4, firstPart);
  statement.Set(5, secondPart);
  statement.Execute();
  return ReadInt(statement, 1);
}

void CommandOperation::InsertSpecColumn(std::int32_t number, const std::wstring& formula, std::int32_t specId) {
  IBPP::Statement& statement = Prepared("INSERT INTO SPECIFICATIONCOLUMN (COLNUMBER, FORMULA, SPECIFICATIONID) VALUES(?,?,?)");
  statement.Set(1, number);
  SetDbText(statement, 2, formula);
  statement.Set(3, specId);
  statement.Execute();
}
