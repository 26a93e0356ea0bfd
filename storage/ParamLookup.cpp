// BASE_PARAM look-ups. Older catalogs may lack the table altogether, which
// is told apart from a missing parameter so that the client learns which.
#include "platform/Report.h"
#include "storage/BaseOperation.h"
#include "storage/DbText.h"

bool BaseOperation::GetParam(CDataProvider* provider, const std::wstring& name, const std::wstring& tag,
                             std::wstring& value) {
  constexpr const char* kMethod = "BaseOperation::GetParam";
  BaseOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("SELECT RDB$RELATION_NAME FROM RDB$RELATIONS WHERE RDB$RELATION_NAME = ?");
  statement.Set(1, std::string_view("BASE_PARAM"));
  statement.Execute();
  if (!statement.Fetch()) {
    Report(L"В базе нет таблицы BASE_PARAM", kMethod);
    return false;
  }
  statement.Prepare("SELECT val FROM BASE_PARAM WHERE name = ? AND tag = ?");
  SetDbText(statement, 1, name);
  SetDbText(statement, 2, tag);
  statement.Execute();
  if (!statement.Fetch()) {
    Report(L"В таблице BASE_PARAM нет параметра " + name, kMethod);
    return false;
  }
  GetDbText(statement, 1, value);
  return true;
}
