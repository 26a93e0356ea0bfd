#include "storage/ibpp/StatusVector.h"

#include "storage/ibpp/Exception.h"

#include <algorithm>

namespace IBPP::detail {

StatusVector::StatusVector() { std::fill(std::begin(vector_), std::end(vector_), 0); }

bool StatusVector::Failed() const { return vector_[0] == isc_arg_gds && vector_[1] != 0; }

std::string StatusVector::Text() const {
  std::string text;
  const ISC_STATUS* cursor = vector_;
  char line[1024];
  while (fb_interpret(line, sizeof line, &cursor) != 0) {
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

void StatusVector::ThrowIfFailed() const {
  if (Failed()) throw Exception(Text());
}

void ThrowUsageError(std::string_view where, std::string_view what) {
  std::string message(where);
  message += ": ";
  message += what;
  throw Exception(std::move(message));
}

}  // namespace IBPP::detail

// The layer's headers restate these types to stay free of <ibase.h>.
#include "storage/ibpp/Handles.h"

#include <type_traits>

static_assert(std::is_same_v<IBPP::NativeHandle, FB_API_HANDLE>);
static_assert(sizeof(IBPP::BlobId) == sizeof(ISC_QUAD));
