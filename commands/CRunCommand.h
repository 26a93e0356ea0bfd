// CRunCommand: one kind of command in a command document, registered in the
// command table under its name. Commands hold no state, so one instance of
// each kind serves every document.
#pragma once

#include <map>
#include <string>

#include <pugixml.hpp>

class ICommandSession;

class CRunCommand {
 public:
  virtual ~CRunCommand() = default;
  // True when the command did its work; a refusal is reported and false.
  virtual bool Run(ICommandSession& session, const pugi::xml_node& command) = 0;
};

// The kinds of command by name; fixed once the library is loaded.
const std::map<std::wstring, CRunCommand*>& CommandTable();
