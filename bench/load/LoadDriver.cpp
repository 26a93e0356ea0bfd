#include "LoadDriver.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "CatalogSql.h"
#include "api/DatabaseMaintenance.h"
#include "Journal.h"
#include "platform/TextCodec.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"

extern char** environ;

namespace lxtest {
namespace {

constexpr const char* kDebugPrefix = ">LxDataAcces: ";

std::string Environment(const char* name, const char* fallback = "") {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? fallback : value;
}

struct Target {
  std::string server;
  std::filesystem::path folder;
  std::string path;
  std::string user;
  std::string password;
};

// Four packets of four leaf folders, 20 sizes in each on their own models:
// enough cells for spread-out writes, few enough that loads stay short.
CatalogShape LoadShape() {
  CatalogShape shape;
  shape.packets = 4;
  shape.depth = 1;
  shape.fanOut = 4;
  shape.templatesPerFolder = 5;
  shape.sizesPerTemplate = 4;
  shape.attributes = 3;
  shape.modelBytes = 20'000;
  shape.thumbnailBytes = 300;
  return shape;
}

Target MakeCatalog(bool throughServer) {
  Target target;
  target.server = throughServer ? Environment("LX_TEST_SERVER") : "";
  target.user = throughServer ? Environment("LX_TEST_USER", "SYSDBA") : "SYSDBA";
  target.password = throughServer ? Environment("LX_TEST_PASSWORD") : "";
  const std::string base =
      throughServer ? Environment("LX_TEST_DB_DIR") : std::filesystem::temp_directory_path().string();
  std::string pattern = base + "/lxload-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  target.folder = pattern;
  // The server runs as another user and needs the folder as the files.
  if (throughServer) std::filesystem::permissions(target.folder, std::filesystem::perms(02775));
  target.path = (target.folder / "catalog.fdb").string();
  if (!DatabaseMaintenance::CreateEmptyDatabase(Utf8ToWide(target.path))) {
    throw std::runtime_error("could not write the empty catalog " + target.path);
  }
  CatalogGenerator(LoadShape())
      .Generate(Utf8ToWide(target.server), Utf8ToWide(target.path), Utf8ToWide(target.user),
                Utf8ToWide(target.password));
  return target;
}

std::filesystem::path ClientFile(const Target& target, int client, const char* suffix) {
  return target.folder / ("client-" + std::to_string(client) + suffix);
}

// The client beside this program, with its standard output and error in
// files of the run and a temporary folder of its own.
pid_t StartClient(const Target& target, const LoadPlan& plan, int client) {
  const std::filesystem::path tmp = ClientFile(target, client, ".tmp");
  std::filesystem::create_directory(tmp);
  const std::string program = (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "lxload_client");
  std::vector<std::string> arguments{program};
  auto add = [&arguments](const char* name, const std::string& value) {
    if (!value.empty()) arguments.insert(arguments.end(), {name, value});
  };
  add("--server", target.server);
  add("--database", target.path);
  add("--user", target.user);
  add("--password", target.password);
  add("--client", std::to_string(client));
  add("--threads", std::to_string(plan.threads));
  add("--seconds", std::to_string(plan.seconds));
  add("--sample-seconds", std::to_string(plan.sampleSeconds));
  add("--journal", ClientFile(target, client, ".journal"));
  if (plan.memoryCheck) arguments.push_back("--memory-check");
  std::vector<std::string> environment{"TMP=" + tmp.string()};
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (std::string_view(*variable).substr(0, 4) != "TMP=") environment.push_back(*variable);
  }
  auto pointers = [](std::vector<std::string>& texts) {
    std::vector<char*> list;
    for (std::string& text : texts) list.push_back(text.data());
    list.push_back(nullptr);
    return list;
  };
  std::vector<char*> argv = pointers(arguments);
  std::vector<char*> envp = pointers(environment);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, ClientFile(target, client, ".out").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, ClientFile(target, client, ".err").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = -1;
  const int error = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("could not start " + program);
  return pid;
}

struct Totals {
  std::array<std::int64_t, kOperations> done{};
  std::array<std::int64_t, kOperations> failed{};
  std::map<std::string, std::int64_t> messages;
  std::vector<JournalEntry> journal;
  std::vector<std::string> problems;
  std::vector<std::string> memory;
};

// One debug text as a key to count by: its distinct lines in order of
// appearance, without the indents of nested messages, joined by " | ".
// Numbers (ids, values, error codes) don't tell failures apart, and a load
// retried for each folder of one call says the same thing each time.
std::string MessageKey(std::string_view text) {
  std::vector<std::string> lines(1);
  for (const char ch : text) {
    if (ch == '\n') {
      lines.emplace_back();
    } else if (ch >= '0' && ch <= '9') {
      if (lines.back().empty() || lines.back().back() != '#') lines.back() += '#';
    } else {
      lines.back() += ch;
    }
  }
  std::string key;
  std::set<std::string> seen;
  for (std::string& line : lines) {
    line.erase(0, line.find_first_not_of("> "));
    if (!line.empty() && seen.insert(line).second) key += (key.empty() ? "" : " | ") + line;
  }
  return key;
}

std::string ReadAll(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

void CollectClient(const Target& target, int client, int status, Totals& totals) {
  const std::string label = "client " + std::to_string(client) + ": ";
  std::istringstream out(ReadAll(ClientFile(target, client, ".out")));
  bool ended = false;
  for (std::string line; std::getline(out, line);) {
    std::istringstream fields(line);
    std::string tag;
    fields >> tag;
    if (tag == "op") {
      int op = 0;
      std::int64_t done = 0, failed = 0;
      fields >> op >> done >> failed;
      totals.done.at(op) += done;
      totals.failed.at(op) += failed;
    } else if (tag == "note") {
      std::int64_t count = 0;
      fields >> count >> std::ws;
      std::string reason;
      std::getline(fields, reason);
      totals.messages["(no message) " + reason] += count;
      if (reason.starts_with("FAULT")) totals.problems.push_back(label + reason);
    } else if (tag == "sample" || tag == "memory") {
      totals.memory.push_back(label + line);
      const bool bad = tag == "sample" ? !line.ends_with(" ok") : line.starts_with("memory grew");
      if (bad) totals.problems.push_back(label + line);
    } else if (tag == "end") {
      ended = true;
      if (line != "end ok") totals.problems.push_back(label + line);
    }
  }
  const std::string err = ReadAll(ClientFile(target, client, ".err"));
  if (!ended || status != 0) {
    totals.problems.push_back(label + "exit status " + std::to_string(status) + "; standard error begins:\n" +
                              err.substr(0, 4000));
  }
  for (std::size_t at = err.find(kDebugPrefix); at != std::string::npos;) {
    const std::size_t next = err.find(kDebugPrefix, at + 1);
    const std::size_t text = at + std::string_view(kDebugPrefix).size();
    ++totals.messages[MessageKey(std::string_view(err).substr(text, next - text))];
    at = next;
  }
  std::istringstream journal(ReadAll(ClientFile(target, client, ".journal")));
  JournalEntry entry;
  for (std::string line; std::getline(journal, line);) {
    if (ParseEntry(line, entry)) totals.journal.push_back(entry);
  }
}

// The values of the written attribute, by cell; more than one row for a
// cell is itself a fault.
std::map<std::string, std::vector<std::int64_t>> DatabaseCells(CatalogSql& sql) {
  std::map<std::string, std::vector<std::int64_t>> cells;
  for (const std::wstring& row :
       sql.Texts(L"SELECT sz.ID || ':' || oa.NUMBER || ' ' || COALESCE(cv.INTVAL, 0) FROM ATTRIBUTEVALUE av "
                 L"JOIN OBJECTATTRIBUTE oa ON oa.ID = av.OBJECTATTRIBUTEID JOIN STANDARDSIZE sz ON sz.ID = "
                 L"av.STANDARDSIZEID JOIN CONCRETEVALUE cv ON cv.ID = av.CONCRETEVALUEID WHERE oa.NUMBER = 21")) {
    const std::size_t blank = row.find(L' ');
    cells[WideToUtf8(row.substr(0, blank))].push_back(std::stoll(row.substr(blank + 1)));
  }
  return cells;
}

void CheckValues(CatalogSql& sql, const std::vector<JournalEntry>& journal, Totals& totals) {
  std::map<std::string, std::vector<const JournalEntry*>> writes;
  for (const JournalEntry& entry : journal) {
    if (entry.kind == 'V') writes[entry.key].push_back(&entry);
  }
  const auto cells = DatabaseCells(sql);
  std::int64_t standing = 0, overwritten = 0;
  for (const auto& [cell, entries] : writes) {
    const auto found = cells.find(cell);
    if (found == cells.end() || found->second.size() != 1) {
      totals.problems.push_back("cell " + cell + " has no single value in the database");
      continue;
    }
    const std::int64_t value = found->second.front();
    const JournalEntry* winner = nullptr;
    bool anySucceeded = false;
    for (const JournalEntry* entry : entries) {
      if (entry->value == value && !entry->succeeded) totals.problems.push_back("failed write stands: " + cell);
      if (entry->value == value && entry->succeeded) winner = entry;
      anySucceeded = anySucceeded || entry->succeeded;
    }
    if (anySucceeded && winner == nullptr) totals.problems.push_back("cell " + cell + " holds no succeeded write");
    for (const JournalEntry* entry : entries) {
      if (!entry->succeeded || entry == winner) continue;
      // Overwritten only by a write that can have committed after it.
      if (winner != nullptr && winner->endNs > entry->startNs) {
        ++overwritten;
      } else {
        totals.problems.push_back("succeeded write lost: " + cell + " = " + std::to_string(entry->value));
      }
    }
    standing += winner != nullptr;
  }
  std::cout << "values: " << standing << " succeeded writes stand, " << overwritten
            << " overwritten by later ones, over " << writes.size() << " cells\n";
}

void CheckSizes(CatalogSql& sql, const std::vector<JournalEntry>& journal, Totals& totals) {
  std::map<std::string, int> expected;  // identifier: 1 present, 0 absent
  for (const JournalEntry& entry : journal) {
    if (entry.kind == 'A') expected.emplace(entry.key, 0).first->second += entry.succeeded;
  }
  for (const JournalEntry& entry : journal) {
    if (entry.kind == 'D' && entry.succeeded) expected[entry.key] = 0;
  }
  std::map<std::string, int> present;
  for (const std::wstring& identifier :
       sql.Texts(L"SELECT IDENTIFIER FROM STANDARDSIZE WHERE IDENTIFIER STARTING WITH 'L'")) {
    ++present[WideToUtf8(identifier)];
  }
  std::int64_t standing = 0;
  for (const auto& [identifier, count] : present) {
    if (!expected.contains(identifier)) totals.problems.push_back("size no client added: " + identifier);
  }
  for (const auto& [identifier, count] : expected) {
    const int found = present.contains(identifier) ? present.at(identifier) : 0;
    if (found != count) {
      totals.problems.push_back("size " + identifier + ": " + std::to_string(found) + " rows, expected " +
                                std::to_string(count));
    }
    standing += count;
  }
  std::cout << "sizes: " << expected.size() << " adds tried, " << standing << " sizes expected and present\n";
}

void PrintFigures(const LoadPlan& plan, const Totals& totals) {
  std::cout << "load: " << plan.processes << " process(es) x " << plan.threads << " thread(s), " << plan.seconds
            << " s\n";
  auto row = [&plan](const std::string& name, const auto& done, const auto& failed) {
    std::cout << std::left << std::setw(14) << name << std::right << std::setw(10) << done << std::setw(10) << failed
              << std::setw(12) << std::fixed << std::setprecision(1) << done / double(plan.seconds) << '\n';
  };
  std::cout << std::left << std::setw(14) << "operation" << std::right << std::setw(10) << "done" << std::setw(10)
            << "failed" << std::setw(12) << "per second" << '\n';
  std::int64_t done = 0, failed = 0;
  for (int op = 0; op < kOperations; ++op) {
    row(kOperationNames[op], totals.done[op], totals.failed[op]);
    done += totals.done[op];
    failed += totals.failed[op];
  }
  row("all", done, failed);
  std::cout << "messages of the debug channel:\n";
  for (const auto& [message, count] : totals.messages) std::cout << std::setw(8) << count << "  " << message << '\n';
  for (const std::string& line : totals.memory) std::cout << line << '\n';
}

}  // namespace

int RunLoad(const LoadPlan& plan) {
  const Target target = MakeCatalog(plan.throughServer);
  std::vector<pid_t> clients;
  for (int client = 1; client <= plan.processes; ++client) clients.push_back(StartClient(target, plan, client));
  Totals totals;
  for (int client = 1; client <= plan.processes; ++client) {
    int status = 0;
    waitpid(clients[client - 1], &status, 0);
    CollectClient(target, client, WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), totals);
  }
  PrintFigures(plan, totals);
  CatalogSql sql(Utf8ToWide(target.server), Utf8ToWide(target.path), Utf8ToWide(target.user),
                 Utf8ToWide(target.password));
  CheckValues(sql, totals.journal, totals);
  CheckSizes(sql, totals.journal, totals);
  std::error_code ignored;
  std::filesystem::remove_all(target.folder, ignored);
  for (const std::string& problem : totals.problems) std::cout << "FAULT " << problem << '\n';
  std::cout << (totals.problems.empty() ? "all checks held" : "checks failed") << std::endl;
  return totals.problems.empty() ? 0 : 1;
}

}  // namespace lxtest
