// ByteData: one piece of bulky content in memory (a model, a fragment, a
// thumbnail, an attached file, representation data), and its stored form in
// the catalog's blobs: the uncompressed length as 4 bytes little-endian, then
// one LZO1Y-1 stream.
//
// Always held through std::shared_ptr, since caches keep it while clients
// hold raw pointers into it. The bytes are either owned (released here) or
// lent by a caller, who keeps them alive. Not thread-safe; the reference
// count of the shared pointer is.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

class ByteData {
 public:
  ByteData() = default;
  // Wraps bytes that a caller lends; they are neither copied nor released.
  ByteData(const unsigned char* data, std::int32_t size);
  ~ByteData();

  ByteData(const ByteData&) = delete;
  ByteData& operator=(const ByteData&) = delete;

  unsigned char* Data() const { return data_; }
  std::int32_t Size() const { return size_; }
  bool Owned() const { return owned_; }
  bool Empty() const { return data_ == nullptr || size_ <= 0; }

  // Replaces the contents by a new owned buffer of `size` bytes, whose
  // contents are unspecified; the caller fills it. Returns it.
  unsigned char* Allocate(std::int32_t size);

  // Whole-file binary read and write. Both give the number of bytes moved,
  // 0 when the file cannot be opened, is empty, or (on write) the contents
  // are empty or could not be written whole; a file cut short is removed.
  std::int32_t LoadFile(const std::wstring& path);
  std::int32_t SaveFile(const std::wstring& path) const;

  // Replaces the contents by their stored form. A lent buffer becomes an
  // owned one here, which is how lent bytes are stored without a copy first.
  void Compress();
  // Replaces the stored form by the content. A negative stated length, or
  // anything the bounds-checked decompressor refuses, leaves the bytes as
  // they are: whatever was stored reaches the caller unchanged.
  void Decompress();

 private:
  void Replace(unsigned char* data, std::int32_t size, bool owned);

  unsigned char* data_ = nullptr;
  std::int32_t size_ = 0;
  bool owned_ = false;
};

using ByteDataPtr = std::shared_ptr<ByteData>;
