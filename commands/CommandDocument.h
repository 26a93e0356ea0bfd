// Command documents: XML that lists commands to run against a catalog as one
// transaction:
//
//   <commands>
//     <command type="create_spec">
//       <stdSize packet="..." id="..."/>
//       <spec libName="..." styleNum="1" firstPart="2" secondPart="3">
//         <column num="1" formula="..."/>
//       </spec>
//     </command>
//   </commands>
//
// Names are exact; anything else in the document is ignored.
#pragma once

#include <string_view>

#include <pugixml.hpp>

class ICommandSession;

// False for a document that does not parse.
bool ParseCommandDocument(std::wstring_view text, pugi::xml_document& document);

// Runs every command of a known kind in document order and gives how many
// ran, whatever each one's own result; unknown kinds are skipped silently.
int RunCommandDocument(const pugi::xml_document& document, ICommandSession& session);
