// How the keys of a big step are split among parallel chunks.
#include <gtest/gtest.h>

#include "storage/DataLoad.h"

namespace {

using Chunk = DataLoad::Chunk;

struct Split {
  std::size_t keys;
  unsigned threads;
  std::vector<Chunk> chunks;
};

// Worked out by hand: at least 250 keys a chunk and at most one chunk a
// thread; what is left over widens every stride by its share (1100 on 8:
// 4 chunks, 100 left, 25 more each), and the last chunk ends at the last
// key. An unknown thread count (0) counts as eight.
TEST(SplitIntoChunks, SplitsWorkedOutByHand) {
  const Split splits[] = {
      {5000, 8, {{0, 625}, {625, 1250}, {1250, 1875}, {1875, 2500}, {2500, 3125}, {3125, 3750}, {3750, 4375},
                 {4375, 5000}}},
      {1001, 8, {{0, 250}, {250, 500}, {500, 750}, {750, 1001}}},
      {1100, 8, {{0, 275}, {275, 550}, {550, 825}, {825, 1100}}},
      {2000, 3, {{0, 666}, {666, 1332}, {1332, 2000}}},
      {1999, 2, {{0, 999}, {999, 1999}}},
      {100, 8, {{0, 100}}},
      {300, 1, {{0, 300}}},
      {0, 8, {}},
  };
  for (const Split& split : splits) {
    EXPECT_EQ(DataLoad::SplitIntoChunks(split.keys, split.threads), split.chunks) << split.keys << "/" << split.threads;
  }
  EXPECT_EQ(DataLoad::SplitIntoChunks(5000, 0), DataLoad::SplitIntoChunks(5000, 8));
}

TEST(SplitIntoChunks, ChunksCoverEveryKeyOnce) {
  for (std::size_t keys : {1001u, 1234u, 5003u, 99999u}) {
    for (unsigned threads : {1u, 2u, 3u, 8u, 64u}) {
      const std::vector<Chunk> chunks = DataLoad::SplitIntoChunks(keys, threads);
      ASSERT_FALSE(chunks.empty());
      EXPECT_EQ(chunks.front().first, 0u);
      EXPECT_EQ(chunks.back().last, keys);
      for (std::size_t i = 1; i < chunks.size(); ++i) EXPECT_EQ(chunks[i].first, chunks[i - 1].last);
      for (const Chunk& chunk : chunks) EXPECT_LT(chunk.first, chunk.last) << keys << "/" << threads;
    }
  }
}

}  // namespace
