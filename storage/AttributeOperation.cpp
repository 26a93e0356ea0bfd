#include "storage/AttributeOperation.h"

#include "platform/Report.h"
#include "catalog/CAttribute.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"

template <typename SetValue>
bool AttributeOperation::Update(CAttribute* attribute, const char* column, SetValue&& setValue) {
  CFolder* folder = attribute->GetTable()->GetFolder();
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров изменение атрибутов невозможно", "AttributeOperation::SetAtrParam");
    return false;
  }
  AttributeOperation operation(folder->GetPacket()->GetProvider());
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(std::string(" update OBJECTATTRIBUTE atr SET atr.") + column +
                    " = ? where exists (SELECT 1 FROM OBJECT obj join OBJECTATTRIBUTE atr2 on atr2.OBJECTID = obj.ID "
                    "and obj.FOLDERID = ? and atr2.NUMBER = ? WHERE atr2.ID = atr.ID)");
  setValue(statement);
  statement.Set(2, folder->GetId());
  statement.Set(3, attribute->GetNumber());
  statement.Execute();
  guard.Commit();
  return true;
}

bool AttributeOperation::SetAtrParam(CAttribute* attribute, const char* column, std::int32_t value) {
  return Update(attribute, column, [value](IBPP::Statement& statement) { statement.Set(1, value); });
}

bool AttributeOperation::SetAtrParam(CAttribute* attribute, const char* column, const std::wstring& value) {
  return Update(attribute, column, [&value](IBPP::Statement& statement) { SetDbText(statement, 1, value); });
}
