// The file system as the library sees it: wide paths, existence tests and
// deletions that never throw. Paths are UTF-8 on disk. Thread-safe.
#pragma once

#include <filesystem>
#include <string>

std::filesystem::path FilePath(const std::wstring& path);
// False too when the path cannot be looked at.
bool FileExists(const std::wstring& path);
// Deletes the file if it is there; a failure is ignored.
void RemoveFile(const std::wstring& path);
