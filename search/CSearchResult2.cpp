#include "search/CSearchResult2.h"

#include "platform/Report.h"
#include "search/SearchCondition.h"

std::unique_ptr<CSearchResult2> CSearchResult2::_CreateSearchResult2(const std::wstring& query) {
  if (query.empty()) {
    Report(kEmptyQueryMessage, "CSearchResult2::_CreateSearchResult2");
    return nullptr;
  }
  return std::unique_ptr<CSearchResult2>(new CSearchResult2(ParseSearchCondition(query)));
}

bool CSearchResult2::Check(CStandartSize& size) const { return SizeMatches(*condition_, size); }
