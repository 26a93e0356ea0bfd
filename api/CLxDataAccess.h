// CLxDataAccess: the registry at the root of the object tree, mapping an
// application library's name to its provider pool. The table itself is
// process-wide state (LibraryState.h); this class only works on it.
//
// Not thread-safe: every use runs under the frame lock.
#pragma once

#include <string>
#include <string_view>

#include "object/IObjectPool.h"

class CProviderPool;

class CLxDataAccess {
 public:
  // Exact lookup, case counting; null for a miss.
  static CProviderPool* GetPool(const std::wstring& libraryName);

  // First pool whose module path equals `ulbPath` when both are lowered
  // character by character; separators are not special.
  static CProviderPool* GetPoolForUlbPath(std::wstring_view ulbPath);

  // The pool under this name, created with `ulbPath` if there is none. An
  // existing pool keeps its path. The empty name yields null.
  static CProviderPool* AddPool(const std::wstring& libraryName, std::wstring_view ulbPath);

  // The name the pool is registered under; empty when it is not registered.
  static std::wstring GetLibraryName(const CProviderPool* pool);

  // Reloads every provider of every pool whose server and database path
  // match: lowered, compared element by element with '/' and '\\' alike.
  static void ReloadProvider(std::wstring_view server, std::wstring_view database);

  // Removes and destroys the pool; reports and returns false when it is not
  // registered.
  static bool _DeleteProviderPool(CProviderPool* pool);
};

// The registry as placed objects see it: a buffer names its library, and
// the pool registered under that name is where its size is looked for.
class RegisteredLibraries final : public IObjectLibraries {
 public:
  IObjectPool* FindPool(const std::wstring& libraryName) override;
  std::wstring NameOf(const IObjectPool& pool) override;
};
