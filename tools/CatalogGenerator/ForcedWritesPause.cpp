#include "tools/CatalogGenerator/ForcedWritesPause.h"

#include <ibase.h>
#include <locale.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/TextCodec.h"
#include "storage/CDataProvider.h"
#include "storage/ibpp/Exception.h"

namespace {

[[noreturn]] void ThrowClientFailure(const ISC_STATUS* status, const std::string& what) {
  std::string message = what;
  char line[512];
  const ISC_STATUS* cursor = status;
  while (fb_interpret(line, sizeof line, &cursor) > 0) message += std::string("\n") + line;
  throw IBPP::Exception(message);
}

// The client library settles the file system's encoding of paths once, from
// the calling thread's locale at its first use, and this may be the first
// use in the process. Paths are UTF-8, so the thread reads as UTF-8 for the
// call, as our storage layer arranges around its own attaches.
class Utf8LocaleForThisCall {
 public:
  Utf8LocaleForThisCall() {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
    if (utf8 != static_cast<locale_t>(0)) previous_ = uselocale(utf8);
  }
  ~Utf8LocaleForThisCall() {
    if (previous_ != static_cast<locale_t>(0)) uselocale(previous_);
  }
  Utf8LocaleForThisCall(const Utf8LocaleForThisCall&) = delete;
  Utf8LocaleForThisCall& operator=(const Utf8LocaleForThisCall&) = delete;

 private:
  locale_t previous_ = static_cast<locale_t>(0);
};

// One attachment made with our own parameter buffer. Connection strings are
// UTF-8, told to the client by isc_dpb_utf8_filename, as our storage layer
// does.
class RawAttachment {
 public:
  RawAttachment(const CDataProvider& provider, std::optional<bool> forceWrite) {
    const std::string server = WideToUtf8(provider.GetServerName());
    const std::string path = WideToUtf8(provider.GetDatabaseName());
    const std::string target = server.empty() ? path : server + ":" + path;
    std::vector<char> dpb{isc_dpb_version1, isc_dpb_utf8_filename, 0};
    AddText(dpb, isc_dpb_user_name, WideToUtf8(provider.GetUserName()));
    AddText(dpb, isc_dpb_password, WideToUtf8(provider.GetPassword()));
    if (forceWrite) {
      dpb.insert(dpb.end(), {isc_dpb_force_write, 1, static_cast<char>(*forceWrite ? 1 : 0)});
    }
    ISC_STATUS_ARRAY status{};
    Utf8LocaleForThisCall utf8;
    isc_attach_database(status, static_cast<short>(target.size()), target.c_str(), &handle_,
                        static_cast<short>(dpb.size()), dpb.data());
    if (status[0] == 1 && status[1] != 0) {
      handle_ = 0;
      ThrowClientFailure(status, "could not attach " + target + " to change forced writes");
    }
  }

  ~RawAttachment() {
    ISC_STATUS_ARRAY status{};
    if (handle_ != 0) isc_detach_database(status, &handle_);
  }

  RawAttachment(const RawAttachment&) = delete;
  RawAttachment& operator=(const RawAttachment&) = delete;

  bool ForcedWrites() {
    const char item = isc_info_forced_writes;
    char answer[32];
    ISC_STATUS_ARRAY status{};
    isc_database_info(status, &handle_, 1, &item, sizeof answer, answer);
    if (status[0] == 1 && status[1] != 0) ThrowClientFailure(status, "could not read forced writes");
    if (answer[0] != isc_info_forced_writes) throw IBPP::Exception("the engine did not report forced writes");
    const short length = static_cast<short>(isc_vax_integer(answer + 1, 2));
    return isc_vax_integer(answer + 3, length) != 0;
  }

 private:
  static void AddText(std::vector<char>& dpb, char tag, const std::string& text) {
    if (text.empty()) return;
    if (text.size() > 255) throw IBPP::Exception("a connection parameter is longer than 255 bytes");
    dpb.push_back(tag);
    dpb.push_back(static_cast<char>(text.size()));
    dpb.insert(dpb.end(), text.begin(), text.end());
  }

  isc_db_handle handle_ = 0;
};

}  // namespace

bool ForcedWritesPause::ForcedWrites(const CDataProvider& provider) {
  return RawAttachment(provider, std::nullopt).ForcedWrites();
}

ForcedWritesPause::ForcedWritesPause(const CDataProvider& provider)
    : provider_(provider), wasForced_(ForcedWrites(provider)) {
  if (wasForced_) RawAttachment(provider_, false);
}

// Often reached while an exception from the generation is under way; that
// one says more than a second failure here would.
ForcedWritesPause::~ForcedWritesPause() {
  if (resumed_) return;
  try {
    Resume();
  } catch (...) {
  }
}

void ForcedWritesPause::Resume() {
  if (wasForced_) RawAttachment(provider_, true);
  resumed_ = true;
}
