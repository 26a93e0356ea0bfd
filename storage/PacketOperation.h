// PacketOperation: the SQL behind packets and folders, and the reads of what
// hangs on sizes and templates besides models and projections: attached
// files, specification records, representation data. Every method is one
// operation scope with one transaction, committed when it writes; memory is
// left to the caller, who changes it only after the method succeeded.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "content/ByteData.h"
#include "content/IContentStore.h"
#include "storage/BaseOperation.h"

class CDataProvider;
class CFolder;
class CPacket;
class CStdFiles;
class CTemplate;
struct FileRecord;

class PacketOperation : public BaseOperation {
 public:
  // Writes the root folder and the packet row; the packet comes back with
  // its root folder and not loaded.
  static std::unique_ptr<CPacket> AddPacket(CDataProvider* provider, const std::wstring& name);
  static bool RenamePacket(CPacket* packet, const std::wstring& name);

  // A child of a virtual folder is refused with a report (null).
  static std::unique_ptr<CFolder> AddChildFolder(CFolder* parent, const std::wstring& name);
  // A virtual folder is refused with a report (false).
  static bool RenameFolder(CFolder* folder, const std::wstring& name);
  // The folder's row with the templates filed under it, their sizes, values
  // and attributes.
  static bool DeleteFolder(CFolder* folder);
  static bool MoveFolder(CFolder* folder, CFolder* newParent);

  // Appends the size's file records, in the catalog's order.
  static bool LoadFiles(CStdFiles* files);
  // The content of an attached file; null with a report.
  static ByteDataPtr GetFile(CDataProvider* provider, const FileRecord& record);
  // The template's specification records, without their columns.
  static SpecList LoadSpecs(CDataProvider* provider, CTemplate* owner);
  static bool LoadSpecColumns(CDataProvider* provider, std::int32_t specId,
                              std::vector<CSpec::StoredColumn>& columns);
  // The id of the size an old reference names in the packet: -1 without a
  // row, 0 for a NULL id.
  static std::int32_t FindStdSizeIdByOldReference(CPacket* packet, const std::wstring& oldIndex,
                                                  const std::wstring& oldName);
  // The template's representation data; null with a report.
  static ByteDataPtr GetRepresitation(CDataProvider* provider, std::int32_t templateId);

 private:
  explicit PacketOperation(CDataProvider* provider) : BaseOperation(provider) {}
  // One prepared statement, its parameters set by `bind`, in one committed
  // transaction of its own.
  static void ExecuteCommitted(CDataProvider* provider, const char* sql,
                               const std::function<void(IBPP::Statement&)>& bind);
};
