#include "storage/ibpp/Blob.h"

#include "storage/ibpp/Database.h"
#include "storage/ibpp/StatusVector.h"
#include "storage/ibpp/Transaction.h"

#include <utility>

namespace IBPP {
namespace {

constexpr const char* kWhere = "Blob";

ISC_QUAD ToQuad(BlobId id) {
  ISC_QUAD quad;
  quad.gds_quad_high = id.high;
  quad.gds_quad_low = id.low;
  return quad;
}

BlobId FromQuad(const ISC_QUAD& quad) { return BlobId{quad.gds_quad_high, quad.gds_quad_low}; }

// Reads one numeric item of an isc_blob_info answer: tag, 2-byte length, value.
int ItemValue(const char* item) {
  const short length = static_cast<short>(isc_vax_integer(item + 1, 2));
  return static_cast<int>(isc_vax_integer(item + 3, length));
}

}  // namespace

Blob::Blob(Database& database, Transaction& transaction) : database_(&database), transaction_(&transaction) {}

Blob::Blob(Blob&& other) noexcept
    : database_(other.database_),
      transaction_(other.transaction_),
      id_(other.id_),
      handle_(std::exchange(other.handle_, 0)),
      state_(std::exchange(other.state_, State::Idle)) {}

Blob::~Blob() {
  if (handle_ == 0) return;
  detail::StatusVector status;
  if (state_ == State::Writing)
    isc_cancel_blob(status.Get(), &handle_);
  else
    isc_close_blob(status.Get(), &handle_);
}

void Blob::Create() {
  if (state_ != State::Idle) detail::ThrowUsageError(kWhere, "Create on a blob that is open");
  detail::StatusVector status;
  ISC_QUAD quad{};
  isc_create_blob2(status.Get(), database_->Handle(), transaction_->Handle(), &handle_, &quad, 0, nullptr);
  if (status.Failed()) {
    handle_ = 0;
    status.ThrowIfFailed();
  }
  id_ = FromQuad(quad);
  state_ = State::Writing;
}

void Blob::Open() {
  if (state_ != State::Idle) detail::ThrowUsageError(kWhere, "Open on a blob that is open");
  if (id_.IsEmpty()) detail::ThrowUsageError(kWhere, "Open of a null blob");
  detail::StatusVector status;
  ISC_QUAD quad = ToQuad(id_);
  isc_open_blob2(status.Get(), database_->Handle(), transaction_->Handle(), &handle_, &quad, 0, nullptr);
  if (status.Failed()) {
    handle_ = 0;
    status.ThrowIfFailed();
  }
  state_ = State::Reading;
}

void Blob::Close() {
  if (state_ == State::Idle) detail::ThrowUsageError(kWhere, "Close on a blob that is not open");
  detail::StatusVector status;
  isc_close_blob(status.Get(), &handle_);
  status.ThrowIfFailed();
  handle_ = 0;
  state_ = State::Idle;
}

void Blob::Info(int* totalSize, int* largestSegment, int* segmentCount) {
  if (state_ == State::Idle) detail::ThrowUsageError(kWhere, "Info on a blob that is not open");
  const char items[] = {isc_info_blob_total_length, isc_info_blob_max_segment, isc_info_blob_num_segments};
  char answer[64];
  detail::StatusVector status;
  isc_blob_info(status.Get(), &handle_, sizeof items, items, sizeof answer, answer);
  status.ThrowIfFailed();

  for (const char* item = answer; item < answer + sizeof answer && *item != isc_info_end;) {
    if (*item == isc_info_truncated) detail::ThrowUsageError(kWhere, "blob information truncated");
    const int value = ItemValue(item);
    switch (*item) {
      case isc_info_blob_total_length:
        if (totalSize != nullptr) *totalSize = value;
        break;
      case isc_info_blob_max_segment:
        if (largestSegment != nullptr) *largestSegment = value;
        break;
      case isc_info_blob_num_segments:
        if (segmentCount != nullptr) *segmentCount = value;
        break;
      default:
        break;
    }
    item += 3 + isc_vax_integer(item + 1, 2);
  }
}

int Blob::Read(void* buffer, int size) {
  if (state_ != State::Reading) detail::ThrowUsageError(kWhere, "Read on a blob that is not open for reading");
  if (size <= 0) return 0;
  const unsigned short request = size > 65535 ? 65535 : static_cast<unsigned short>(size);
  unsigned short actual = 0;
  detail::StatusVector status;
  const ISC_STATUS result = isc_get_segment(status.Get(), &handle_, &actual, request, static_cast<char*>(buffer));
  // isc_segment only says that the segment goes on beyond this buffer.
  if (result == isc_segstr_eof) return 0;
  if (result != 0 && result != isc_segment) status.ThrowIfFailed();
  return actual;
}

void Blob::Write(const void* buffer, int size) {
  if (state_ != State::Writing) detail::ThrowUsageError(kWhere, "Write on a blob that is not open for writing");
  if (size <= 0 || size > kMaxSegment) detail::ThrowUsageError(kWhere, "a segment holds 1 to 32767 bytes");
  detail::StatusVector status;
  isc_put_segment(status.Get(), &handle_, static_cast<unsigned short>(size), static_cast<const char*>(buffer));
  status.ThrowIfFailed();
}

void Blob::SetId(BlobId id) {
  if (state_ != State::Idle) detail::ThrowUsageError(kWhere, "SetId on a blob that is open");
  id_ = id;
}

}  // namespace IBPP
