// CStdFiles: the files attached to one standard size (FILES rows joined to
// the size, not to its template), such as a data sheet. Read-only: the
// library never writes FILES. The rows are read once, on first use; a file's
// content is written to the temporary folder on its first request.
//
// Made on first request and owned by its size. A file handle is the address
// of its record, stable because the list grows only during its one load.
// Not thread-safe: used under the frame lock.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CStandartSize;
class IContentStore;

struct FileRecord {
  std::int32_t id = 0;
  // The stored name up to its last dot.
  std::wstring name;
  // From the last dot on, lower case; empty for a name without a dot.
  std::wstring ext;
  CStandartSize* owner = nullptr;
};

// Splits a stored file name at its last dot, as FileRecord holds it.
void SplitFileName(const std::wstring& stored, std::wstring& name, std::wstring& ext);

class CStdFiles {
 public:
  explicit CStdFiles(CStandartSize* owner) : owner_(owner) {}

  CStdFiles(const CStdFiles&) = delete;
  CStdFiles& operator=(const CStdFiles&) = delete;

  // The size's list, made on the first call.
  static CStdFiles* Of(CStandartSize* size);

  CStandartSize* GetStdSize() const { return owner_; }
  // For the loader, before the first handle exists.
  void Append(FileRecord record) { items_.push_back(std::move(record)); }

  // Reads the rows unless they have been read; a failed read is tried again
  // on the next call.
  bool LoadAll();
  std::int32_t _GetFileCount();
  FileRecord* _GetFile(std::int32_t index);
  // The temporary file of the record, written on first request.
  const wchar_t* _GetFilePath(FileRecord* record);

 private:
  IContentStore& Store() const;
  bool Loaded(const char* method);

  CStandartSize* owner_;
  bool loaded_ = false;
  std::vector<FileRecord> items_;
};
