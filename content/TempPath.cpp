#include "content/TempPath.h"

#include <filesystem>
#include <system_error>

#include "platform/TempFolder.h"
#include "platform/TextCodec.h"

namespace {

const std::wstring& BaseFolder() {
  static const std::wstring base = [] {
    std::wstring folder = TempFolder();
    if (folder.empty() || folder.back() != L'/') folder += L'/';
    return folder;
  }();
  return base;
}

bool Taken(const std::wstring& path) {
  // A path that cannot even be looked at counts as free: writing the file
  // there fails and is reported, where counting on would never end.
  std::error_code error;
  return std::filesystem::exists(std::filesystem::path(WideToUtf8(path)), error);
}

}  // namespace

std::wstring MakeTempPath(const std::wstring& name, const std::wstring& extension) {
  std::wstring path = BaseFolder() + name + extension;
  for (long long n = 2; Taken(path); ++n) path = BaseFolder() + name + L" (" + std::to_wstring(n) + L")" + extension;
  return path;
}
