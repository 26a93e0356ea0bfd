// Where the library and its host live on disk. Both are absolute paths with
// '/' separators; an empty result means the system could not tell.
#pragma once

#include <string>
#include <string_view>

// The file of the shared library that contains this code.
std::wstring LibraryFilePath();

// The host process's own executable.
std::wstring ExecutableFilePath();

// The part of a path before its last separator, '/' or '\\' alike; empty when
// the path has no separator.
std::wstring DirectoryOf(std::wstring_view path);

