// Writing the site's files. Each call makes or replaces one whole file and
// says in one line why it could not. Thread-safe for distinct paths.
#pragma once
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace lxcat {

bool WriteSiteFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Up to `limit` leading bytes of a file; empty when it cannot be read.
std::string ReadFileHead(const std::filesystem::path& path, size_t limit);

bool CopySiteFile(const std::filesystem::path& from, const std::filesystem::path& to, std::string& error);

}  // namespace lxcat
