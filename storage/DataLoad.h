// DataLoad: the two row-heavy steps of a packet load (the templates'
// attribute rows and the sizes' value rows), read either by one query for
// the whole packet or, for many keys, by per-key queries split into chunks
// that run at once on attachments of their own.
//
// A chunk writes only the templates or sizes of its own keys, and reads the
// key tables and the provider's dictionaries, which nothing changes while the
// chunks run; so the chunks need no lock. The calling thread holds the frame
// lock throughout and runs the first chunk itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/Concurrency.h"
#include "storage/BaseOperation.h"

class CDataProvider;
class CStandartSize;
class CTemplate;

class DataLoad {
 public:
  // Positions [first, last) in the element order of one key table.
  using Chunk = ::Chunk;

  // From this many keys on, a step reads per key, in chunks.
  static constexpr std::size_t kChunkedFrom = 1001;

  // At least 250 keys a chunk (all of them when fewer), about `threads`
  // chunks, the remainder spread over the strides and the last chunk
  // running to the end. `threads` 0 counts as 8.
  static std::vector<Chunk> SplitIntoChunks(std::size_t keys, unsigned threads);

  // The templates of a packet in load order, and by id.
  struct Templates {
    std::vector<CTemplate*> order;
    std::unordered_map<std::int32_t, CTemplate*> byId;
  };
  struct Sizes {
    std::vector<CStandartSize*> order;
    std::unordered_map<std::int32_t, CStandartSize*> byId;
  };

  // The two per-key steps keep the names by which the load's steps are known
  // outside the code, lower camel case and all.
  static bool chunkLoadTemplateAttributes(CDataProvider* provider, IBPP::Statement& packetStatement,
                                          std::int32_t packetId, const Templates& templates);
  static bool chunkLoadStdSizeAttributes(CDataProvider* provider, IBPP::Statement& packetStatement,
                                         std::int32_t packetId, const Sizes& sizes);
};
