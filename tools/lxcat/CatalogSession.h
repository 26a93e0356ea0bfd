#pragma once
#include <string>

#include "LxDataAccess.h"

// How lxcat reaches a catalog: a pool of its own with one provider. The
// catalog is named as Firebird names databases: a local file path, or
// 'host:path' / 'host/port:path' for a server.
namespace lxcat {

struct CatalogAddress {
  std::wstring server;  // empty for a local file
  std::wstring database;
};

// Splits the text at the first ':' when what stands before it can be a host
// (with an optional '/port'); anything else is a local path.
CatalogAddress ParseCatalogAddress(const std::string& text);

struct Credentials {
  std::string user;
  std::string password;
};

// The options given, else ISC_USER / ISC_PASSWORD, else the embedded
// engine's usual SYSDBA / masterkey (a local file ignores the password).
Credentials ResolveCredentials(const std::string& user, const std::string& password);

// Owns the pool, and with it the provider and every handle below it.
class CatalogSession {
 public:
  // Attaches the catalog; a Failure when it cannot be opened.
  CatalogSession(const std::string& catalog, const Credentials& credentials);
  ~CatalogSession();
  CatalogSession(const CatalogSession&) = delete;
  CatalogSession& operator=(const CatalogSession&) = delete;

  LxProviderPool* Pool() const { return pool_; }
  LxDataProvider* Provider() const { return provider_; }

  // The folder 'Packet\Folder\...'; a Failure naming the path when any step
  // is missing.
  LxFolder* Folder(const std::string& path) const;
  // The folder's table, its packet loaded first (under a progress bar).
  LxFolderTable* Table(const std::string& path) const;
  // Loads every packet of the catalog, one after the other.
  void LoadAllPackets() const;

 private:
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;
};

// A failure unless the catalog is a local file; maintenance works on files.
std::wstring LocalFile(const std::string& catalog);

}  // namespace lxcat
