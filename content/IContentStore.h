// IContentStore: what the content hanging on standard sizes needs of its
// catalog database and of its provider's caches, declared here so that the
// content classes never see SQL. The provider implements it.
//
// Writes are committed transactions of their own; memory changes only after
// one returned success. A refusal comes back as false, null or 0 with a
// report; a database failure is thrown and unwinds to the frame. The writes
// that must not reach a size's neighbours give the size a template of its
// own first. Called under the frame lock only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "content/CSpec.h"

class ByteData;
class CStdFiles;
class CStdModel;
class CStdPrj;
class CStdProjs;
class CTemplate;
struct FileRecord;
struct ModelInfo;

// The specification records of one template, in the catalog's order.
using SpecList = std::vector<std::unique_ptr<CSpec>>;

class IContentStore {
 public:
  virtual ~IContentStore() = default;

  // The model of the size written to a file, read once per provider and id;
  // null with reports when it could not be had. Callers check the model id.
  virtual const ModelInfo* GetModelInfo(CStdModel* model) = 0;
  // The thumbnail of a model, in the provider's one-entry slot: valid until
  // another model's thumbnail is asked for. Null when there is none.
  virtual const ByteData* GetModelIcon(std::int32_t modelId) = 0;
  virtual std::int32_t FindModelByDigest(const std::wstring& digest) = 0;
  // A new MODEL row from two files; 0 with a report when a file could not
  // be stored.
  virtual std::int32_t CreateModel(const std::wstring& path, const std::wstring& iconPath, const std::wstring& digest,
                                   std::int32_t version) = 0;
  // Points the size's template at another model (0: none).
  virtual bool SetOtherModel(CStdModel* model, std::int32_t modelId) = 0;

  // The fragment of a projection written to a file, once per provider and
  // fragment; null with reports when it could not be had.
  virtual const std::wstring* GetFragmentFile(CStdPrj* projection) = 0;
  // The thumbnail of a fragment: from the thumbnails cached for the packet
  // if it has them, else from the one-entry slot. Null when there is none.
  virtual const ByteData* GetFragmentIcon(std::int32_t packetId, std::int32_t fragmentId) = 0;

  // Fills the list with the rows of its size's template.
  virtual bool LoadProjections(CStdProjs* list) = 0;
  // A new row of the list's template sharing the other projection's fragment.
  virtual std::unique_ptr<CStdPrj> CopyProjection(CStdProjs* list, const CStdPrj& other) = 0;
  // The FRAGMENT row of the digest, made from the two files if there is
  // none; 0 with a report when a file could not be stored.
  virtual std::int32_t AddFragment(const std::wstring& path, const std::wstring& iconPath,
                                   const std::wstring& digest) = 0;
  virtual std::unique_ptr<CStdPrj> AddProjection(CStdProjs* list, std::int32_t fragmentId, const std::wstring& digest,
                                                 const std::wstring& name, std::int32_t type,
                                                 std::int32_t viewType) = 0;
  virtual bool DeleteProjection(CStdPrj* projection) = 0;
  // Points the row at the direction of this type and name; gives back the
  // direction's id and name as the catalog has them.
  virtual bool UpdateProjectionType(CStdPrj* projection, std::int32_t type, const std::wstring& name,
                                    std::int32_t& projectionId, std::wstring& resolvedName) = 0;
  virtual bool UpdateViewType(CStdPrj* projection, std::int32_t viewType) = 0;
  virtual bool UpdateFragment(CStdPrj* projection, const CStdPrj& other) = 0;

  // Appends the size's file records; false when they could not be read.
  virtual bool LoadFiles(CStdFiles* files) = 0;
  // The file of the record written to the temporary folder, once per
  // provider and file id; null with reports.
  virtual const std::wstring* GetFilePath(const FileRecord& record) = 0;

  // The template's records, read once and kept until the caches are
  // cleared or a command replaces them.
  virtual const SpecList& GetSpecs(CTemplate* owner) = 0;
  // The template's records if they have been read, else null.
  virtual const SpecList* CachedSpecs(std::int32_t templateId) = 0;
  // Forgets the template's records; their handles die.
  virtual void DropSpecs(std::int32_t templateId) = 0;
  // The stored columns of a record; false when they could not be read.
  virtual bool LoadSpecColumns(std::int32_t specId, std::vector<CSpec::StoredColumn>& columns) = 0;

  // The template's representation data in the provider's one-entry slot;
  // null with a report when it has none.
  virtual const ByteData* GetRepresentation(std::int32_t templateId) = 0;
  // Empties the slot, so that the next read goes to the catalog.
  virtual void ForgetRepresentation() = 0;
  // Stores the block once per digest and points the template at it.
  virtual bool SetTemplateRepresentationData(CTemplate* owner, const unsigned char* data, std::int32_t length,
                                             const std::wstring& digest) = 0;
};
