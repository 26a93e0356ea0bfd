// PacketOperation: the SQL behind packets and folders. Every method is one
// operation scope with one committed transaction; memory is left to the
// caller, who changes it only after the method succeeded.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "storage/BaseOperation.h"

class CDataProvider;
class CFolder;
class CPacket;

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

 private:
  explicit PacketOperation(CDataProvider* provider) : BaseOperation(provider) {}
  // One prepared statement, its parameters set by `bind`, in one committed
  // transaction of its own.
  static void ExecuteCommitted(CDataProvider* provider, const char* sql,
                               const std::function<void(IBPP::Statement&)>& bind);
};
