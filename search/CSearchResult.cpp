#include "search/CSearchResult.h"

#include "platform/Report.h"

CStandartSize* CSearchResult::_Get(std::int32_t index) const {
  if (index < 0 || index >= GetCount()) {
    ReportIndexOutOfRange(index, GetCount(), "CSearchResult::_Get");
    return nullptr;
  }
  return sizes_[static_cast<std::size_t>(index)];
}
