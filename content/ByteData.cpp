#include "content/ByteData.h"

#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

#include "platform/TextCodec.h"

namespace {

constexpr std::int32_t kPrefix = 4;

bool LzoReady() {
  static const bool ready = lzo_init() == LZO_E_OK;
  return ready;
}

// The stored bound is (size / 1024 + 1) * 16 + size + 4, but LZO documents a
// worst case of size + size / 16 + 64 + 3 for input it cannot compress, and
// its compressor never checks the end of its output. The larger of the two
// keeps random or already-packed input inside the buffer.
std::size_t PackedBound(std::size_t size) {
  const std::size_t stored = (size / 1024 + 1) * 16 + size + kPrefix;
  const std::size_t lzoWorst = size + size / 16 + 64 + 3 + kPrefix;
  return std::max(stored, lzoWorst);
}

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

File OpenFile(const std::wstring& path, const char* mode) {
  return File(std::fopen(WideToUtf8(path).c_str(), mode));
}

std::int32_t ReadLength(const unsigned char* bytes) {
  std::uint32_t length = 0;
  for (int i = 0; i < kPrefix; ++i) length |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
  return static_cast<std::int32_t>(length);
}

}  // namespace

ByteData::ByteData(const unsigned char* data, std::int32_t size)
    : data_(const_cast<unsigned char*>(data)), size_(size), owned_(false) {}

ByteData::~ByteData() { Replace(nullptr, 0, false); }

void ByteData::Replace(unsigned char* data, std::int32_t size, bool owned) {
  if (owned_) delete[] data_;
  data_ = data;
  size_ = size;
  owned_ = owned;
}

unsigned char* ByteData::Allocate(std::int32_t size) {
  Replace(new unsigned char[static_cast<std::size_t>(std::max(size, 0))], size, true);
  return data_;
}

std::int32_t ByteData::LoadFile(const std::wstring& path) {
  File file = OpenFile(path, "rb");
  if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return 0;
  const long length = std::ftell(file.get());
  if (length <= 0 || length > std::numeric_limits<std::int32_t>::max()) return 0;
  std::rewind(file.get());
  unsigned char* buffer = new unsigned char[static_cast<std::size_t>(length)]();
  const std::size_t read = std::fread(buffer, 1, static_cast<std::size_t>(length), file.get());
  // A file that shrank while we read keeps the zero fill behind what came.
  Replace(buffer, static_cast<std::int32_t>(length), true);
  return read == 0 ? 0 : size_;
}

std::int32_t ByteData::SaveFile(const std::wstring& path) const {
  // Nothing to write leaves no empty file behind, which nobody would delete.
  if (Empty()) return 0;
  File file = OpenFile(path, "wb");
  if (!file) return 0;
  const std::size_t written = std::fwrite(data_, 1, static_cast<std::size_t>(size_), file.get());
  // A full disk or a file-size limit cuts the file short. A cut file is no
  // content for a client, and no cache would name it for deletion later.
  const bool whole = written == static_cast<std::size_t>(size_) && std::fflush(file.get()) == 0 &&
                     std::fclose(file.release()) == 0;
  if (!whole) {
    file.reset();
    std::remove(WideToUtf8(path).c_str());
    return 0;
  }
  return size_;
}

void ByteData::Compress() {
  if (!LzoReady()) return;
  const std::size_t input = static_cast<std::size_t>(std::max(size_, 0));
  const std::size_t bound = PackedBound(input);
  unsigned char* packed = new unsigned char[bound]();
  const std::uint32_t length = static_cast<std::uint32_t>(input);
  for (int i = 0; i < kPrefix; ++i) packed[i] = static_cast<unsigned char>(length >> (8 * i));

  std::vector<unsigned char> workMemory(LZO1Y_MEM_COMPRESS);
  lzo_uint packedLength = 0;
  lzo1y_1_compress(data_, input, packed + kPrefix, &packedLength, workMemory.data());
  Replace(packed, static_cast<std::int32_t>(packedLength) + kPrefix, true);
}

void ByteData::Decompress() {
  if (data_ == nullptr || size_ < kPrefix || !LzoReady()) return;
  const std::int32_t length = ReadLength(data_);
  if (length < 0) return;
  // Zeroed, so that a stream shorter than its stated length leaves zeros
  // behind it rather than whatever the heap held.
  std::unique_ptr<unsigned char[]> content(new unsigned char[static_cast<std::size_t>(length) + 3]());
  lzo_uint produced = static_cast<lzo_uint>(length);
  const int result = lzo1y_decompress_safe(data_ + kPrefix, static_cast<lzo_uint>(size_ - kPrefix), content.get(),
                                           &produced, nullptr);
  if (result != LZO_E_OK) return;
  Replace(content.release(), length, true);
}
