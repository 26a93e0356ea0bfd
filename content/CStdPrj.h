// CStdPrj: one projection of a standard size: an OBJECTPROJECTION row of the
// size's template, joining it to a direction (PROJECTION) in one view type
// and to a fragment (FRAGMENT, the 2D file and thumbnail, shared by digest).
// Within a template, direction and view type identify the row.
//
// Owned by its CStdProjs. Not thread-safe: used under the frame lock.
#pragma once

#include <cstdint>
#include <string>

class CStandartSize;
class CStdProjs;
class IContentStore;

class CStdPrj {
 public:
  struct Row {
    std::int32_t projectionId = 0;
    std::wstring name;
    std::int32_t fragmentId = 0;
    std::int32_t viewType = 0;
    std::wstring digest;
  };

  // `type` is the public code, 1 to 7.
  CStdPrj(CStdProjs* list, Row row, std::int32_t type);

  CStdPrj(const CStdPrj&) = delete;
  CStdPrj& operator=(const CStdPrj&) = delete;

  CStandartSize* GetStdSize() const;
  CStdProjs* GetList() const { return list_; }
  const std::wstring& GetName() const { return name_; }
  const std::wstring& GetDigest() const { return digest_; }
  std::int32_t GetType() const { return type_; }
  std::int32_t GetProjectionId() const { return projectionId_; }
  std::int32_t GetViewType() const { return viewType_; }
  std::int32_t GetFragmentId() const { return fragmentId_; }

  bool _SetType(std::int32_t type, const std::wstring& name);
  bool _SetViewType(std::int32_t viewType);
  // The bytes stay valid as long as the packet's cached thumbnails, or
  // until another fragment's thumbnail is asked for.
  bool _GetIconData(unsigned char** data, std::int32_t* size);
  const wchar_t* _GetFragmentFile();
  bool _IsEqualFragment(const CStdPrj& other) const { return fragmentId_ == other.fragmentId_; }
  // Points the row at the other's fragment. This entry keeps showing the old
  // fragment until the list is read again.
  bool _SetFragment(const CStdPrj& other);

  // Equal in every field a client sees, owners compared by value.
  bool SameAs(const CStdPrj& other) const;

 private:
  IContentStore& Store() const;

  CStdProjs* list_;
  std::wstring name_;
  std::wstring digest_;
  std::int32_t type_;
  std::int32_t projectionId_;
  std::int32_t viewType_;
  std::int32_t fragmentId_;
};
