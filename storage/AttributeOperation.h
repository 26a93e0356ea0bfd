// AttributeOperation: the one writer of existing OBJECTATTRIBUTE rows. A
// column is a row per template, so one write updates the row of the
// column's number in every template of the folder, in one transaction.
#pragma once

#include <cstdint>
#include <string>

#include "storage/BaseOperation.h"

class CAttribute;

class AttributeOperation : public BaseOperation {
 public:
  // False, with a report, for a column of a virtual folder; `column` is an
  // OBJECTATTRIBUTE column name of our own, never client text.
  static bool SetAtrParam(CAttribute* attribute, const char* column, std::int32_t value);
  static bool SetAtrParam(CAttribute* attribute, const char* column, const std::wstring& value);

 private:
  explicit AttributeOperation(CDataProvider* provider) : BaseOperation(provider) {}
  template <typename SetValue>
  static bool Update(CAttribute* attribute, const char* column, SetValue&& setValue);
};
