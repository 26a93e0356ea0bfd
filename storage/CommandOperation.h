// CommandOperation: the one operation scope, and its statements, of a command
// document run. Every command of the document writes on it, so the document
// commits whole when at least one command of a known kind ran, and leaves no
// trace otherwise, or when anything throws.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "commands/ICommandSession.h"
#include "storage/BaseOperation.h"

class CommandOperation final : public BaseOperation, public ICommandSession {
 public:
  // True when the document parsed, at least one command ran and the
  // transaction committed. A malformed document is false with no report and
  // touches no database.
  static bool RunCommand(CDataProvider* provider, const std::wstring& text);

  CPacket* FindPacket(const std::wstring& name) override;
  void DeleteSpecColumns(std::int32_t specId) override;
  void DeleteSpecs(std::int32_t templateId) override;
  std::int32_t InsertSpec(const std::wstring& libName, std::int32_t styleNumber, std::int32_t templateId,
                          std::int32_t firstPart, std::int32_t secondPart) override;
  void InsertSpecColumn(std::int32_t number, const std::wstring& formula, std::int32_t specId) override;

 private:
  explicit CommandOperation(CDataProvider* provider);
  // The statement of `sql` on this scope, prepared on its first use. A
  // command alternates between its statements row by row, so one statement
  // re-prepared at every switch cost a prepare per row; a document of a
  // thousand commands runs four distinct texts.
  IBPP::Statement& Prepared(const char* sql);

  std::vector<std::pair<const char*, IBPP::Statement>> statements_;
};
