#include "api/CLxDataAccess.h"

#include <cwctype>
#include <memory>

#include "api/LibraryState.h"
#include "api/Report.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/CProviderPool.h"

namespace {

bool EqualLowered(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (std::towlower(static_cast<wint_t>(left[i])) != std::towlower(static_cast<wint_t>(right[i]))) return false;
  }
  return true;
}

std::wstring Lowered(std::wstring_view text) {
  std::wstring lowered(text);
  for (wchar_t& ch : lowered) ch = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(ch)));
  return lowered;
}

// A path with every run of separators, of either kind, as one '/'.
std::wstring PathElements(std::wstring_view path) {
  std::wstring normal;
  normal.reserve(path.size());
  for (wchar_t ch : path) {
    const bool separator = ch == L'/' || ch == L'\\';
    if (!separator) {
      normal += ch;
    } else if (normal.empty() || normal.back() != L'/') {
      normal += L'/';
    }
  }
  return normal;
}

bool SamePath(std::wstring_view left, std::wstring_view right) { return PathElements(left) == PathElements(right); }

}  // namespace

CProviderPool* CLxDataAccess::GetPool(const std::wstring& libraryName) {
  const auto found = lx_api::Registry().find(libraryName);
  return found == lx_api::Registry().end() ? nullptr : found->second.get();
}

CProviderPool* CLxDataAccess::GetPoolForUlbPath(std::wstring_view ulbPath) {
  for (const auto& [name, pool] : lx_api::Registry()) {
    if (pool && EqualLowered(pool->GetUlbPath(), ulbPath)) return pool.get();
  }
  return nullptr;
}

CProviderPool* CLxDataAccess::AddPool(const std::wstring& libraryName, std::wstring_view ulbPath) {
  auto [entry, inserted] = lx_api::Registry().try_emplace(libraryName);
  // The entry "" -> null exists from the start, so the empty name lands here.
  if (!inserted) return entry->second.get();
  try {
    entry->second = std::make_unique<CProviderPool>(std::wstring(ulbPath));
  } catch (...) {
    lx_api::Registry().erase(entry);
    throw;
  }
  return entry->second.get();
}

std::wstring CLxDataAccess::GetLibraryName(const CProviderPool* pool) {
  for (const auto& [name, owned] : lx_api::Registry()) {
    if (owned && owned.get() == pool) return name;
  }
  return {};
}

void CLxDataAccess::ReloadProvider(std::wstring_view server, std::wstring_view database) {
  const std::wstring wantedServer = Lowered(server);
  const std::wstring wantedDatabase = Lowered(database);
  for (const auto& [name, pool] : lx_api::Registry()) {
    if (!pool) continue;
    // The count is read anew for every index: a load may report, never add.
    for (std::int32_t index = 0; index < pool->GetProviderCount(); ++index) {
      CDataProvider* provider = pool->ProviderAt(static_cast<std::size_t>(index));
      if (!SamePath(Lowered(provider->GetServerName()), wantedServer)) continue;
      if (!SamePath(Lowered(provider->GetDatabaseName()), wantedDatabase)) continue;
      provider->ClearCaches();
      BaseOperation::BasicLoading(provider);  // a failed load has reported
    }
  }
}

bool CLxDataAccess::_DeleteProviderPool(CProviderPool* pool) {
  auto& registry = lx_api::Registry();
  for (auto entry = registry.begin(); entry != registry.end(); ++entry) {
    if (entry->second && entry->second.get() == pool) {
      std::unique_ptr<CProviderPool> removed = std::move(entry->second);
      registry.erase(entry);
      return true;
    }
  }
  lx_api::Report(L"Не найден провайдер среди списка доступных провайдеров", "CLxDataAccess::_DeleteProviderPool");
  return false;
}
