// CSpecCommand: the command "create_spec", which replaces the specification
// records of the template of one standard size (named by packet and
// identifier) with those the command lists. Every size of the template sees
// the new records; the cached list of the template is dropped.
#pragma once

#include "commands/CRunCommand.h"

class CSpecCommand final : public CRunCommand {
 public:
  bool Run(ICommandSession& session, const pugi::xml_node& command) override;
};
