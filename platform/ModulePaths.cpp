#include "platform/ModulePaths.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

#include "platform/TextCodec.h"

std::wstring LibraryFilePath() {
  Dl_info info{};
  // Any address inside this module names it; this function's own will do.
  if (dladdr(reinterpret_cast<void*>(&LibraryFilePath), &info) == 0 || info.dli_fname == nullptr) return {};
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(info.dli_fname, error);
  if (error) return Utf8ToWide(info.dli_fname);
  return Utf8ToWide(absolute.lexically_normal().string());
}

std::wstring ExecutableFilePath() {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  return Utf8ToWide(target.string());
}

std::wstring DirectoryOf(std::wstring_view path) {
  const std::size_t cut = path.find_last_of(L"/\\");
  if (cut == std::wstring_view::npos) return {};
  return std::wstring(path.substr(0, cut));
}

