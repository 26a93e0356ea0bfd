#include "object/CObjectHelper.h"

#include <string_view>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CPacket.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "object/BufferReader.h"
#include "object/BufferWriter.h"
#include "object/IObjectPool.h"
#include "object/ObjectFormat.h"
#include "platform/Report.h"

namespace {

constexpr const char* kLoadObject = "CObjectHelper::_LoadObject";
constexpr const char* kCreateObjectOld = "CObjectHelper::_CreateObject_OLD";

constexpr std::wstring_view kRenamedPacket = L"Отводы круглого сечения ВСН 353-86";
constexpr std::wstring_view kRenamedFrom = L"DT#080#010#";
constexpr std::wstring_view kRenamedTo = L"DT#080#030#";

// Step 7 of a load: a library id that the registry knows picks its pool; an
// empty one becomes the name the argument pool is registered under.
IObjectPool& ChoosePool(IObjectPool& pool, IObjectLibraries& libraries, std::wstring& libraryId) {
  if (libraryId.empty()) {
    libraryId = libraries.NameOf(pool);
    return pool;
  }
  IObjectPool* named = libraries.FindPool(libraryId);
  return named != nullptr ? *named : pool;
}

// The elevation of 20110202 lands among the own values when the size's
// table has such a column.
void ReadElevation(BufferReader& reader, const CStandartSize* size, CObject::ValueMap& values) {
  double elevation = 0.0;
  reader.ReadDouble(elevation);
  if (size == nullptr) return;
  const CFolderTable* table = size->GetTemplate()->GetTable();
  if (table->FindAttribute(L"elevation") != nullptr) values[L"elevation"] = elevation;
}

}  // namespace

CStandartSize* CObjectHelper::FindStdSizeInPool(const IObjectPool& pool, const std::wstring& packetName,
                                                const std::wstring& sizeId) {
  for (std::size_t provider = 0; provider < pool.ProviderCount(); ++provider) {
    CPacket* packet = pool.FindPacketOfProvider(provider, packetName);
    if (packet == nullptr) continue;
    if (CStandartSize* size = packet->FindStdSize(sizeId)) return size;
  }
  return nullptr;
}

CStandartSize* CObjectHelper::FindRenamedStdSize(const IObjectPool& pool, const std::wstring& packetName,
                                                 const std::wstring& sizeId) {
  if (packetName != kRenamedPacket || !sizeId.starts_with(kRenamedFrom)) return nullptr;
  return FindStdSizeInPool(pool, packetName, std::wstring(kRenamedTo) + sizeId.substr(kRenamedFrom.size()));
}

std::unique_ptr<CObject> CObjectHelper::CreateObject(CStandartSize* size, const std::wstring& libraryId) {
  auto object = std::make_unique<CObject>();
  object->BindStdSize(size, libraryId, true, true);
  return object;
}

std::unique_ptr<CObject> CObjectHelper::_CreateObject_OLD(IObjectPool& pool, const std::wstring& packetName,
                                                          const std::wstring& oldIndex, const std::wstring& oldName,
                                                          const std::wstring& libraryId) {
  if (CStandartSize* size = FindStdSizeInPool(pool, packetName, oldIndex)) return CreateObject(size, libraryId);
  CPacket* packet = pool.FindPacket(packetName);
  if (packet == nullptr) {
    Report(L"Не найден пакет " + packetName, kCreateObjectOld);
    return nullptr;
  }
  const std::int32_t id = pool.FindStdSizeIdByOldReference(*packet, oldIndex, oldName);
  if (id < 0) {
    Report(L"Не нашли типоразмер по старому ID = " + oldIndex + L" и старому имени" + oldName + L" в пакете " +
               packetName,
           kCreateObjectOld);
    return nullptr;
  }
  CStandartSize* size = packet->GetRootFolder() != nullptr ? packet->GetRootFolder()->FindStdSizeById(id) : nullptr;
  if (size == nullptr) {
    Report(L"Не найден типоразмер " + std::to_wstring(id), kCreateObjectOld);
    return nullptr;
  }
  return CreateObject(size, libraryId);
}

std::unique_ptr<CObject> CObjectHelper::_LoadObject(IObjectPool& pool, IObjectLibraries& libraries,
                                                    const unsigned char* buffer, std::int32_t size,
                                                    bool keepIfMissing) {
  if (buffer == nullptr) {
    Report(L"Передан нулевой указатель на буфер", kLoadObject);
    return nullptr;
  }
  if (size <= 0) {
    Report(L"Передан неверное значение размера", kLoadObject);
    return nullptr;
  }
  BufferReader reader(buffer, static_cast<std::size_t>(size));
  ObjectHeader header = ReadObjectHeader(reader);
  if (!IsObjectVersion(header.version)) {
    Report(L"Неподдерживаемая версия данных для типоразмера:\nПакет объектов: " + header.packetName +
               L", ID типоразмера: " + header.stdSizeId,
           kLoadObject);
    return nullptr;
  }
  std::wstring libraryId;
  if (header.version == kLibraryVersion) reader.ReadString(libraryId);
  const IObjectPool& chosen = ChoosePool(pool, libraries, libraryId);
  CStandartSize* stdSize = FindStdSizeInPool(chosen, header.packetName, header.stdSizeId);
  if (stdSize == nullptr) stdSize = FindRenamedStdSize(chosen, header.packetName, header.stdSizeId);
  if (stdSize == nullptr && !keepIfMissing) {
    Report(L"В пакете " + header.packetName + L" отсутствует типоразмер " + header.stdSizeId, kLoadObject);
    return nullptr;
  }

  CObject::ValueMap values;
  if (header.version >= kNamedValuesVersion) {
    values = ReadValuesByName(reader);
  } else if (stdSize != nullptr) {
    values = ReadValuesByNumber(reader, *stdSize->GetTemplate());
  }
  if (header.version == kElevationVersion) ReadElevation(reader, stdSize, values);

  // The view check of binding chooses a view only for the buffer's own to
  // replace it; it is left out when the buffer has both fields, which also
  // spares a load the reading of every size's projections.
  std::wstring viewName;
  const bool hasViewName = reader.ReadString(viewName);
  std::int32_t viewType = 0;
  const bool hasViewType = reader.ReadInt(viewType);
  auto object = std::make_unique<CObject>();
  object->BindStdSize(stdSize, libraryId, false, true, !(hasViewName && hasViewType));
  object->SetIdentity(std::move(header.packetName), std::move(header.stdSizeId));
  object->SetLibraryId(std::move(libraryId));
  object->Values() = std::move(values);
  object->SetView(hasViewName ? std::move(viewName) : std::wstring(object->GetViewName()),
                  hasViewType ? static_cast<std::uint32_t>(viewType) : object->GetViewType());
  if (header.version >= kBlocksVersion) ReadBlocks(reader, object->BufValues());
  return object;
}

bool CObjectHelper::_SaveObject(const CObject& object, unsigned char* buffer, std::int32_t capacity,
                                std::uint32_t* written, std::int32_t selector) {
  *written = 0;
  if (selector != 0 && selector != 1) {
    Report(L"Неизвестный селектор версии данных: " + std::to_wstring(selector), "CObjectHelper::_SaveObject");
    return false;
  }
  BufferWriter writer(buffer, capacity > 0 ? static_cast<std::size_t>(capacity) : 0);
  WriteObject(object, selector == 0 ? kBlocksVersion : kLibraryVersion, writer);
  *written = static_cast<std::uint32_t>(writer.Written());
  return *written != 0;
}

bool CObjectHelper::GetPacketInfo(const unsigned char* buffer, std::int32_t size, std::wstring& packetName,
                                  std::wstring& stdSizeId, std::wstring& libraryId) {
  packetName.clear();
  stdSizeId.clear();
  libraryId.clear();
  if (size < 0) return false;
  if (buffer == nullptr || size == 0) return true;
  BufferReader reader(buffer, static_cast<std::size_t>(size));
  ObjectHeader header = ReadObjectHeader(reader);
  packetName = std::move(header.packetName);
  stdSizeId = std::move(header.stdSizeId);
  if (header.version >= kLibraryVersion) reader.ReadString(libraryId);
  return true;
}
