#include "storage/BlobTransfer.h"

#include "storage/ibpp/Exception.h"

#include <algorithm>

std::vector<unsigned char> ReadWholeBlob(IBPP::Blob& blob) {
  blob.Open();
  int total = 0;
  int largestSegment = 0;
  blob.Info(&total, &largestSegment, nullptr);

  std::vector<unsigned char> bytes(static_cast<std::size_t>(std::max(total, 0)));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const int wanted = std::max(1, largestSegment);
    const int room = static_cast<int>(std::min<std::size_t>(bytes.size() - done, static_cast<std::size_t>(wanted)));
    const int read = blob.Read(bytes.data() + done, room);
    if (read <= 0) throw IBPP::Exception("Blob: ended before its stated length");
    done += static_cast<std::size_t>(read);
  }
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
