// Work on a catalog database, or an application library's module, as a file:
// writing out the empty catalog the library carries, and the updates that
// the editor tool RuvDbEditor.exe performs next to the host executable.
//
// All failures are quiet (false, no report), except file-system errors from
// testing existence or creating folders, which are thrown.
#pragma once

#include <string>

class DatabaseMaintenance {
 public:
  // Writes the empty catalog to `path`, replacing any file there and creating
  // missing folders. False when the file cannot be opened (for example while
  // another process holds it) or written.
  static bool CreateEmptyDatabase(const std::wstring& path);

  // Raises the on-disk structure, then, only if that worked, the schema.
  static bool UpdateDatabase(const std::wstring& path);

  static bool UpdateUlb(const std::wstring& path);

  static bool SetDatabaseReadonly(const std::wstring& path, bool readOnly);
};
