#pragma once
#include <string>
#include <string_view>

#include "LxDataAccess.h"

namespace lxcat {

// Folder paths are written as the designers see them: 'Packet\Folder\Sub'.
// A path of the packet alone names its root folder. Null when any step is
// missing; names compare exactly.
LxFolder* FindFolder(LxDataProvider* provider, std::wstring_view path);

// The same form for a folder the library hands out, packet name first.
std::wstring FolderPath(LxFolder* folder);

}  // namespace lxcat
