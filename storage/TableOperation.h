// TableOperation: the SQL behind folder tables: columns, rows, values and
// templates. Each method is one operation scope with one transaction,
// committed at its end; the caller changes memory only after success.
#pragma once

#include <cstdint>
#include <string>

#include "formula/Value.h"
#include "storage/BaseOperation.h"

class CAttribute;
class CFolderTable;
class CStandartSize;
class CTemplate;

class TableOperation : public BaseOperation {
 public:
  // The column's row in every template of the table.
  static bool AddAttribute(CFolderTable* table, const std::wstring& name, const std::wstring& description,
                           std::int32_t type, std::int32_t number);
  // The column's rows and their values in every template of the folder; a
  // virtual folder is refused with a report.
  static bool DeleteAttribute(CAttribute* attribute);

  // The size's row and its attribute 11; gives the new size's id.
  static std::int32_t AddStdSize(CTemplate* owner, const std::wstring& identifier);
  static bool DeleteStdSize(CStandartSize* size);

  // Writes the size's own value (integer, double or text, by the value's
  // kind), first spelling a common value of the template out for all sizes.
  static bool SetValue(CAttribute* attribute, CStandartSize* size, const Value& value);
  static bool RemoveValue(CAttribute* attribute, CStandartSize* size);

  // A new template copied from the table's first one (type, representation,
  // columns without values, specifications), or a first one; 0 on refusal.
  static std::int32_t CreateNewTemplate(CFolderTable* table, const std::wstring& name);
  // A copy of the size's template, values, projections and all, that the
  // size moves to; gives the new template's id.
  static std::int32_t CreateTemplateFor(CStandartSize* size, const std::wstring& name);
  static bool SetTemplateType(CTemplate* owner, const std::wstring& type);
  // Stores the block once per digest and points the template at it; a
  // virtual folder is refused with a report.
  static bool SetTemplateRepresentationData(CTemplate* owner, const unsigned char* data, std::int32_t length,
                                            const std::wstring& digest);

 private:
  explicit TableOperation(CDataProvider* provider) : BaseOperation(provider) {}
  // Spells a template's common value out for all its sizes, on this
  // operation's statement. False, with a report, when the row is missing.
  bool MoveValueFromAtrToTemplateStd(IBPP::Statement& statement, CAttribute* attribute, CStandartSize* size);
  // The OBJECTTYPE row of this text, made if needed.
  std::int32_t ObjectTypeId(IBPP::Statement& statement, const std::wstring& type);
};
