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

// The kind and text of a size's value of one column ("i:12", "d:7.9",
// "s:Ст3"), "<none>" when it has none; numbers in the format given (null
// for the library's default) reach only calculated texts.
extern const NumberFormat kDumpFormat;
std::wstring ValueText(LxStdSize* size, LxAttribute* attribute, const NumberFormat* format = &kDumpFormat);

}  // namespace lxtest
