#include "storage/TableOperation.h"

#include "platform/Report.h"
#include "catalog/CAttribute.h"
#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "content/ByteData.h"
#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/OperationSupport.h"

namespace {

constexpr std::int32_t kIdSpecificationNumber = 11;

CFolder* FolderOf(const CFolderTable* table) { return table->GetFolder(); }

}  // namespace

bool TableOperation::AddAttribute(CFolderTable* table, const std::wstring& name, const std::wstring& description,
                                  std::int32_t type, std::int32_t number) {
  TableOperation operation(ProviderOf(table));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("EXECUTE PROCEDURE CREATE_OBJ_ATTR(?,?,?,?,?,?,?,?,?,NULL,NULL,NULL)");
  statement.Set(2, number);
  statement.Set(3, std::int32_t{0});
  statement.Set(4, type);
  SetDbText(statement, 5, name);
  SetDbText(statement, 6, description);
  SetDbText(statement, 7, L"");
  SetDbText(statement, 8, L"");
  SetDbText(statement, 9, L"");
  for (std::size_t i = 0; i < table->TemplateCount(); ++i) {
    statement.Set(1, table->Template(i)->GetId());
    statement.Execute();
  }
  guard.Commit();
  return true;
}

bool TableOperation::DeleteAttribute(CAttribute* attribute) {
  CFolder* folder = FolderOf(attribute->GetTable());
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров удаление атрибутов невозможно", "TableOperation::DeleteAttribute");
    return false;
  }
  static constexpr const char* kStatements[] = {
      "DELETE FROM ATTRIBUTEVALUE val WHERE EXISTS (   SELECT 1 FROM OBJECT obj   join STANDARDSIZE sz on "
      "sz.OBJECTID = obj.ID and obj.FOLDERID = ?   join OBJECTATTRIBUTE atr on atr.OBJECTID = obj.ID and atr.NUMBER = ?"
      "   join ATTRIBUTEVALUE val2 on val2.OBJECTATTRIBUTEID = atr.ID and val2.STANDARDSIZEID = sz.ID   WHERE "
      "val2.OBJECTATTRIBUTEID = val.OBJECTATTRIBUTEID and val2.STANDARDSIZEID = val.STANDARDSIZEID)",
      "DELETE FROM OBJECTATTRIBUTE atr WHERE EXISTS (  SELECT 1 FROM OBJECT obj  join OBJECTATTRIBUTE atr2 on "
      "atr2.OBJECTID = obj.ID and obj.FOLDERID = ? and atr2.NUMBER = ?  WHERE atr2.ID = atr.ID)",
  };
  TableOperation operation(folder->GetPacket()->GetProvider());
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  for (const char* sql : kStatements) {
    statement.Prepare(sql);
    statement.Set(1, folder->GetId());
    statement.Set(2, attribute->GetNumber());
    statement.Execute();
  }
  guard.Commit();
  return true;
}

std::int32_t TableOperation::AddStdSize(CTemplate* owner, const std::wstring& identifier) {
  TableOperation operation(ProviderOf(owner->GetTable()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "INSERT INTO STANDARDSIZE (OBJECTID, IDENTIFIER, OLD_INDEX, OLD_NAME) VALUES (?, ?, NULL, NULL) RETURNING ID");
  statement.Set(1, owner->GetId());
  SetDbText(statement, 2, identifier);
  statement.Execute();
  const std::int32_t id = ReadInt(statement, "ID");
  statement.Prepare("EXECUTE PROCEDURE CREATE_ATTR_VAL(?, ?, NULL, NULL, ?)");
  statement.Set(1, kIdSpecificationNumber);
  statement.Set(2, id);
  SetDbText(statement, 3, identifier);
  statement.Execute();
  guard.Commit();
  return id;
}

bool TableOperation::DeleteStdSize(CStandartSize* size) {
  TableOperation operation(ProviderOf(TableOf(size)));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  for (const char* sql : {"DELETE FROM ATTRIBUTEVALUE val WHERE val.STANDARDSIZEID = ?",
                          "DELETE FROM STANDARDSIZE sz WHERE sz.ID = ?"}) {
    statement.Prepare(sql);
    statement.Set(1, size->GetId());
    statement.Execute();
  }
  guard.Commit();
  return true;
}

bool TableOperation::MoveValueFromAtrToTemplateStd(IBPP::Statement& statement, CAttribute* attribute,
                                                   CStandartSize* size) {
  constexpr const wchar_t* kMissing = L"Почему-то не нашли атрибут у темплейта";
  constexpr const char* kMethod = "TableOperation::MoveValueFromAtrToTemplateStd";
  CTemplate* owner = size->GetTemplate();
  const TemplateAttribute* record = owner->FindRecord(attribute->GetNumber());
  if (record == nullptr) {
    Report(kMissing, kMethod);
    return false;
  }
  if (IsEmpty(record->value)) return true;
  statement.Prepare(
      "SELECT atr.ID, atr.CONCRETEVALUEID FROM  OBJECTATTRIBUTE atr LEFT JOIN CONCRETEVALUE val ON val.ID = "
      "atr.CONCRETEVALUEID WHERE atr.OBJECTID = ? AND atr.NUMBER = ?");
  statement.Set(1, owner->GetId());
  statement.Set(2, attribute->GetNumber());
  statement.Execute();
  if (!statement.Fetch()) {
    Report(kMissing, kMethod);
    return false;
  }
  const std::int32_t rowId = ReadInt(statement, 1);
  std::int32_t valueId = 0;
  if (statement.Get(2, valueId)) return true;  // only the default of the type
  statement.Prepare(
      "INSERT INTO ATTRIBUTEVALUE (OBJECTATTRIBUTEID, STANDARDSIZEID, CONCRETEVALUEID) SELECT ?, sz.ID, ? FROM "
      "STANDARDSIZE sz WHERE sz.OBJECTID = ?");
  statement.Set(1, rowId);
  statement.Set(2, valueId);
  statement.Set(3, owner->GetId());
  statement.Execute();
  statement.Prepare("UPDATE OBJECTATTRIBUTE set CONCRETEVALUEID = NULL WHERE ID = ?");
  statement.Set(1, rowId);
  statement.Execute();
  return true;
}

bool TableOperation::SetValue(CAttribute* attribute, CStandartSize* size, const Value& value) {
  TableOperation operation(ProviderOf(TableOf(size)));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  if (!operation.MoveValueFromAtrToTemplateStd(statement, attribute, size)) {
    Report(L"Проблема при перемещении значения из атрибута в типоразмеры", "TableOperation::SetValue");
    return false;
  }
  if (const auto* integer = std::get_if<std::int32_t>(&value)) {
    statement.Prepare("EXECUTE PROCEDURE CREATE_ATTR_VAL(?, ?, ?, NULL, NULL)");
    statement.Set(3, *integer);
  } else if (const auto* number = std::get_if<double>(&value)) {
    statement.Prepare("EXECUTE PROCEDURE CREATE_ATTR_VAL(?, ?, NULL, ?, NULL)");
    statement.Set(3, *number);
  } else {
    statement.Prepare("EXECUTE PROCEDURE CREATE_ATTR_VAL(?, ?, NULL, NULL, ?)");
    const auto* text = std::get_if<std::wstring>(&value);
    SetDbText(statement, 3, text != nullptr ? *text : std::wstring());
  }
  statement.Set(1, attribute->GetNumber());
  statement.Set(2, size->GetId());
  statement.Execute();
  guard.Commit();
  return true;
}

bool TableOperation::RemoveValue(CAttribute* attribute, CStandartSize* size) {
  TableOperation operation(ProviderOf(TableOf(size)));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  if (!operation.MoveValueFromAtrToTemplateStd(statement, attribute, size)) {
    Report(L"Проблема при перемещении значения из атрибута в типоразмеры", "TableOperation::RemoveValue");
    return false;
  }
  statement.Prepare("SELECT atr.ID FROM OBJECTATTRIBUTE atr WHERE atr.OBJECTID = ? and atr.NUMBER = ?");
  statement.Set(1, size->GetTemplate()->GetId());
  statement.Set(2, attribute->GetNumber());
  statement.Execute();
  std::int32_t rowId = 0;
  if (statement.Fetch()) statement.Get(1, rowId);
  statement.Prepare("DELETE FROM ATTRIBUTEVALUE val WHERE val.STANDARDSIZEID = ? and val.OBJECTATTRIBUTEID = ?");
  statement.Set(1, size->GetId());
  statement.Set(2, rowId);
  statement.Execute();
  guard.Commit();
  return true;
}

std::int32_t TableOperation::CreateNewTemplate(CFolderTable* table, const std::wstring& name) {
  CFolder* folder = FolderOf(table);
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров создание темплейтов невозможно", "TableOperation::CreateNewTemplate");
    return 0;
  }
  TableOperation operation(folder->GetPacket()->GetProvider());
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  std::int32_t id = 0;
  if (table->TemplateCount() == 0) {
    statement.Execute("SELECT FIRST 1 ID FROM REPRESENTATION ORDER BY ID");
    const std::int32_t representation = statement.Fetch() ? ReadInt(statement, 1) : 0;
    statement.Execute("SELECT FIRST 1 ID FROM OBJECTTYPE ORDER BY ID");
    const std::int32_t objectType = statement.Fetch() ? ReadInt(statement, 1) : 0;
    statement.Prepare(
        "INSERT INTO OBJECT (NAME, MODELID, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID)  VALUES(?, NULL, ?, ?, "
        "?, ?) RETURNING ID");
    SetDbText(statement, 1, name);
    statement.Set(2, objectType);
    statement.Set(3, folder->GetPacket()->GetId());
    statement.Set(4, folder->GetId());
    statement.Set(5, representation);
    statement.Execute();
    id = ReadInt(statement, "ID");
  } else {
    const std::int32_t first = table->Template(0)->GetId();
    statement.Prepare(
        "INSERT INTO OBJECT (NAME, MODELID, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID) SELECT ?, NULL, "
        "OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID FROM OBJECT obj WHERE obj.ID = ? RETURNING ID");
    SetDbText(statement, 1, name);
    statement.Set(2, first);
    statement.Execute();
    id = ReadInt(statement, "ID");
    statement.Prepare(
        "INSERT INTO OBJECTATTRIBUTE (OBJECTID, ATTRIBUTEDESCRIPTIONID, ATTRIBUTENAMEID, CONCRETEVALUEID, NUMBER, "
        "ATTRTYPE, MEASURE, VARNAME, FORMULA, OLD_NUMBER) SELECT ?, ATTRIBUTEDESCRIPTIONID, ATTRIBUTENAMEID, NULL, "
        "NUMBER, ATTRTYPE, MEASURE, VARNAME, FORMULA, OLD_NUMBER FROM OBJECTATTRIBUTE atr WHERE atr.OBJECTID = ? ");
    statement.Set(1, id);
    statement.Set(2, first);
    statement.Execute();
    statement.Prepare(
        "INSERT INTO SPECIFICATION (LIBNAME, STYLENUMBER, IDOBJECT, FIRSTPART, SECONDPART) SELECT LIBNAME, "
        "STYLENUMBER, ?, FIRSTPART, SECONDPART FROM SPECIFICATION spc WHERE spc.IDOBJECT = ?");
    statement.Set(1, id);
    statement.Set(2, first);
    statement.Execute();
  }
  guard.Commit();
  return id;
}

std::int32_t TableOperation::CreateTemplateFor(CStandartSize* size, const std::wstring& name) {
  const std::int32_t old = size->GetTemplate()->GetId();
  TableOperation operation(ProviderOf(TableOf(size)));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "INSERT INTO OBJECT (NAME, MODELID, OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID) SELECT ?, MODELID, "
      "OBJECTTYPEID, PACKETID, FOLDERID, REPRESENTATIONID FROM OBJECT obj WHERE obj.ID = ? RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Set(2, old);
  statement.Execute();
  const std::int32_t id = ReadInt(statement, "ID");
  statement.Prepare("UPDATE STANDARDSIZE set OBJECTID = ? where ID = ?");
  statement.Set(1, id);
  statement.Set(2, size->GetId());
  statement.Execute();
  for (const char* sql :
       {"INSERT INTO OBJECTATTRIBUTE (OBJECTID, ATTRIBUTEDESCRIPTIONID, ATTRIBUTENAMEID, CONCRETEVALUEID, NUMBER, "
        "ATTRTYPE, MEASURE, VARNAME, FORMULA, OLD_NUMBER) SELECT ?, ATTRIBUTEDESCRIPTIONID, ATTRIBUTENAMEID, "
        "CONCRETEVALUEID, NUMBER, ATTRTYPE, MEASURE, VARNAME, FORMULA, OLD_NUMBER FROM OBJECTATTRIBUTE atr WHERE "
        "atr.OBJECTID = ?",
        "INSERT INTO OBJECTPROJECTION (FRAGMENTID, PROJECTIONID, VIEW_TYPE, OBJECTID) SELECT FRAGMENTID, PROJECTIONID, "
        "VIEW_TYPE, ? FROM OBJECTPROJECTION prj WHERE prj.OBJECTID = ?",
        "INSERT INTO SPECIFICATION (LIBNAME, STYLENUMBER, IDOBJECT, FIRSTPART, SECONDPART) SELECT LIBNAME, "
        "STYLENUMBER, ?, FIRSTPART, SECONDPART FROM SPECIFICATION spc WHERE spc.IDOBJECT = ?"}) {
    statement.Prepare(sql);
    statement.Set(1, id);
    statement.Set(2, old);
    statement.Execute();
  }
  guard.Commit();
  return id;
}

std::int32_t TableOperation::ObjectTypeId(IBPP::Statement& statement, const std::wstring& type) {
  constexpr const char* kUpsert = "UPDATE OR INSERT INTO OBJECTTYPE (SVAL) VALUES (?) MATCHING (SVAL) RETURNING ID";
  try {
    statement.Prepare(kUpsert);
    SetDbText(statement, 1, type);
    statement.Execute();
  } catch (const IBPP::Exception&) {
    // The empty catalog ships OBJECTTYPE rows with a generator still at 0,
    // so the first new type collides with them: move the generator past
    // them and try once more. A second failure is a real one.
    statement.Execute("select max(ID) from OBJECTTYPE");
    const std::int32_t largest = statement.Fetch() ? ReadInt(statement, 1) : 0;
    statement.Execute("SET GENERATOR GEN_OBJECTTYPE_ID to " + std::to_string(largest));
    statement.Prepare(kUpsert);
    SetDbText(statement, 1, type);
    statement.Execute();
  }
  return ReadInt(statement, 1);
}

bool TableOperation::SetTemplateType(CTemplate* owner, const std::wstring& type) {
  CFolder* folder = FolderOf(owner->GetTable());
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров нелья задать тип", "TableOperation::SetTemplateType");
    return false;
  }
  TableOperation operation(folder->GetPacket()->GetProvider());
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  const std::int32_t typeId = operation.ObjectTypeId(statement, type);
  statement.Prepare("UPDATE OBJECT set OBJECTTYPEID = ? WHERE ID = ?");
  statement.Set(1, typeId);
  statement.Set(2, owner->GetId());
  statement.Execute();
  guard.Commit();
  return true;
}

bool TableOperation::SetTemplateRepresentationData(CTemplate* owner, const unsigned char* data, std::int32_t length,
                                                   const std::wstring& digest) {
  CFolder* folder = FolderOf(owner->GetTable());
  if (folder->IsVirtual()) {
    Report(L"Для виртуальных фолдеров нелья задать представление", "TableOperation::SetTemplateRepresentationData");
    return false;
  }
  ByteData stored(data, length);
  stored.Compress();
  TableOperation operation(ProviderOf(owner->GetTable()));
  CommitGuard guard(operation);
  IBPP::Blob blob = operation.NewBlob();
  WriteWholeBlob(blob, std::span<const unsigned char>(stored.Data(), static_cast<std::size_t>(stored.Size())));
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("UPDATE OR INSERT INTO REPRESENTATION (DIGEST, DATA) VALUES (?, ?) MATCHING (DIGEST) RETURNING ID");
  SetDbText(statement, 1, digest);
  statement.Set(2, blob);
  statement.Execute();
  const std::int32_t id = ReadInt(statement, 1);
  statement.Prepare("UPDATE OBJECT set REPRESENTATIONID = ? WHERE ID = ?");
  statement.Set(1, id);
  statement.Set(2, owner->GetId());
  statement.Execute();
  guard.Commit();
  return true;
}
