#include "api/CLxDataAccess.h"

#include <memory>

#include "api/LibraryState.h"
#include "platform/CaseFold.h"
#include "platform/Report.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/CProviderPool.h"

namespace {

// Library paths and connection strings are folded with the library's one
// case fold, not the host's locale, so that a lookup means the same in every
// host process.
std::wstring Folded(std::wstring_view text) {
  std::wstring folded(text);
  for (wchar_t& ch : folded) ch = FoldChar(ch);
  return folded;
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
  const auto found = Registry().find(libraryName);
  return found == Registry().end() ? nullptr : found->second.get();
}

CProviderPool* CLxDataAccess::GetPoolForUlbPath(std::wstring_view ulbPath) {
  for (const auto& [name, pool] : Registry()) {
    if (pool && FoldEquals(pool->GetUlbPath(), ulbPath)) return pool.get();
  }
  return nullptr;
}

CProviderPool* CLxDataAccess::AddPool(const std::wstring& libraryName, std::wstring_view ulbPath) {
  auto [entry, inserted] = Registry().try_emplace(libraryName);
  // The entry "" -> null exists from the start, so the empty name lands here.
  if (!inserted) return entry->second.get();
  try {
    entry->second = std::make_unique<CProviderPool>(std::wstring(ulbPath));
  } catch (...) {
    Registry().erase(entry);
    throw;
  }
  return entry->second.get();
}

std::wstring CLxDataAccess::GetLibraryName(const CProviderPool* pool) {
  for (const auto& [name, owned] : Registry()) {
    if (owned && owned.get() == pool) return name;
  }
  return {};
}

void CLxDataAccess::ReloadProvider(std::wstring_view server, std::wstring_view database) {
  const std::wstring wantedServer = Folded(server);
  const std::wstring wantedDatabase = Folded(database);
  for (const auto& [name, pool] : Registry()) {
    if (!pool) continue;
    // The count is read anew for every index: a load may report, never add.
    for (std::int32_t index = 0; index < pool->GetProviderCount(); ++index) {
      CDataProvider* provider = pool->ProviderAt(static_cast<std::size_t>(index));
      if (!SamePath(Folded(provider->GetServerName()), wantedServer)) continue;
      if (!SamePath(Folded(provider->GetDatabaseName()), wantedDatabase)) continue;
      provider->ClearCaches();
      BaseOperation::BasicLoading(provider);  // a failed load has reported
    }
  }
}

bool CLxDataAccess::_DeleteProviderPool(CProviderPool* pool) {
  auto& registry = Registry();
  for (auto entry = registry.begin(); entry != registry.end(); ++entry) {
    if (entry->second && entry->second.get() == pool) {
      std::unique_ptr<CProviderPool> removed = std::move(entry->second);
      registry.erase(entry);
      return true;
    }
  }
  Report(L"Не найден провайдер среди списка доступных провайдеров", "CLxDataAccess::_DeleteProviderPool");
  return false;
}

IObjectPool* RegisteredLibraries::FindPool(const std::wstring& libraryName) {
  return CLxDataAccess::GetPool(libraryName);
}

std::wstring RegisteredLibraries::NameOf(const IObjectPool& pool) {
  for (const auto& [name, owned] : Registry()) {
    if (owned && static_cast<const IObjectPool*>(owned.get()) == &pool) return name;
  }
  return {};
}
