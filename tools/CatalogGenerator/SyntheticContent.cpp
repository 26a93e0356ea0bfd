#include "tools/CatalogGenerator/SyntheticContent.h"

#include <cstring>

namespace {

// splitmix64: one multiply-xorshift step per 8 bytes keeps a gigabyte of
// content under a second, and every piece starts from its own state.
std::uint64_t Mix(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

}  // namespace

void SyntheticContent::Fill(ContentKind kind, std::int64_t place, unsigned char* out, std::int32_t bytes) const {
  std::uint64_t state = seed_;
  state = Mix(state) ^ static_cast<std::uint64_t>(kind);
  state = Mix(state) ^ static_cast<std::uint64_t>(place);
  state = Mix(state) ^ static_cast<std::uint64_t>(bytes);
  std::int32_t done = 0;
  for (; done + 8 <= bytes; done += 8) {
    const std::uint64_t word = Mix(state);
    std::memcpy(out + done, &word, 8);
  }
  const std::uint64_t tail = Mix(state);
  std::memcpy(out + done, &tail, static_cast<std::size_t>(bytes - done));
}

std::vector<unsigned char> SyntheticContent::Bytes(ContentKind kind, std::int64_t place, std::int32_t bytes) const {
  std::vector<unsigned char> content(static_cast<std::size_t>(bytes));
  Fill(kind, place, content.data(), bytes);
  return content;
}

ByteDataPtr SyntheticContent::Stored(ContentKind kind, std::int64_t place, std::int32_t bytes) const {
  auto data = std::make_shared<ByteData>();
  Fill(kind, place, data->Allocate(bytes), bytes);
  data->Compress();
  return data;
}

std::wstring SyntheticContent::Digest(ContentKind kind, std::int64_t place, std::int32_t bytes) const {
  const bool model = kind == ContentKind::Model || kind == ContentKind::ModelThumbnail;
  return (model ? L"model-" : L"fragment-") + std::to_wstring(seed_) + L"-" + std::to_wstring(place) + L"-" +
         std::to_wstring(bytes);
}
