// PrjOperation: the SQL behind projections. A projection is an
// OBJECTPROJECTION row of a template, identified within it by direction and
// view type; fragments are FRAGMENT rows shared by the caller's digest and
// never changed; directions are PROJECTION rows, the first six standard.
// Each method is one operation scope with one transaction. Adding, copying
// and deleting give a size that shares its template a template of its own
// first; the other changes reach every size of the template.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "content/ByteData.h"
#include "storage/BaseOperation.h"

class CStdPrj;
class CStdProjs;

class PrjOperation : public BaseOperation {
 public:
  // Appends the rows of the list's template; false when they could not be
  // read.
  static bool LoadProjections(CStdProjs* list);
  static std::unique_ptr<CStdPrj> CopyProjection(CStdProjs* list, const CStdPrj& other);
  static std::int32_t AddFragment(CDataProvider* provider, const std::wstring& path, const std::wstring& iconPath,
                                  const std::wstring& digest);
  static std::unique_ptr<CStdPrj> AddProjection(CStdProjs* list, std::int32_t fragmentId, const std::wstring& digest,
                                                const std::wstring& name, std::int32_t type, std::int32_t viewType);
  static bool DeleteProjection(CStdPrj* projection);
  static bool UpdateProjectionType(CStdPrj* projection, std::int32_t type, const std::wstring& name,
                                   std::int32_t& projectionId, std::wstring& resolvedName);
  static bool UpdateViewType(CStdPrj* projection, std::int32_t viewType);
  static bool UpdateFragment(CStdPrj* projection, const CStdPrj& other);

  // The fragment written to `path`; false with a report.
  static bool SaveFragmentAs(CDataProvider* provider, std::int32_t fragmentId, const std::wstring& path);
  // The thumbnail of a fragment; null with a report.
  static ByteDataPtr GetIcon(CDataProvider* provider, std::int32_t fragmentId);
  // Every fragment thumbnail of the packet by fragment id; empty when any
  // row lacks an id or a thumbnail, so that all are read one at a time.
  static std::map<std::int32_t, ByteDataPtr> LoadPacketThumbnails(CDataProvider* provider, std::int32_t packetId);

 private:
  explicit PrjOperation(CDataProvider* provider) : BaseOperation(provider) {}
  // The PROJECTION row of a type and name: the standard row and its name for
  // types 1 to 6, else the row of the name, made if the catalog has none.
  std::int32_t ResolveProjection(IBPP::Statement& statement, std::int32_t type, std::wstring& name);
  void InsertProjection(IBPP::Statement& statement, std::int32_t templateId, std::int32_t fragmentId,
                        std::int32_t projectionId, std::int32_t viewType);
  // Runs an UPDATE whose last three parameters find the projection's row
  // (direction, view type, template), with `value` as the first.
  static bool UpdateRow(const char* sql, std::int32_t value, const CStdPrj& projection);
};
