#include "platform/Concurrency.h"

#include <algorithm>
#include <thread>

namespace {

constexpr unsigned kThreadsWhenUnknown = 8;

}  // namespace

unsigned HardwareThreads() { return std::thread::hardware_concurrency(); }

std::vector<Chunk> SplitIntoChunks(std::size_t count, unsigned threads, std::size_t floor) {
  if (count == 0) return {};
  if (threads == 0) threads = kThreadsWhenUnknown;
  const std::size_t block = count < floor ? count : std::max<std::size_t>(count / threads, floor);
  const std::size_t chunkCount = count / block;
  const std::size_t stride = block + (count % block) / chunkCount;
  std::vector<Chunk> chunks(chunkCount);
  for (std::size_t i = 0; i < chunkCount; ++i) {
    chunks[i].first = i * stride;
    chunks[i].last = i + 1 == chunkCount ? count : (i + 1) * stride;
  }
  return chunks;
}
