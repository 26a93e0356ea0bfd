#include "storage/BlobTransfer.h"

#include <algorithm>

#include "storage/ibpp/Exception.h"
#include "storage/ibpp/Statement.h"

namespace {

// Fills the buffer from the opened blob, a largest segment at a time.
void ReadInto(IBPP::Blob& blob, unsigned char* buffer, std::size_t total, int largestSegment) {
  const std::size_t wanted = static_cast<std::size_t>(std::max(1, largestSegment));
  for (std::size_t done = 0; done < total;) {
    const int room = static_cast<int>(std::min(total - done, wanted));
    const int read = blob.Read(buffer + done, room);
    if (read <= 0) throw IBPP::Exception("Blob: ended before its stated length");
    done += static_cast<std::size_t>(read);
  }
}

}  // namespace

std::vector<unsigned char> ReadWholeBlob(IBPP::Blob& blob) {
  blob.Open();
  int total = 0;
  int largestSegment = 0;
  blob.Info(&total, &largestSegment, nullptr);
  std::vector<unsigned char> bytes(static_cast<std::size_t>(std::max(total, 0)));
  ReadInto(blob, bytes.data(), bytes.size(), largestSegment);
  blob.Close();
  return bytes;
}

void WriteWholeBlob(IBPP::Blob& blob, std::span<const unsigned char> bytes) {
  blob.Create();
  for (std::size_t done = 0; done < bytes.size();) {
    const std::size_t piece = std::min<std::size_t>(bytes.size() - done, IBPP::Blob::kMaxSegment);
    blob.Write(bytes.data() + done, static_cast<int>(piece));
    done += piece;
  }
  blob.Close();
}

ByteDataPtr LoadBlobColumn(const IBPP::Statement& statement, int column, IBPP::Blob& blob) {
  statement.Get(column, blob);
  blob.Open();
  int total = 0;
  int largestSegment = 0;
  blob.Info(&total, &largestSegment, nullptr);
  if (total <= 0) {
    blob.Close();
    return nullptr;
  }
  auto data = std::make_shared<ByteData>();
  ReadInto(blob, data->Allocate(total), static_cast<std::size_t>(total), largestSegment);
  blob.Close();
  data->Decompress();
  return data;
}
