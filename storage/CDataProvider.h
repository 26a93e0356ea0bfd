// CDataProvider: one catalog database as the library sees it. It holds the
// connection strings (never a connection: every operation attaches anew), and
// what the loads have read of the catalog.
//
// Owned by its CProviderPool. Not thread-safe: every use runs under the frame
// lock, except worker tasks, which only read the connection strings.
#pragma once

#include <string>

class CDataProvider {
 public:
  CDataProvider(std::wstring server, std::wstring database, std::wstring user, std::wstring password);
  ~CDataProvider();

  CDataProvider(const CDataProvider&) = delete;
  CDataProvider& operator=(const CDataProvider&) = delete;

  const std::wstring& GetServerName() const { return server_; }
  const std::wstring& GetDatabaseName() const { return database_; }
  const std::wstring& GetUserName() const { return user_; }
  const std::wstring& GetPassword() const { return password_; }

 private:
  // Fixed for the provider's life.
  const std::wstring server_;
  const std::wstring database_;
  const std::wstring user_;
  const std::wstring password_;
};
