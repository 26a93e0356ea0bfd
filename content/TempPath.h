// Names for the files that the library writes for its clients to open:
// models (".qmx"), fragments (".qfx") and attached files. A name that is
// taken, by an earlier file of this run or one a finished process left
// behind, gets a number in brackets, starting at 2.
//
// The folder is fixed on the first call of the process (TMP, else TMPDIR,
// else /tmp); thread-safe.
#pragma once

#include <string>

// A full path that did not exist when it was tried: folder/name.ext, else
// folder/name (2).ext, folder/name (3).ext and so on. Creates nothing.
std::wstring MakeTempPath(const std::wstring& name, const std::wstring& extension);
