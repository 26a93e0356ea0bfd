// CStdModel: the client's handle on the 3D model of one standard size. It
// holds no model data: the model is the model id of the size's template, a
// MODEL row that templates share by digest, and every property is read
// through the provider's model cache, which writes the model's file on the
// first request for that id.
//
// Made on first request and owned by its size. Not thread-safe: used under
// the frame lock.
#pragma once

#include <cstdint>
#include <string>

class CStandartSize;
class IContentStore;
struct ModelInfo;

class CStdModel {
 public:
  explicit CStdModel(CStandartSize* owner) : owner_(owner) {}

  CStdModel(const CStdModel&) = delete;
  CStdModel& operator=(const CStdModel&) = delete;

  // The size's model object, made on the first call.
  static CStdModel* Of(CStandartSize* size);

  CStandartSize* GetStdSize() const { return owner_; }
  // The template's model id; 0 or below is no model.
  std::int32_t GetModelId() const;

  bool _IsEmpty();
  bool _IsEqualModel(const CStdModel* other) const { return other != nullptr && GetModelId() == other->GetModelId(); }
  const wchar_t* _GetModelFile();
  const wchar_t* _GetDigest();
  const wchar_t* _GetName();
  std::int32_t _GetVersion();
  std::int32_t _GetOrientation();
  // The bytes stay valid until another model's thumbnail is asked for.
  bool _GetIconData(unsigned char** data, std::int32_t* size);

  bool _Clear();
  // Shares the other size's MODEL row; no data is copied.
  bool _SetModel(CStdModel* other);
  // Uses the model of the digest, stored from the two files if the catalog
  // has none; a known digest reads neither file.
  bool _SetModelEx(const std::wstring& path, const std::wstring& iconPath, const std::wstring& digest,
                   std::int32_t version);
  bool SetModelId(std::int32_t id);

 private:
  IContentStore& Store() const;
  // The cached row, for a size that has a model; null otherwise.
  const ModelInfo* Info();
  // Info(), reporting a size without a model for `method`.
  const ModelInfo* InfoFor(const char* method);

  CStandartSize* owner_;
};
