// A catalog's content as the client interface shows it, one line per fact
// and sorted, so that two loads can be compared as wholes whatever order the
// database returned rows in.
#pragma once

#include <string>
#include <vector>

#include "LxDataAccess.h"

namespace lxtest {

// Every folder below `folder` (by path from it), every column of its table
// and every size with the value of every column.
std::vector<std::wstring> DumpFolder(LxFolder* folder);

// The text of a size's value of one column, "<none>" when it has none.
std::wstring ValueText(LxStdSize* size, LxAttribute* attribute);

}  // namespace lxtest
