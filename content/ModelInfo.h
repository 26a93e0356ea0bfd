// ModelInfo: what a provider remembers of one MODEL row once its model has
// been written to a file: one per model id, owned by the provider's model
// cache until the caches are cleared.
#pragma once

#include <cstdint>
#include <string>

struct ModelInfo {
  std::int32_t id = 0;
  // The id in decimal; a model has no other name.
  std::wstring name;
  // Where the model's file was written; the file lives as long as the entry.
  std::wstring filePath;
  std::wstring digest;
  std::int32_t version = 0;
  // 0 when NULL, and on catalogs made before the column existed.
  std::int32_t orientation = 0;
};
