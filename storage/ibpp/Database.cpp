#include "storage/ibpp/Database.h"

#include "storage/ibpp/StatusVector.h"

#include <clocale>
#include <locale.h>

#include <utility>
#include <vector>

namespace IBPP {
namespace {

constexpr const char* kWhere = "Database";

// Database parameter buffer, version 1: tag, one length byte, bytes.
class ParameterBuffer {
 public:
  ParameterBuffer() { bytes_.push_back(isc_dpb_version1); }

  void AddText(char tag, const std::string& value) {
    if (value.size() > 255) detail::ThrowUsageError(kWhere, "a connection parameter is longer than 255 bytes");
    bytes_.push_back(tag);
    bytes_.push_back(static_cast<char>(value.size()));
    bytes_.insert(bytes_.end(), value.begin(), value.end());
  }

  void AddFlag(char tag) {
    bytes_.push_back(tag);
    bytes_.push_back(0);
  }

  const char* Data() const { return bytes_.data(); }
  short Size() const { return static_cast<short>(bytes_.size()); }

 private:
  std::vector<char> bytes_;
};

// The client library converts database paths between UTF-8 and the file
// system's encoding, which it takes once, on first use, from the calling
// thread's locale. A process that never set its locale is plain ASCII then,
// and every path with a Cyrillic letter fails. Our connection strings are
// UTF-8, so around the calls that take a path the thread reads as UTF-8.
// Only this thread's locale changes, and only for the call.
class Utf8PathsOnThisThread {
 public:
  Utf8PathsOnThisThread() {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
    if (utf8 != static_cast<locale_t>(0)) previous_ = uselocale(utf8);
  }
  ~Utf8PathsOnThisThread() {
    if (previous_ != static_cast<locale_t>(0)) uselocale(previous_);
  }
  Utf8PathsOnThisThread(const Utf8PathsOnThisThread&) = delete;
  Utf8PathsOnThisThread& operator=(const Utf8PathsOnThisThread&) = delete;

 private:
  locale_t previous_ = static_cast<locale_t>(0);
};

// A literal for the text of CREATE DATABASE.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) {
    quoted += c;
    if (c == '\'') quoted += '\'';
  }
  quoted += '\'';
  return quoted;
}

}  // namespace

Database::Database(std::string server, std::string path, std::string user, std::string password,
                   std::string role, std::string charSet, std::string createParams)
    : server_(std::move(server)),
      path_(std::move(path)),
      user_(std::move(user)),
      password_(std::move(password)),
      role_(std::move(role)),
      charSet_(std::move(charSet)),
      createParams_(std::move(createParams)) {}

Database::~Database() {
  if (handle_ == 0) return;
  detail::StatusVector status;
  isc_detach_database(status.Get(), &handle_);
}

std::string Database::ConnectionTarget() const {
  if (server_.empty()) return path_;
  return server_ + ":" + path_;
}

void Database::Create() {
  if (Connected()) detail::ThrowUsageError(kWhere, "Create on an attached database");
  std::string sql = "CREATE DATABASE " + Quoted(ConnectionTarget());
  if (!user_.empty()) sql += " USER " + Quoted(user_);
  if (!password_.empty()) sql += " PASSWORD " + Quoted(password_);
  if (!createParams_.empty()) sql += " " + createParams_;
  if (sql.size() > 65535) detail::ThrowUsageError(kWhere, "CREATE DATABASE text too long");

  detail::StatusVector status;
  isc_tr_handle noTransaction = 0;
  Utf8PathsOnThisThread utf8Paths;
  isc_dsql_execute_immediate(status.Get(), &handle_, &noTransaction, static_cast<unsigned short>(sql.size()),
                             sql.c_str(), kDialect, nullptr);
  status.ThrowIfFailed();
}

void Database::Connect() {
  if (Connected()) return;
  ParameterBuffer parameters;
  // Connection strings come in UTF-8. Without this flag the client takes the
  // path to be in the locale's encoding and fails on Cyrillic folder names
  // when the locale is plain C.
  parameters.AddFlag(isc_dpb_utf8_filename);
  if (!user_.empty()) parameters.AddText(isc_dpb_user_name, user_);
  if (!password_.empty()) parameters.AddText(isc_dpb_password, password_);
  if (!role_.empty()) parameters.AddText(isc_dpb_sql_role_name, role_);
  if (!charSet_.empty()) parameters.AddText(isc_dpb_lc_ctype, charSet_);
  // A path without a server opens in-process, where nothing authenticates,
  // yet the client prepares an SRP handshake for every attach: a millisecond
  // or more of big-number arithmetic, paid on every operation since none
  // keeps its attachment. The cheap legacy plugin goes first; SRP still
  // follows for the client's fallback to a local server.
  if (server_.empty()) parameters.AddText(isc_dpb_config, "AuthClient=Legacy_Auth,Srp");

  const std::string target = ConnectionTarget();
  if (target.size() > 32767) detail::ThrowUsageError(kWhere, "database path too long");
  detail::StatusVector status;
  Utf8PathsOnThisThread utf8Paths;
  isc_attach_database(status.Get(), static_cast<short>(target.size()), target.c_str(), &handle_,
                      parameters.Size(), parameters.Data());
  if (status.Failed()) {
    handle_ = 0;
    status.ThrowIfFailed();
  }
}

void Database::Disconnect() {
  if (!Connected()) return;
  detail::StatusVector status;
  isc_detach_database(status.Get(), &handle_);
  status.ThrowIfFailed();
}

}  // namespace IBPP
