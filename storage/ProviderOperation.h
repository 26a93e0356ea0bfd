// ProviderOperation: the SQL a data provider runs on its own behalf: the
// writability probe, the attribute dictionaries' look-ups, the texts that
// cross the dictionaries, and the clean-up of unused models and fragments.
// Each method is one operation scope of its own.
#pragma once

#include <cstdint>
#include <string>

#include "storage/BaseOperation.h"

class CDataProvider;

class ProviderOperation : public BaseOperation {
 public:
  // Tries a write that it never commits. Any failure, a failed attach
  // included, is a "no"; nothing is reported and nothing remains.
  static bool IsEditable(CDataProvider* provider) noexcept;

  // The id of the dictionary row of this text, made if missing.
  static std::int32_t AttributeNameId(CDataProvider* provider, const std::wstring& name);
  static std::int32_t AttributeDescriptionId(CDataProvider* provider, const std::wstring& description);

  // The description that an attribute of this name really carries (the
  // database's first pairing), or empty; and the mirror of it.
  static std::wstring DescriptionOfAttributeName(CDataProvider* provider, const std::wstring& name);
  static std::wstring AttributeNameOfDescription(CDataProvider* provider, const std::wstring& description);

  // Deletes MODEL rows no OBJECT uses and FRAGMENT rows no projection uses.
  static bool DeleteUnusedModelsAndFragments(CDataProvider* provider);

 private:
  explicit ProviderOperation(CDataProvider* provider) : BaseOperation(provider) {}
  std::int32_t ExecuteIdProcedure(const char* sql, const std::wstring& text);
  std::wstring FirstText(const char* sql, const std::wstring& argument);
};
