#include "storage/CProviderPool.h"

#include <algorithm>

#include "platform/Report.h"
#include "platform/CaseFold.h"
#include "storage/BaseOperation.h"
#include "storage/CDataProvider.h"
#include "storage/PacketOperation.h"

namespace {

// Database paths name one file however the client wrote them.
bool SameDatabasePath(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    const wchar_t a = left[i] == L'/' ? L'\\' : left[i];
    const wchar_t b = right[i] == L'/' ? L'\\' : right[i];
    if (!FoldEquals(a, b)) return false;
  }
  return true;
}

}  // namespace

CProviderPool::CProviderPool(std::wstring ulbPath) : ulbPath_(std::move(ulbPath)) {}

// Providers go in list order, as the catalog's temporary files expect.
CProviderPool::~CProviderPool() {
  for (auto& provider : providers_) provider.reset();
}

CDataProvider* CProviderPool::_GetProvider(std::int32_t index) const {
  if (index < 0 || index >= GetProviderCount()) {
    ReportIndexOutOfRange(index, GetProviderCount(), "CProviderPool::_GetProvider");
    return nullptr;
  }
  return providers_[static_cast<std::size_t>(index)].get();
}

CDataProvider* CProviderPool::FindProvider(std::wstring_view server, std::wstring_view database,
                                           std::wstring_view user) const {
  for (const auto& provider : providers_) {
    if (provider->GetServerName() == server && provider->GetDatabaseName() == database &&
        provider->GetUserName() == user) {
      return provider.get();
    }
  }
  return nullptr;
}

CDataProvider* CProviderPool::FindEqualConnection(std::wstring_view server, std::wstring_view database,
                                                  std::wstring_view user) const {
  for (const auto& provider : providers_) {
    if (SameDatabasePath(provider->GetDatabaseName(), database) && provider->GetServerName() == server &&
        provider->GetUserName() == user) {
      return provider.get();
    }
  }
  return nullptr;
}

CDataProvider* CProviderPool::_AddProvider(const std::wstring& server, const std::wstring& database,
                                           const std::wstring& user, const std::wstring& password) {
  if (CDataProvider* attached = FindEqualConnection(server, database, user)) return attached;
  auto provider = std::make_unique<CDataProvider>(server, database, user, password);
  if (!BaseOperation::BasicLoading(provider.get())) {
    Report(L"Не смогли провести начальную загрузку из базы данных", "CProviderPool::_AddProvider");
    return nullptr;
  }
  providers_.push_back(std::move(provider));
  return providers_.back().get();
}

CPacket* CProviderPool::FindPacket(const std::wstring& name) const {
  for (const auto& provider : providers_) {
    if (CPacket* packet = provider->GetPacketByName(name)) return packet;
  }
  return nullptr;
}

CPacket* CProviderPool::FindPacketOfProvider(std::size_t provider, const std::wstring& name) const {
  return providers_[provider]->GetPacketByName(name);
}

std::int32_t CProviderPool::FindStdSizeIdByOldReference(CPacket& packet, const std::wstring& oldIndex,
                                                        const std::wstring& oldName) {
  return PacketOperation::FindStdSizeIdByOldReference(&packet, oldIndex, oldName);
}

bool CProviderPool::_DeleteProvider(CDataProvider* provider) {
  const auto found = std::find_if(providers_.begin(), providers_.end(),
                                  [provider](const auto& owned) { return owned.get() == provider; });
  if (found == providers_.end()) {
    Report(L"Не найден провайдер среди списка доступных провайдеров", "CProviderPool::_DeleteProvider");
    return false;
  }
  std::unique_ptr<CDataProvider> removed = std::move(*found);
  providers_.erase(found);
  return true;
}
