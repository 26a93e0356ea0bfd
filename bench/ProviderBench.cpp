// One provider_GetParam miss (a parameter the catalog does not have), as the
// export does it: frame, one attachment, one transaction, the query for the
// BASE_PARAM table, the query for the parameter, rollback, detach, and the
// two-message report written to the debug channel. Against it, the same
// database work written directly against the Firebird client library (the
// ISC API) with nothing around it: once with both queries (the like-for-like
// figure the export is held to: within 10%), once with only the parameter
// query (what the miss would cost with one query).
//
// Each comes cold (nothing else has the catalog open, the export's real
// case) and warm (another attachment keeps the database open, which leaves
// only the connection and statement work, where the library's own overhead
// would show). Embedded always; through the loopback server as well when
// LX_TEST_SERVER is set (run under tests/storage/with-server.sh, which also
// sets LX_TEST_DB_DIR, LX_TEST_USER and LX_TEST_PASSWORD).
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <ibase.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "LxDataAccess.h"
#include "platform/TextCodec.h"

namespace {

constexpr const char* kTableQuery = "SELECT RDB$RELATION_NAME FROM RDB$RELATIONS WHERE RDB$RELATION_NAME = ?";
constexpr const char* kParamQuery = "SELECT val FROM BASE_PARAM WHERE name = ? AND tag = ?";
constexpr const char* kMissingName = "NO_SUCH_PARAMETER";

std::string Environment(const char* name, const char* fallback = "") {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? fallback : value;
}

// Where the benchmark's catalog lives and how it is reached.
struct Target {
  std::string server;  // empty: embedded
  std::string folder;
  std::string path;
  std::string user;
  std::string password;

  std::string ConnectionString() const { return server.empty() ? path : server + ":" + path; }
};

// A catalog file of its own, written by the library, removed at the end.
class BenchCatalog {
 public:
  explicit BenchCatalog(bool throughServer) {
    target_.server = throughServer ? Environment("LX_TEST_SERVER") : "";
    target_.user = throughServer ? Environment("LX_TEST_USER", "SYSDBA") : "SYSDBA";
    target_.password = throughServer ? Environment("LX_TEST_PASSWORD") : "";
    std::string pattern = (throughServer ? Environment("LX_TEST_DB_DIR") : std::filesystem::temp_directory_path().string()) +
                          "/bench-provider-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    target_.folder = pattern;
    // The server runs as another user; it needs the folder as the files.
    if (throughServer) std::filesystem::permissions(target_.folder, std::filesystem::perms(02775));
    target_.path = target_.folder + "/catalog.fdb";
    if (!lxCreateEmptyFDB(Utf8ToWide(target_.path).c_str())) throw std::runtime_error("lxCreateEmptyFDB failed");
  }
  ~BenchCatalog() {
    std::error_code ignored;
    std::filesystem::remove_all(target_.folder, ignored);
  }
  BenchCatalog(const BenchCatalog&) = delete;
  BenchCatalog& operator=(const BenchCatalog&) = delete;

  const Target& Get() const { return target_; }

 private:
  Target target_;
};

// The export writes its report to standard error; during the timing it goes
// to /dev/null, so the write is measured but the console stays readable.
class QuietStandardError {
 public:
  QuietStandardError() : saved_(dup(STDERR_FILENO)) {
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(null, STDERR_FILENO);
    close(null);
  }
  ~QuietStandardError() {
    dup2(saved_, STDERR_FILENO);
    close(saved_);
  }
  QuietStandardError(const QuietStandardError&) = delete;
  QuietStandardError& operator=(const QuietStandardError&) = delete;

 private:
  int saved_;
};

// ---- the library's way

class LibraryProvider {
 public:
  explicit LibraryProvider(const Target& target) {
    pool_ = lxAddLibraryProviderPool(L"bench_provider", L"/lib/bench.ulb");
    provider_ = pool_AddProvider(pool_, Utf8ToWide(target.server).c_str(),
                                 Utf8ToWide(target.path).c_str(), Utf8ToWide(target.user).c_str(),
                                 Utf8ToWide(target.password).c_str());
    if (provider_ == nullptr) throw std::runtime_error("pool_AddProvider failed");
  }
  ~LibraryProvider() { lxDeleteProviderPool(pool_); }
  LibraryProvider(const LibraryProvider&) = delete;
  LibraryProvider& operator=(const LibraryProvider&) = delete;

  LxDataProvider* Get() const { return provider_; }

 private:
  LxProviderPool* pool_ = nullptr;
  LxDataProvider* provider_ = nullptr;
};

void LibraryParamMiss(benchmark::State& state, const Target& target) {
  const LibraryProvider provider(target);
  const std::wstring name = Utf8ToWide(kMissingName);
  QuietStandardError quiet;
  for (auto _ : state) {
    const wchar_t* value = provider_GetParam(provider.Get(), name.c_str(), L"");
    if (value != nullptr) {
      state.SkipWithError("the parameter was found");
      break;
    }
    benchmark::DoNotOptimize(value);
  }
}

// ---- the same work straight on the ISC API

class IscError : public std::runtime_error {
 public:
  explicit IscError(const ISC_STATUS* status) : std::runtime_error(Text(status)) {}

 private:
  static std::string Text(const ISC_STATUS* status) {
    std::string text;
    char line[512];
    while (fb_interpret(line, sizeof line, &status) != 0) text += std::string(line) + "; ";
    return text;
  }
};

void Check(const ISC_STATUS* status) {
  if (status[0] == 1 && status[1] != 0) throw IscError(status);
}

class Attachment {
 public:
  // `forcedWrites` other than -1 also sets the database's write mode, which
  // the engine keeps.
  explicit Attachment(const Target& target, int forcedWrites = -1) {
    std::string parameters{static_cast<char>(isc_dpb_version1)};
    auto add = [&](char tag, const std::string& value) {
      parameters += tag;
      parameters += static_cast<char>(value.size());
      parameters += value;
    };
    add(isc_dpb_user_name, target.user);
    if (!target.password.empty()) add(isc_dpb_password, target.password);
    if (forcedWrites != -1) add(isc_dpb_force_write, std::string(1, static_cast<char>(forcedWrites)));
    const std::string connection = target.ConnectionString();
    ISC_STATUS_ARRAY status{};
    isc_attach_database(status, static_cast<short>(connection.size()), connection.c_str(), &handle_,
                        static_cast<short>(parameters.size()), parameters.data());
    Check(status);
  }
  ~Attachment() {
    ISC_STATUS_ARRAY status{};
    if (handle_ != 0) isc_detach_database(status, &handle_);
  }
  Attachment(const Attachment&) = delete;
  Attachment& operator=(const Attachment&) = delete;

  isc_db_handle* Handle() { return &handle_; }

 private:
  isc_db_handle handle_ = 0;
};

// The library's one kind: write, read committed, no record version, no wait.
class Transaction {
 public:
  explicit Transaction(Attachment& attachment) {
    static const char kParameters[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_no_rec_version,
                                       isc_tpb_nowait};
    ISC_STATUS_ARRAY status{};
    isc_start_transaction(status, &handle_, 1, attachment.Handle(), static_cast<unsigned short>(sizeof kParameters),
                          kParameters);
    Check(status);
  }
  // Reading only: nothing to commit.
  ~Transaction() {
    ISC_STATUS_ARRAY status{};
    if (handle_ != 0) isc_rollback_transaction(status, &handle_);
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  isc_tr_handle* Handle() { return &handle_; }

 private:
  isc_tr_handle handle_ = 0;
};

// An XSQLDA with room for `count` variables and, once bound, their data.
class Descriptor {
 public:
  explicit Descriptor(short count) : storage_(XSQLDA_LENGTH(count)) {
    Get()->version = SQLDA_VERSION1;
    Get()->sqln = count;
    Get()->sqld = count;
  }
  XSQLDA* Get() { return reinterpret_cast<XSQLDA*>(storage_.data()); }

  // Input: each variable is a text of the given bytes.
  void SetTexts(std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      XSQLVAR& var = Get()->sqlvar[i];
      var.sqltype = SQL_TEXT;
      var.sqlsubtype = 0;
      var.sqlscale = 0;
      var.sqllen = static_cast<short>(texts[i].size());
      var.sqldata = texts[i].data();
      var.sqlind = nullptr;
    }
  }
  // Output: room for what the prepare described.
  void Bind() {
    data_.clear();
    indicators_.assign(Get()->sqld, 0);
    for (short i = 0; i < Get()->sqld; ++i) {
      XSQLVAR& var = Get()->sqlvar[i];
      data_.emplace_back(var.sqllen + sizeof(short));
      var.sqldata = data_.back().data();
      var.sqlind = &indicators_[i];
    }
  }

 private:
  std::vector<char> storage_;
  std::vector<std::vector<char>> data_;
  std::vector<short> indicators_;
};

class Statement {
 public:
  Statement(Attachment& attachment, Transaction& transaction) : transaction_(transaction) {
    ISC_STATUS_ARRAY status{};
    isc_dsql_allocate_statement(status, attachment.Handle(), &handle_);
    Check(status);
  }
  ~Statement() {
    ISC_STATUS_ARRAY status{};
    if (handle_ != 0) isc_dsql_free_statement(status, &handle_, DSQL_drop);
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Prepares, runs with the texts as parameters and fetches the first row;
  // true when there was one.
  bool FirstRow(const char* sql, std::vector<std::string> parameters) {
    ISC_STATUS_ARRAY status{};
    Descriptor columns(1);
    isc_dsql_prepare(status, transaction_.Handle(), &handle_, 0, sql, SQL_DIALECT_V6, columns.Get());
    Check(status);
    columns.Bind();
    Descriptor input(static_cast<short>(parameters.size()));
    input.SetTexts(parameters);
    isc_dsql_execute(status, transaction_.Handle(), &handle_, SQL_DIALECT_V6, input.Get());
    Check(status);
    const ISC_STATUS fetched = isc_dsql_fetch(status, &handle_, SQL_DIALECT_V6, columns.Get());
    if (fetched != 0 && fetched != 100) Check(status);
    isc_dsql_free_statement(status, &handle_, DSQL_close);
    return fetched == 0;
  }

 private:
  Transaction& transaction_;
  isc_stmt_handle handle_ = 0;
};

bool DirectParamMiss(const Target& target, bool withTableQuery) {
  Attachment attachment(target);
  Transaction transaction(attachment);
  Statement statement(attachment, transaction);
  if (withTableQuery && !statement.FirstRow(kTableQuery, {"BASE_PARAM"})) return false;
  return !statement.FirstRow(kParamQuery, {kMissingName, ""});
}

void DirectParamMissLoop(benchmark::State& state, const Target& target, bool withTableQuery) {
  for (auto _ : state) {
    if (!DirectParamMiss(target, withTableQuery)) {
      state.SkipWithError("the direct queries did not miss");
      break;
    }
  }
}

// ---- the two ways, side by side

enum class Way { kLibrary, kDirectTwoQueries, kDirectOneQuery };

// A cold run is the export's real situation: nothing else has the catalog
// open, so every attach makes the engine open the database and every detach
// close it again. A warm run keeps one more attachment open for the whole
// loop, so the database stays open and what remains is the connection and
// the statements: the part where the library could add cost of its own.
void ParamMiss(benchmark::State& state, Way way, bool throughServer, bool warm) {
  try {
    const BenchCatalog catalog(throughServer);
    // Every attach and transaction start writes the header page; with forced
    // writes each write waits for the disk, whose latency is the same for
    // both ways and drowns the difference between them.
    Attachment(catalog.Get(), 0);
    std::unique_ptr<Attachment> holder;
    if (warm) holder = std::make_unique<Attachment>(catalog.Get());
    switch (way) {
      case Way::kLibrary:
        LibraryParamMiss(state, catalog.Get());
        break;
      case Way::kDirectTwoQueries:
        DirectParamMissLoop(state, catalog.Get(), true);
        break;
      case Way::kDirectOneQuery:
        DirectParamMissLoop(state, catalog.Get(), false);
        break;
    }
  } catch (const std::exception& failure) {
    state.SkipWithError(failure.what());
  }
}

// The server runs only where a server was set up.
bool RegisterAll() {
  struct Choice {
    const char* label;
    Way way;
  };
  const Choice ways[] = {{"library", Way::kLibrary},
                         {"direct_two_queries", Way::kDirectTwoQueries},
                         {"direct_one_query", Way::kDirectOneQuery}};
  std::vector<std::pair<std::string, bool>> connections{{"embedded", false}};
  if (!Environment("LX_TEST_SERVER").empty()) connections.emplace_back("server", true);
  for (const auto& [connection, throughServer] : connections) {
    for (const bool warm : {false, true}) {
      for (const Choice& choice : ways) {
        const std::string name = "ParamMiss/" + connection + (warm ? "/warm/" : "/cold/") + choice.label;
        const Way way = choice.way;
        const bool server = throughServer;
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) { ParamMiss(state, way, server, warm); })
            ->Unit(benchmark::kMicrosecond);
      }
    }
  }
  return true;
}

const bool registered = RegisterAll();

}  // namespace
