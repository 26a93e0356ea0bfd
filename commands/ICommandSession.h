// ICommandSession: what a command of a command document needs of its
// provider: the packets to find sizes in, and the SQL that replaces
// specification records, all on the one transaction that holds every command
// of the document. Declared here so that commands never see SQL; the storage
// layer implements it over one operation scope.
//
// Database failures are thrown and end the document's transaction. Used by
// one document run under the frame lock.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CPacket;

class ICommandSession {
 public:
  virtual ~ICommandSession() = default;

  // The first packet of the provider with exactly this name, or null.
  virtual CPacket* FindPacket(const std::wstring& name) = 0;
  // The ids of the template's specification records as this transaction
  // sees them.
  virtual std::vector<std::int32_t> SpecIds(std::int32_t templateId) = 0;

  virtual void DeleteSpecColumns(std::int32_t specId) = 0;
  virtual void DeleteSpecs(std::int32_t templateId) = 0;
  // The new record's id.
  virtual std::int32_t InsertSpec(const std::wstring& libName, std::int32_t styleNumber, std::int32_t templateId,
                                  std::int32_t firstPart, std::int32_t secondPart) = 0;
  virtual void InsertSpecColumn(std::int32_t number, const std::wstring& formula, std::int32_t specId) = 0;
};
