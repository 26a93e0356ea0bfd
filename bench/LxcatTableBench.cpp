// `lxcat table --format csv` of a folder of 20,000 sizes with 20 columns,
// against the library's load of the same packet in this process. The
// program has to attach, load, evaluate and print every value; the goal is
// that all of it, process start included, stays within 1.3 times the load
// alone. Both are timed in every iteration and the ratio is a counter.
//
// Embedded, in a temporary folder removed at the end; the CSV goes to a file
// there, as it would when redirected.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"

extern char** environ;

namespace {

constexpr std::int32_t kSizes = 20000;
constexpr std::int32_t kColumns = 20;

const lxtest::GeneratedCatalog& TableCatalog() {
  return lxtest::GeneratedOnce("bench-lxcat-table", lxtest::FlatPacket(kSizes, kColumns));
}

double Seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// The library's load of the packet, after an attach that is not timed.
double LoadSeconds(const std::wstring& path) {
  LxProviderPool* pool = lxAddLibraryProviderPool(L"LxcatTableBench", L"/bench/lxcat-table.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", path.c_str(), L"SYSDBA", L"masterkey");
  LxFolder* root = provider ? packet_GetRootFolder(provider_GetPacket(provider, 0)) : nullptr;
  const auto start = std::chrono::steady_clock::now();
  LxFolderTable* table = root ? folder_GetTable(root) : nullptr;
  const double seconds = Seconds(start);
  const bool loaded = table && table_GetStdSizeCount(table) == kSizes;
  lxDeleteProviderPool(pool);
  return loaded ? seconds : -1;
}

// The program beside this one, its standard output into `out`.
bool RunLxcat(const std::string& catalog, const std::string& out) {
  const std::string program = (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "lxcat").string();
  const char* argv[] = {program.c_str(), "table", catalog.c_str(), "Пакет 1", "--format", "csv", nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = 0;
  const int started = posix_spawn(&pid, program.c_str(), &actions, nullptr, const_cast<char**>(argv), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  return started == 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void BM_LxcatTableCsv(benchmark::State& state) {
  const lxtest::GeneratedCatalog& catalog = TableCatalog();
  const std::string path = WideToUtf8(catalog.Path());
  const std::string out = (std::filesystem::path(path).parent_path() / "table.csv").string();
  double loads = 0;
  double runs = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const double load = LoadSeconds(catalog.Path());
    state.ResumeTiming();
    const auto start = std::chrono::steady_clock::now();
    const bool ran = RunLxcat(path, out);
    runs += Seconds(start);
    if (load < 0 || !ran) state.SkipWithError("load or lxcat failed");
    loads += load;
  }
  state.counters["load_ms"] = 1000 * loads / state.iterations();
  state.counters["lxcat_ms"] = 1000 * runs / state.iterations();
  state.counters["ratio_to_load"] = runs / loads;
  state.counters["csv_bytes"] = static_cast<double>(std::filesystem::file_size(out));
}
BENCHMARK(BM_LxcatTableCsv)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
