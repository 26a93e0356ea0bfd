// Small helpers shared by the ...Operation classes: the provider that an
// object of the catalog tree belongs to, and integer columns read with NULL
// as 0.
#pragma once

#include <cstdint>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "storage/ibpp/Statement.h"

inline CDataProvider* ProviderOf(const CFolder* folder) { return folder->GetPacket()->GetProvider(); }
inline CDataProvider* ProviderOf(const CFolderTable* table) { return ProviderOf(table->GetFolder()); }
inline CFolderTable* TableOf(const CStandartSize* size) { return size->GetTemplate()->GetTable(); }
inline CDataProvider* ProviderOf(const CStandartSize* size) { return ProviderOf(TableOf(size)); }

template <typename Column>
std::int32_t ReadInt(const IBPP::Statement& statement, Column column) {
  std::int32_t value = 0;
  statement.Get(column, value);
  return value;
}
