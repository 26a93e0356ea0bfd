// CSearchResult: the standard sizes that one search found, in the order the
// search met them. The sizes are borrowed from the catalog tree: a result
// outlives neither a reload nor the end of the packets it points into.
// Belongs to the client from pool_GetSearchResult to
// pool_DeleteSearchResult; immutable in between.
#pragma once

#include <cstdint>
#include <vector>

class CStandartSize;

class CSearchResult {
 public:
  explicit CSearchResult(std::vector<CStandartSize*> sizes) : sizes_(std::move(sizes)) {}

  std::int32_t GetCount() const { return static_cast<std::int32_t>(sizes_.size()); }
  // Null, with the range report, outside [0, count).
  CStandartSize* _Get(std::int32_t index) const;

 private:
  std::vector<CStandartSize*> sizes_;
};
