// CStdProjs: the projections of one standard size, read from the rows of its
// template on first use. Every size of a template reads the same rows into a
// list of its own; a change through one list is not seen by the lists other
// sizes already hold. The order is the catalog's (view type, then direction)
// followed by entries in the order they were added.
//
// Made on first request and owned by its size; owns its entries. Not
// thread-safe: used under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "content/CStdPrj.h"

class CStandartSize;
class IContentStore;

class CStdProjs {
 public:
  explicit CStdProjs(CStandartSize* owner) : owner_(owner) {}
  ~CStdProjs();

  CStdProjs(const CStdProjs&) = delete;
  CStdProjs& operator=(const CStdProjs&) = delete;

  // The size's list, made on the first call.
  static CStdProjs* Of(CStandartSize* size);

  CStandartSize* GetStdSize() const { return owner_; }
  IContentStore& Store() const;

  // Reads the rows once. A load that failed half-way is not tried again:
  // the list keeps what it got.
  bool LoadAll();
  // For the loader.
  void Append(std::unique_ptr<CStdPrj> projection) { items_.push_back(std::move(projection)); }

  CStdPrj* _AddProjection(const CStdPrj* other);
  CStdPrj* _AddProjectionEx(const std::wstring& path, const std::wstring& iconPath, const std::wstring& digest,
                            std::int32_t type, const std::wstring& name, std::int32_t viewType);
  std::int32_t _GetProjectioCount();
  CStdPrj* _GetProjection(std::int32_t index);
  // kOmitted leaves the type or the view type out, not both.
  CStdPrj* _FindProjection(const std::wstring& name, std::int32_t type, std::int32_t viewType);
  // Destroys the entry; the handle is dead afterwards.
  bool _DeleteProjection(CStdPrj* projection);

  // Whether an entry stands where a direction of this type and name would
  // go in this view type: user-named directions clash by name, standard
  // ones by type.
  bool Clashes(std::int32_t type, const std::wstring& name, std::int32_t viewType) const;
  // Whether an entry of this direction stands in this view type.
  bool HasDirection(std::int32_t projectionId, std::int32_t viewType) const;

 private:
  // LoadAll for a list operation, with its message when it fails.
  bool Loaded(const char* method);

  std::vector<std::unique_ptr<CStdPrj>> items_;
  CStandartSize* owner_;
  bool loaded_ = false;
};
