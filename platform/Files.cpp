#include "platform/Files.h"

#include <system_error>

#include "platform/TextCodec.h"

std::filesystem::path FilePath(const std::wstring& path) { return WideToUtf8(path); }

bool FileExists(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::exists(FilePath(path), error);
}

void RemoveFile(const std::wstring& path) {
  std::error_code ignored;
  std::filesystem::remove(FilePath(path), ignored);
}
