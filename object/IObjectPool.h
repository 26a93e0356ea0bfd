// IObjectPool and IObjectLibraries: what placing and loading objects needs of
// the provider pools, declared here so that objects never see the storage
// layer. A provider pool implements IObjectPool over its providers; the
// registry of application libraries implements IObjectLibraries.
//
// Called under the frame lock only. A database failure is thrown and
// unwinds to the frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

class CPacket;

class IObjectPool {
 public:
  virtual ~IObjectPool() = default;

  // The first packet of exactly this name among all providers, or null.
  virtual CPacket* FindPacket(const std::wstring& name) const = 0;
  virtual std::size_t ProviderCount() const = 0;
  // The first packet of exactly this name among the packets of the provider
  // at `provider`, or null.
  virtual CPacket* FindPacketOfProvider(std::size_t provider, const std::wstring& name) const = 0;

  // The id of the size that an old reference names in the packet's
  // database: -1 when no row has it, 0 for a row whose id is NULL.
  virtual std::int32_t FindStdSizeIdByOldReference(CPacket& packet, const std::wstring& oldIndex,
                                                   const std::wstring& oldName) = 0;
};

class IObjectLibraries {
 public:
  virtual ~IObjectLibraries() = default;

  // The pool registered under this exact name, or null.
  virtual IObjectPool* FindPool(const std::wstring& libraryName) = 0;
  // The name `pool` is registered under, empty when it is not registered.
  virtual std::wstring NameOf(const IObjectPool& pool) = 0;
};
