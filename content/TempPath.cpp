#include "content/TempPath.h"

#include "platform/Files.h"
#include "platform/TempFolder.h"

namespace {

const std::wstring& BaseFolder() {
  static const std::wstring base = [] {
    std::wstring folder = TempFolder();
    if (folder.empty() || folder.back() != L'/') folder += L'/';
    return folder;
  }();
  return base;
}

}  // namespace

std::wstring MakeTempPath(const std::wstring& name, const std::wstring& extension) {
  std::wstring path = BaseFolder() + name + extension;
  // A path that cannot even be looked at counts as free: writing the file
  // there fails and is reported, where counting on would never end.
  for (long long n = 2; FileExists(path); ++n) path = BaseFolder() + name + L" (" + std::to_wstring(n) + L")" + extension;
  return path;
}
