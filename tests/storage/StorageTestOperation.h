// StorageTestOperation: the SQL that the access-layer tests run on a
// catalog, kept in an operation class like all SQL of the library, so that
// the tests go through BaseOperation, CommitGuard, DbText and BlobTransfer
// exactly as the library's own operations do.
//
// Uses the catalog's own tables: CONCRETEVALUE for nullable integer, double
// and text columns, FOLDER for writes, MODEL.MODEL for blobs.
#pragma once

#include "storage/BaseOperation.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class StorageTestOperation : public BaseOperation {
 public:
  explicit StorageTestOperation(CDataProvider* provider) : BaseOperation(provider) {}

  struct StoredValue {
    std::int32_t integer = 0;
    double real = 0.0;
    std::wstring text;
    bool integerNull = false;
    bool realNull = false;
    bool textNull = false;
  };
  // One committed CONCRETEVALUE row; an empty optional is NULL.
  std::int32_t AddValue(std::optional<std::int32_t> integer, std::optional<double> real,
                        std::optional<std::wstring> text);
  // The row read by column number and by column name. The fields hold
  // nonzero sentinels before each Get, so a null must be written over.
  StoredValue ReadValue(std::int32_t id);
  StoredValue ReadValueByName(std::int32_t id);
  // STRVAL as the bytes the database holds.
  std::string ReadValueBytes(std::int32_t id);

  // Two root folders in one write; between runs after the first insert.
  void AddTwoFolders(const std::wstring& first, const std::wstring& second, const std::function<void()>& between);
  // A root folder, then a child of a folder that does not exist, which the
  // database refuses.
  void AddFolderThenOrphan(const std::wstring& first);
  std::int32_t AddCommittedFolder(const std::wstring& name);
  // Changes the name without committing; the scope's end rolls it back.
  void RenameFolderUncommitted(std::int32_t id, const std::wstring& name);
  std::wstring FolderName(std::int32_t id);
  std::int32_t CountFolders();

  std::int32_t CurrentAttachment();
  // Attachments of users (not the engine's own workers) to this database.
  std::vector<std::int32_t> UserAttachments();

  struct BlobShape {
    int total = 0;
    int largestSegment = 0;
    int segments = 0;
  };
  std::int32_t AddModel(std::span<const unsigned char> model);
  std::vector<unsigned char> ReadModel(std::int32_t id);
  BlobShape ModelShape(std::int32_t id);
};
