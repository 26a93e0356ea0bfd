#include "tools/lxcat/CatalogSession.h"

#include <cctype>
#include <cstdlib>

#include "tools/lxcat/CatalogPath.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"
#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

// The pool's name: the registry keys pools by the application library they
// serve, and lxcat serves none.
constexpr const wchar_t* kPoolName = L"lxcat";

bool IsHost(std::string_view text) {
  const size_t slash = text.find('/');
  const std::string_view host = text.substr(0, slash);
  if (host.empty()) return false;
  for (char c : host) {
    const bool allowed = std::isalnum(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '_';
    if (!allowed) return false;
  }
  if (slash == std::string_view::npos) return true;
  const std::string_view port = text.substr(slash + 1);
  if (port.empty()) return false;
  for (char c : port) {
    if (!std::isalnum(static_cast<unsigned char>(c))) return false;  // a number or a service name
  }
  return true;
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

CatalogAddress ParseCatalogAddress(const std::string& text) {
  const size_t colon = text.find(':');
  if (colon == std::string::npos || colon + 1 == text.size() || !IsHost(std::string_view(text).substr(0, colon))) {
    return {L"", Utf8ToWide(text)};
  }
  return {Utf8ToWide(text.substr(0, colon)), Utf8ToWide(text.substr(colon + 1))};
}

Credentials ResolveCredentials(const std::string& user, const std::string& password) {
  Credentials credentials{user, password};
  if (credentials.user.empty()) credentials.user = Environment("ISC_USER");
  if (credentials.password.empty()) credentials.password = Environment("ISC_PASSWORD");
  if (credentials.user.empty()) credentials.user = "SYSDBA";
  if (credentials.password.empty()) credentials.password = "masterkey";
  return credentials;
}

std::wstring LocalFile(const std::string& catalog) {
  const CatalogAddress address = ParseCatalogAddress(catalog);
  if (!address.server.empty()) throw Failure("'" + catalog + "' is on a server; this command works on local files");
  return address.database;
}

CatalogSession::CatalogSession(const std::string& catalog, const Credentials& credentials) {
  const CatalogAddress address = ParseCatalogAddress(catalog);
  pool_ = Checked([&] { return lxAddLibraryProviderPool(kPoolName, L""); }, "cannot make a provider pool");
  ProgressBar bar("opening " + catalog);
  provider_ = Checked(
      [&] {
        return pool_AddProvider(pool_, address.server.c_str(), address.database.c_str(),
                                Utf8ToWide(credentials.user).c_str(), Utf8ToWide(credentials.password).c_str());
      },
      "cannot open catalog '" + catalog + "'");
}

CatalogSession::~CatalogSession() {
  if (pool_) lxDeleteProviderPool(pool_);
}

LxFolder* CatalogSession::Folder(const std::string& path) const {
  ProgressBar bar("loading " + path);
  ForgetLibraryMessages();
  LxFolder* folder = FindFolder(provider_, Utf8ToWide(path));
  if (!folder) {
    const std::string message = LibraryMessage();
    throw Failure("no folder '" + path + "' in the catalog" + (message.empty() ? "" : ": " + message));
  }
  return folder;
}

LxFolderTable* CatalogSession::Table(const std::string& path) const {
  LxFolder* folder = Folder(path);
  // A path below the root has loaded the packet already; a root has not.
  ProgressBar bar("loading " + path);
  return Checked([&] { return folder_GetTable(folder); }, "cannot read the table of '" + path + "'");
}

void CatalogSession::LoadAllPackets() const {
  ProgressBar bar("loading packets");
  const int32_t count = provider_GetPacketCount(provider_);
  for (int32_t i = 0; i < count; ++i) {
    bar.Set(static_cast<size_t>(i), static_cast<size_t>(count));
    LxPacket* packet = provider_GetPacket(provider_, i);
    LxFolder* root = packet ? packet_GetRootFolder(packet) : nullptr;
    if (root) folder_GetTable(root);
  }
}

}  // namespace lxcat
