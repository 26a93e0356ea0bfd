#include "storage/ProviderOperation.h"

#include "storage/CommitGuard.h"
#include "storage/DbText.h"

bool ProviderOperation::IsEditable(CDataProvider* provider) noexcept {
  try {
    ProviderOperation operation(provider);
    CommitGuard neverCommitted(operation);
    IBPP::Statement statement = operation.NewStatement();
    statement.Execute("INSERT INTO FOLDER (NAME, ID_PARENT) VALUES ('Test Base Writeble', NULL) RETURNING ID");
    std::int32_t id = 0;
    statement.Get("ID", id);
    statement.Prepare("DELETE FROM FOLDER f WHERE f.ID = ?");
    statement.Set(1, id);
    statement.Execute();
    return true;
  } catch (...) {
    return false;
  }
}

std::int32_t ProviderOperation::ExecuteIdProcedure(const char* sql, const std::wstring& text) {
  CommitGuard guard(*this);
  IBPP::Statement statement = NewStatement();
  statement.Prepare(sql);
  SetDbText(statement, 1, text);
  statement.Execute();
  std::int32_t id = 0;
  statement.Get(1, id);
  guard.Commit();
  return id;
}

std::int32_t ProviderOperation::AttributeNameId(CDataProvider* provider, const std::wstring& name) {
  return ProviderOperation(provider).ExecuteIdProcedure("EXECUTE PROCEDURE GET_ATTR_NAME(?)", name);
}

std::int32_t ProviderOperation::AttributeDescriptionId(CDataProvider* provider, const std::wstring& description) {
  return ProviderOperation(provider).ExecuteIdProcedure("EXECUTE PROCEDURE GET_ATTR_DESCR(?)", description);
}

std::wstring ProviderOperation::FirstText(const char* sql, const std::wstring& argument) {
  IBPP::Statement statement = NewStatement();
  statement.Prepare(sql);
  SetDbText(statement, 1, argument);
  statement.Execute();
  std::wstring text;
  if (statement.Fetch()) GetDbText(statement, 1, text);
  return text;
}

std::wstring ProviderOperation::DescriptionOfAttributeName(CDataProvider* provider, const std::wstring& name) {
  return ProviderOperation(provider).FirstText(
      " select dsc.DESCRIPTION  from OBJECTATTRIBUTE oa, ATTRIBUTEDESCRIPTION dsc, ATTRIBUTENAME name  where "
      "name.NAME = ? and oa.ATTRIBUTENAMEID = name.ID and dsc.ID = oa.ATTRIBUTEDESCRIPTIONID  ROWS 1 ",
      name);
}

std::wstring ProviderOperation::AttributeNameOfDescription(CDataProvider* provider, const std::wstring& description) {
  return ProviderOperation(provider).FirstText(
      " select name.NAME  from OBJECTATTRIBUTE oa, ATTRIBUTEDESCRIPTION dsc, ATTRIBUTENAME name  where "
      "dsc.DESCRIPTION = ? and oa.ATTRIBUTEDESCRIPTIONID = dsc.ID and name.ID = oa.ATTRIBUTENAMEID  ROWS 1 ",
      description);
}

bool ProviderOperation::DeleteUnusedModelsAndFragments(CDataProvider* provider) {
  ProviderOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Execute(
      " DELETE FROM model m1  WHERE EXISTS (    SELECT 1 FROM model m2      LEFT JOIN object obj ON obj.modelid = "
      "m2.id    WHERE obj.id IS null AND m2.id = m1.id) ");
  statement.Execute(
      " DELETE FROM fragment frg1  WHERE EXISTS (    SELECT 1 FROM fragment frg2      LEFT JOIN objectprojection prj "
      "on prj.fragmentid = frg2.id    WHERE prj.fragmentid IS null AND frg2.id = frg1.id)");
  guard.Commit();
  return true;
}
