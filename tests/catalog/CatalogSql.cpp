#include "CatalogSql.h"

#include "platform/TextCodec.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"

namespace lxtest {
namespace {

class TestSqlOperation : public BaseOperation {
 public:
  explicit TestSqlOperation(CDataProvider* provider) : BaseOperation(provider) {}
  using BaseOperation::NewStatement;
};

}  // namespace

CatalogSql::CatalogSql(std::wstring server, std::wstring database, std::wstring user, std::wstring password)
    : provider_(std::move(server), std::move(database), std::move(user), std::move(password)) {}

void CatalogSql::Execute(std::initializer_list<std::wstring> statements) {
  TestSqlOperation operation(&provider_);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  for (const std::wstring& sql : statements) statement.Execute(WideToCp1251(sql));
  guard.Commit();
}

std::int32_t CatalogSql::Int(const std::wstring& query) {
  TestSqlOperation operation(&provider_);
  IBPP::Statement statement = operation.NewStatement();
  statement.Execute(WideToCp1251(query));
  std::int32_t value = 0;
  if (statement.Fetch()) statement.Get(1, value);
  return value;
}

std::vector<std::wstring> CatalogSql::Texts(const std::wstring& query) {
  TestSqlOperation operation(&provider_);
  IBPP::Statement statement = operation.NewStatement();
  statement.Execute(WideToCp1251(query));
  std::vector<std::wstring> texts;
  while (statement.Fetch()) {
    std::wstring text;
    GetDbText(statement, 1, text);
    texts.push_back(std::move(text));
  }
  return texts;
}

}  // namespace lxtest
