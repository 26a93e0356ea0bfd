// How the keys of a big step are split among parallel chunks.
#include <gtest/gtest.h>

#include "storage/DataLoad.h"

namespace {

using Chunk = DataLoad::Chunk;

TEST(SplitIntoChunks, EightThreads) {
  std::vector<Chunk> fiveThousand = DataLoad::SplitIntoChunks(5000, 8);
  ASSERT_EQ(fiveThousand.size(), 8u);
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(fiveThousand[i], (Chunk{i * 625, (i + 1) * 625}));

  EXPECT_EQ(DataLoad::SplitIntoChunks(1001, 8),
            (std::vector<Chunk>{{0, 250}, {250, 500}, {500, 750}, {750, 1001}}));
}

TEST(SplitIntoChunks, RemainderGoesIntoTheStridesAndTheLastChunk) {
  // 2000 / 3 = 666 a chunk, 3 chunks, remainder 2 spread as 0 per stride.
  EXPECT_EQ(DataLoad::SplitIntoChunks(2000, 3), (std::vector<Chunk>{{0, 666}, {666, 1332}, {1332, 2000}}));
  // 1999 keys on 2 threads: 999 a chunk, 2 chunks, stride 999 + 1/2 = 999.
  EXPECT_EQ(DataLoad::SplitIntoChunks(1999, 2), (std::vector<Chunk>{{0, 999}, {999, 1999}}));
  // 1100 keys on 8 threads: at least 250 a chunk, so 4 chunks; the 100 left
  // over add 25 to each stride.
  EXPECT_EQ(DataLoad::SplitIntoChunks(1100, 8),
            (std::vector<Chunk>{{0, 275}, {275, 550}, {550, 825}, {825, 1100}}));
}

TEST(SplitIntoChunks, UnknownThreadCountCountsAsEight) {
  EXPECT_EQ(DataLoad::SplitIntoChunks(5000, 0), DataLoad::SplitIntoChunks(5000, 8));
}

TEST(SplitIntoChunks, FewKeysAreOneChunkAndNoneAreNone) {
  EXPECT_EQ(DataLoad::SplitIntoChunks(100, 8), (std::vector<Chunk>{{0, 100}}));
  EXPECT_EQ(DataLoad::SplitIntoChunks(300, 1), (std::vector<Chunk>{{0, 300}}));
  EXPECT_TRUE(DataLoad::SplitIntoChunks(0, 8).empty());
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
