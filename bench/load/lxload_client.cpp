// lxload_client: one client of a load run, started by lxload or lxsoak with
// the library loaded into a process of its own. Its threads share one pool
// and do mixed work until the time is up; meanwhile the main thread samples
// resident memory and checks the temporary folder. It writes its journal of
// writes to a file and its figures to standard output, one fact a line:
//
//   op <operation> <done> <failed>
//   note <count> <reason>
//   sample <seconds> <resident kB> <temporary files> ok|<problem>
//   memory ok|grew <first kB> <largest kB>
//   end ok|<problem>
//
//   lxload_client --database PATH [--server S --user U --password P]
//                 --client N --threads T --seconds S --journal FILE
//                 [--sample-seconds M] [--memory-check]
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "MixedWork.h"

namespace {

using Clock = std::chrono::steady_clock;

// Growth of resident memory allowed after the first sample.
constexpr double kMemoryTolerance = 1.05;

std::map<std::string, std::string> Arguments(int argc, char** argv) {
  std::map<std::string, std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--", 2) != 0) continue;
    const bool hasValue = i + 1 < argc && std::strncmp(argv[i + 1], "--", 2) != 0;
    arguments[argv[i] + 2] = hasValue ? argv[i + 1] : "";
    i += hasValue;
  }
  return arguments;
}

std::wstring Wide(const std::string& text) { return std::filesystem::path(text).wstring(); }

long ResidentKb() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
  }
  return 0;
}

// Resident memory must level off: no sample after the first above it by more
// than the tolerance. AddressSanitizer's quarantine keeps freed memory
// resident by design (its leak checker covers leaks there), so the figures
// are only reported under it.
bool MemoryLevelled(const std::vector<long>& samples) {
  long largest = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) largest = std::max(largest, samples[i]);
  bool levelled = samples.size() < 2 || largest <= samples.front() * kMemoryTolerance;
#if defined(__SANITIZE_ADDRESS__)
  levelled = true;
#endif
  std::cout << "memory " << (levelled ? "ok" : "grew") << ' ' << (samples.empty() ? 0 : samples.front()) << ' '
            << largest << '\n';
  return levelled;
}

// Samples memory and the temporary folder every `sampleSeconds` until
// `end`, while the workers run; false when the folder was wrong once.
bool Sample(lxtest::LoadClient& client, Clock::time_point start, Clock::time_point end, int sampleSeconds,
            std::vector<long>& samples) {
  bool ok = true;
  for (int n = 1; sampleSeconds > 0 && start + std::chrono::seconds(n * sampleSeconds) <= end; ++n) {
    std::this_thread::sleep_until(start + std::chrono::seconds(n * sampleSeconds));
    std::unique_lock exclusive(client.Handles());
    const std::string problem = client.TempFolderProblem();
    samples.push_back(ResidentKb());
    std::cout << "sample " << n * sampleSeconds << ' ' << samples.back() << ' ' << client.TempFileCount() << ' '
              << (problem.empty() ? "ok" : problem) << std::endl;
    ok = ok && problem.empty();
  }
  return ok;
}

// Prints the counts and notes of all threads.
void Report(const std::vector<std::unique_ptr<lxtest::MixedWork>>& works) {
  std::map<std::string, std::int64_t> notes;
  for (int op = 0; op < lxtest::kOperations; ++op) {
    std::int64_t done = 0, failed = 0;
    for (const auto& work : works) {
      done += work->Done()[op];
      failed += work->Failed()[op];
    }
    std::cout << "op " << op << ' ' << done << ' ' << failed << '\n';
  }
  for (const auto& work : works) {
    for (const auto& [reason, count] : work->Notes()) notes[reason] += count;
  }
  for (const auto& [reason, count] : notes) std::cout << "note " << count << ' ' << reason << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  auto arguments = Arguments(argc, argv);
  const lxtest::Connection connection{Wide(arguments["server"]), Wide(arguments["database"]),
                                      Wide(arguments.count("user") ? arguments["user"] : "SYSDBA"),
                                      Wide(arguments["password"])};
  const int clientNumber = std::atoi(arguments["client"].c_str());
  const int threads = std::max(1, std::atoi(arguments["threads"].c_str()));

  auto client = std::make_unique<lxtest::LoadClient>(connection, clientNumber, arguments["journal"]);
  std::vector<std::unique_ptr<lxtest::MixedWork>> works;
  for (int t = 0; t < threads; ++t) {
    works.push_back(std::make_unique<lxtest::MixedWork>(*client, t, clientNumber * 1000 + t));
  }
  const int sampleSeconds = std::atoi(arguments["sample-seconds"].c_str());
  if (sampleSeconds > 0) works.front()->WarmUp();
  const Clock::time_point start = Clock::now();
  const Clock::time_point end = start + std::chrono::seconds(std::atoi(arguments["seconds"].c_str()));
  std::vector<std::thread> workers;
  for (auto& work : works) {
    workers.emplace_back([&work, end] {
      while (Clock::now() < end) work->RunOne();
    });
  }
  std::vector<long> samples;
  bool ok = Sample(*client, start, end, sampleSeconds, samples);
  for (std::thread& worker : workers) worker.join();

  std::string problem = client->TempFolderProblem();
  if (!client->JournalWritten()) problem += "the journal could not be written; ";
  client.reset();
  const char* tmp = std::getenv("TMP");
  if (tmp != nullptr && !std::filesystem::is_empty(tmp)) problem += "files left after the pool was deleted; ";
  if (arguments.count("memory-check")) ok = MemoryLevelled(samples) && ok;
  Report(works);
  std::cout << "end " << (problem.empty() ? "ok" : problem) << std::endl;
  return ok && problem.empty() ? 0 : 1;
}
