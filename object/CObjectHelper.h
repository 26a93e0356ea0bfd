// CObjectHelper: every way of making a placed object (from a size, from a
// buffer, from an old reference) and of finding the size a buffer names.
// A buffer names its size by text: packet name, size identifier and, in the
// newest version, the application library; what the catalog holds at load
// time decides whether the size is found.
//
// Stateless. Called under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "object/CObject.h"

class CStandartSize;
class IObjectLibraries;
class IObjectPool;

class CObjectHelper {
 public:
  // The first size of that identifier in the first packet of that name of
  // each provider in turn (a packet without it does not end the search).
  static CStandartSize* FindStdSizeInPool(const IObjectPool& pool, const std::wstring& packetName,
                                          const std::wstring& sizeId);
  // The one rename the catalog has had: bends of one standard moved from
  // the identifiers DT#080#010#... to DT#080#030#....
  static CStandartSize* FindRenamedStdSize(const IObjectPool& pool, const std::wstring& packetName,
                                           const std::wstring& sizeId);

  // A new object on `size`, stamped with the row's last change date.
  static std::unique_ptr<CObject> CreateObject(CStandartSize* size, const std::wstring& libraryId);
  static std::unique_ptr<CObject> _CreateObject_OLD(IObjectPool& pool, const std::wstring& packetName,
                                                    const std::wstring& oldIndex, const std::wstring& oldName,
                                                    const std::wstring& libraryId);
  // The object a buffer holds, from the pool its library id names in
  // `libraries` or else from `pool`. Without its size: null, or with
  // `keepIfMissing` an object that holds the buffer's content unbound.
  static std::unique_ptr<CObject> _LoadObject(IObjectPool& pool, IObjectLibraries& libraries,
                                              const unsigned char* buffer, std::int32_t size, bool keepIfMissing);

  // Writes the object in the version `selector` picks (0: 20160204, 1:
  // 20190222); false when nothing was written.
  static bool _SaveObject(const CObject& object, unsigned char* buffer, std::int32_t capacity,
                          std::uint32_t* written, std::int32_t selector);

  // The names a buffer opens with, looked up nowhere; the library id only
  // for 20190222 and above. False, with the texts empty, for a negative size.
  static bool GetPacketInfo(const unsigned char* buffer, std::int32_t size, std::wstring& packetName,
                            std::wstring& stdSizeId, std::wstring& libraryId);
};
