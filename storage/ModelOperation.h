// ModelOperation: the SQL behind models. MODEL rows are never changed once
// inserted; they are shared by the caller's digest, and a size changes its
// model by pointing its template at another row. Each method is one
// operation scope with one transaction.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "content/ByteData.h"
#include "storage/BaseOperation.h"

class CStdModel;
struct ModelInfo;

class ModelOperation : public BaseOperation {
 public:
  // Reads the size's model row and writes the model to `path`; null with a
  // report when there is no row, no data or the file cannot be written.
  static std::unique_ptr<ModelInfo> GetModel(CStdModel* model, const std::wstring& path);
  // The thumbnail of a model; null with a report when there is none.
  static ByteDataPtr GetModelIcon(CDataProvider* provider, std::int32_t modelId);
  // The row of this digest, 0 when there is none.
  static std::int32_t FindModelByDigest(CDataProvider* provider, const std::wstring& digest);
  // A new row from a model file and its thumbnail; 0 with a report when a
  // file could not be stored.
  static std::int32_t CreateModel(CDataProvider* provider, const std::wstring& path, const std::wstring& iconPath,
                                  const std::wstring& digest, std::int32_t version);
  // Gives the size a template of its own if it shares one, then points the
  // template at the model (0: none).
  static bool SetOtherModel(CStdModel* model, std::int32_t modelId);

  // Stores a whole file, compressed, in a fresh blob; false with a report
  // when the file is missing or empty.
  static bool SaveFileToBlob(const std::wstring& path, IBPP::Blob& blob);

 private:
  explicit ModelOperation(CDataProvider* provider) : BaseOperation(provider) {}
  // Whether MODEL has the ORIENTATION column; older catalogs do not. Asked
  // on every read, since a catalog can be brought up to date meanwhile.
  bool HasOrientation();
};
