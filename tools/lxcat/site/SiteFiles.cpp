#include "tools/lxcat/site/SiteFiles.h"

#include <fstream>
#include <system_error>

namespace lxcat {

bool WriteSiteFile(const std::filesystem::path& path, std::string_view bytes, std::string& error) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (out) return true;
  error = "cannot write " + path.string();
  return false;
}

std::string ReadFileHead(const std::filesystem::path& path, size_t limit) {
  std::ifstream in(path, std::ios::binary);
  std::string head(limit, '\0');
  in.read(head.data(), static_cast<std::streamsize>(limit));
  head.resize(in ? limit : static_cast<size_t>(in.gcount()));
  return head;
}

bool CopySiteFile(const std::filesystem::path& from, const std::filesystem::path& to, std::string& error) {
  std::error_code code;
  std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, code);
  if (!code) return true;
  error = "cannot copy " + from.string() + " to " + to.string() + ": " + code.message();
  return false;
}

}  // namespace lxcat
