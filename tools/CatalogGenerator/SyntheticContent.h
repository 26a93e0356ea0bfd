// SyntheticContent: the bulky content of a generated catalog (models,
// fragments and their thumbnails) as random bytes, each piece a pure function
// of the seed, its kind, its place among the distinct pieces of that kind
// and its size, like SyntheticValues. Random bytes don't compress, so the
// stored form is as large as the content: what a catalog of packed formats
// holds.
//
// A digest names each distinct piece; it is a text of the generator's own,
// made of the same four things, so equal digests mean equal bytes.
//
// Immutable; any thread may use it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "content/ByteData.h"

enum class ContentKind { Model, ModelThumbnail, Fragment, FragmentThumbnail };

class SyntheticContent {
 public:
  explicit SyntheticContent(std::uint64_t seed) : seed_(seed) {}

  // `bytes` random bytes of the `place`-th piece of this kind.
  std::vector<unsigned char> Bytes(ContentKind kind, std::int64_t place, std::int32_t bytes) const;
  // The same in the stored form of ByteData::Compress.
  ByteDataPtr Stored(ContentKind kind, std::int64_t place, std::int32_t bytes) const;
  // "model-<seed>-<place>-<bytes>", or "fragment-..." for fragments.
  std::wstring Digest(ContentKind kind, std::int64_t place, std::int32_t bytes) const;

 private:
  void Fill(ContentKind kind, std::int64_t place, unsigned char* out, std::int32_t bytes) const;

  std::uint64_t seed_;
};
