#include "commands/CommandDocument.h"

#include <sstream>
#include <string>

#include "commands/CRunCommand.h"
#include "commands/CSpecCommand.h"
#include "platform/TextCodec.h"

const std::map<std::wstring, CRunCommand*>& CommandTable() {
  static CSpecCommand createSpec;
  static const std::map<std::wstring, CRunCommand*> table{{L"create_spec", &createSpec}};
  return table;
}

bool ParseCommandDocument(std::wstring_view text, pugi::xml_document& document) {
  std::wistringstream stream{std::wstring(text)};
  return static_cast<bool>(document.load(stream));
}

int RunCommandDocument(const pugi::xml_document& document, ICommandSession& session) {
  const std::map<std::wstring, CRunCommand*>& table = CommandTable();
  int run = 0;
  for (const pugi::xml_node& command : document.child("commands").children("command")) {
    const auto kind = table.find(Utf8ToWide(command.attribute("type").as_string()));
    if (kind == table.end()) continue;
    ++run;
    kind->second->Run(session, command);
  }
  return run;
}
