// CProviderPool: the catalog databases that make up one application library.
// Owns its providers, in the order they were added; a provider's index is its
// place in that order. Owned by the registry (CLxDataAccess).
//
// Placed objects find their sizes and old references through it
// (IObjectPool).
//
// Not thread-safe: every use runs under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "object/IObjectPool.h"

class CDataProvider;
class CPacket;

class CProviderPool final : public IObjectPool {
 public:
  explicit CProviderPool(std::wstring ulbPath);
  ~CProviderPool() override;

  CProviderPool(const CProviderPool&) = delete;
  CProviderPool& operator=(const CProviderPool&) = delete;

  const std::wstring& GetUlbPath() const { return ulbPath_; }
  std::int32_t GetProviderCount() const { return static_cast<std::int32_t>(providers_.size()); }

  // Creates the provider and reads its catalog's packets, folders and
  // dictionaries, or returns the attached provider of an equal connection.
  // Null with a report when the load fails; database errors are thrown.
  CDataProvider* _AddProvider(const std::wstring& server, const std::wstring& database, const std::wstring& user,
                              const std::wstring& password);

  // The first packet of that exact name among all providers; loads nothing.
  CPacket* FindPacket(const std::wstring& name) const override;

  // IObjectPool.
  std::size_t ProviderCount() const override { return providers_.size(); }
  CPacket* FindPacketOfProvider(std::size_t provider, const std::wstring& name) const override;
  std::int32_t FindStdSizeIdByOldReference(CPacket& packet, const std::wstring& oldIndex,
                                           const std::wstring& oldName) override;

  // The provider at `index` with no checks; for walks that know the count.
  CDataProvider* ProviderAt(std::size_t index) const { return providers_[index].get(); }

  // The provider at `index`, or null with a report when out of range.
  CDataProvider* _GetProvider(std::int32_t index) const;

  // First provider whose server, database path and user are exactly these.
  CDataProvider* FindProvider(std::wstring_view server, std::wstring_view database, std::wstring_view user) const;

  // Removes and destroys the provider with everything below it; reports and
  // returns false when the provider is not in this pool.
  bool _DeleteProvider(CDataProvider* provider);

 private:
  // An attached provider whose connection is equal: the database path
  // compared with '/' as '\\' and Latin and Russian case folded, server and
  // user exactly. The password plays no part.
  CDataProvider* FindEqualConnection(std::wstring_view server, std::wstring_view database,
                                     std::wstring_view user) const;

  std::vector<std::unique_ptr<CDataProvider>> providers_;
  const std::wstring ulbPath_;  // never changes after creation
};
