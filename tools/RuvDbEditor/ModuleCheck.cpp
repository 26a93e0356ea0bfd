#include "ModuleCheck.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

void ModuleCheck::Run(const std::string& modulePath) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(modulePath, error);
  if (error || !std::filesystem::exists(status)) throw std::runtime_error("module not found: " + modulePath);
  if (!std::filesystem::is_regular_file(status)) throw std::runtime_error("module is not a file: " + modulePath);
  // Permission bits alone do not tell (root reads everything, ACLs add
  // rules): opening the file is the test.
  errno = 0;
  std::ifstream module(modulePath, std::ios::binary);
  if (!module) {
    throw std::runtime_error("module cannot be read: " + modulePath + (errno != 0 ? ": " + std::string(std::strerror(errno)) : ""));
  }
}
