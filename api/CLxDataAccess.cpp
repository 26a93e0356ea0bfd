#include "api/CLxDataAccess.h"

#include <cwctype>
#include <memory>

#include "api/LibraryState.h"
#include "api/Report.h"
#include "storage/CProviderPool.h"

namespace {

bool EqualLowered(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (std::towlower(static_cast<wint_t>(left[i])) != std::towlower(static_cast<wint_t>(right[i]))) return false;
  }
  return true;
}

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
