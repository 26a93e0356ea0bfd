// Small helpers shared by the ...Operation classes: the provider that an
// object of the catalog tree belongs to, integer columns read with NULL as
// 0, and the template split that writes on one size run first.
#pragma once

#include <cstdint>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "platform/Report.h"
#include "storage/ibpp/Statement.h"

inline CDataProvider* ProviderOf(const CFolder* folder) { return folder->GetPacket()->GetProvider(); }
inline CDataProvider* ProviderOf(const CFolderTable* table) { return ProviderOf(table->GetFolder()); }
inline CFolderTable* TableOf(const CStandartSize* size) { return size->GetTemplate()->GetTable(); }
inline CDataProvider* ProviderOf(const CStandartSize* size) { return ProviderOf(TableOf(size)); }

// Gives the size a template of its own if it shares one, so that a write
// does not reach its neighbours; false with a report for `method` when the
// split failed.
inline bool SplitOffSize(CStandartSize* size, const char* method) {
  if (TableOf(size)->CreateTemplateFor(size)) return true;
  Report(L"Не могли перенести типоразмер в новый темплейт", method);
  return false;
}

template <typename Column>
std::int32_t ReadInt(const IBPP::Statement& statement, Column column) {
  std::int32_t value = 0;
  statement.Get(column, value);
  return value;
}
