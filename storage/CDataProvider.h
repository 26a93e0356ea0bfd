// CDataProvider: one catalog database as the library sees it. It holds the
// connection strings (never a connection: every operation attaches anew),
// the packets of the catalog, the two attribute dictionaries and the
// parameters read so far.
//
// Owned by its CProviderPool. Not thread-safe: every use runs under the frame
// lock, except a packet load's worker tasks, which only read the connection
// strings and the dictionaries while no export can run.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "content/ByteData.h"
#include "content/ModelInfo.h"
#include "storage/ProviderCatalogStore.h"
#include "storage/ProviderContentStore.h"

class CPacket;
class CStdModel;
class CStdPrj;
class CTemplate;
struct FileRecord;

class CDataProvider {
 public:
  CDataProvider(std::wstring server, std::wstring database, std::wstring user, std::wstring password);
  ~CDataProvider();

  CDataProvider(const CDataProvider&) = delete;
  CDataProvider& operator=(const CDataProvider&) = delete;

  // The catalog's database as the packets and folders of this provider reach
  // it; lives as long as the provider.
  ICatalogStore& Store() { return store_; }
  IContentStore& Content() { return content_; }

  // Fixed for the provider's life.
  const std::wstring& GetServerName() const { return server_; }
  const std::wstring& GetDatabaseName() const { return database_; }
  const std::wstring& GetUserName() const { return user_; }
  const std::wstring& GetPassword() const { return password_; }

  // Packets, in the order of the load, then of creation.
  std::int32_t GetPacketCount() const { return static_cast<std::int32_t>(packets_.size()); }
  CPacket* _GetPacket(std::int32_t index) const;
  // The first packet with exactly this name; loads nothing.
  CPacket* GetPacketByName(const std::wstring& name) const;
  void AppendPacket(std::unique_ptr<CPacket> packet);
  // Room for the packets of a whole catalog, once, at the first load.
  void ReservePackets();
  CPacket* _AddPacket(const std::wstring& name);
  bool _ReNamePacket(CPacket* packet, const std::wstring& name);
  // Forgets the packet and destroys its tree; the database keeps it.
  bool _ClearPacketCache(CPacket* packet);

  // The attribute dictionaries: id to text, as loaded and as looked up.
  void SetAttributeName(std::int32_t id, std::wstring name) { attributeNames_[id] = std::move(name); }
  void SetAttributeDescription(std::int32_t id, std::wstring text) { attributeDescriptions_[id] = std::move(text); }
  const std::map<std::int32_t, std::wstring>& AttributeNames() const { return attributeNames_; }
  const std::map<std::int32_t, std::wstring>& AttributeDescriptions() const { return attributeDescriptions_; }
  // The id of a text, from memory or else from the database, which makes the
  // row if there is none.
  std::int32_t GetAttributeNameId(const std::wstring& name);
  std::int32_t GetAttributeDescriptionId(const std::wstring& description);

  // A BASE_PARAM value, remembered once read; null with reports when the
  // catalog has none.
  const wchar_t* _GetParam(const std::wstring& name, const std::wstring& tag);

  // Drops everything read from the catalog: packets, dictionaries,
  // parameters, and the content with the files written for it. Only the
  // connection strings and the packets' cached thumbnails stay.
  void ClearCaches();

  // Content, read from the catalog once per id for the provider's life. The
  // files stay until ClearCaches; the slots hold the last thumbnail asked
  // for, whose bytes stay valid until the next one of their kind.
  const ModelInfo* GetModelInfo(CStdModel* model);
  const std::wstring* _GetFragmentFile(CStdPrj* projection);
  const ByteData* GetModelIcon(std::int32_t modelId);
  // From the packet's cached thumbnails, else the slot.
  const ByteData* GetFragmentIcon(std::int32_t packetId, std::int32_t fragmentId);

  const std::wstring* _GetFilePath(const FileRecord& record);
  // The template's specification records, read on the first request.
  const SpecList& GetSpecs(CTemplate* owner);
  const SpecList* CachedSpecs(std::int32_t templateId) const {
    const auto found = specCache_.find(templateId);
    return found == specCache_.end() ? nullptr : &found->second;
  }
  // Forgets the template's records; their handles die.
  void DropSpecs(std::int32_t templateId) { specCache_.erase(templateId); }
  const ByteData* GetRepresentation(std::int32_t templateId);
  void ForgetRepresentation() { representationSlot_ = Slot{}; }

  // Every fragment thumbnail of the packet, read at once and kept until
  // dropped again; a client browsing the packet then reads none singly.
  bool _CacheData(CPacket* packet);
  bool _ClearDataCache(CPacket* packet);

 private:
  struct Param {
    std::wstring name;
    std::wstring tag;
    std::wstring value;
  };

  std::vector<std::unique_ptr<CPacket>> packets_;
  std::map<std::int32_t, std::wstring> attributeNames_;
  std::map<std::int32_t, std::wstring> attributeDescriptions_;
  // One heap record per parameter, so that a returned value stays put while
  // the list grows.
  std::vector<std::unique_ptr<Param>> params_;

  // A cache of one entry: the last id asked for and what it gave, null for
  // a failed read. The key -1 is none.
  struct Slot {
    std::int32_t key = -1;
    ByteDataPtr value;

    // The value for `id`, read by `read` unless the slot holds it already.
    // The old bytes go first: a client may hold only one of each kind.
    template <typename Read>
    const ByteData* Get(std::int32_t id, Read&& read) {
      if (key != id) {
        *this = Slot{};
        value = read();
        key = id;
      }
      return value.get();
    }
  };
  // Deletes the files written for clients and forgets all content.
  void ClearContent();

  std::map<std::int32_t, std::unique_ptr<ModelInfo>> modelCache_;
  std::map<std::int32_t, std::wstring> fragmentFileCache_;
  std::map<std::int32_t, std::wstring> attachedFileCache_;
  std::map<std::int32_t, SpecList> specCache_;
  Slot modelIconSlot_;
  Slot fragmentIconSlot_;
  Slot representationSlot_;
  std::map<std::int32_t, std::map<std::int32_t, ByteDataPtr>> packetThumbnails_;
  const std::wstring server_;
  const std::wstring database_;
  const std::wstring user_;
  const std::wstring password_;
  ProviderCatalogStore store_{*this};
  ProviderContentStore content_{*this};
};
