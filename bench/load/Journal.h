// What a load client and its driver share: the operations, and the journal
// of one client, every write it made as it saw the write end. The client
// writes a text line per write as the write ends; the driver reads all
// clients' lines back and holds them against the database. Times are
// CLOCK_MONOTONIC, which all processes of the machine share, so entries of
// different clients can be ordered.
//
// Plain values and pure functions; no synchronisation of their own.
#pragma once

#include <time.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>

namespace lxtest {

// The operations of the mixed work; clients report their counts by index.
enum class Operation { PacketLoad, Search, ValueWrite, SizeAdd, SizeDelete, ModelRead };
inline constexpr int kOperations = 6;
inline constexpr std::array<const char*, kOperations> kOperationNames{"packet load", "search",      "value write",
                                                                      "size add",    "size delete", "model read"};

struct JournalEntry {
  // 'V' a value written to a cell, 'A' a size added, 'D' a size deleted.
  char kind = 'V';
  // A cell as "<size id>:<attribute number>", or a size's identifier
  // (identifiers of added sizes are ASCII and hold no blank).
  std::string key;
  // The integer written ('V' only).
  std::int64_t value = 0;
  std::int64_t startNs = 0;
  std::int64_t endNs = 0;
  bool succeeded = false;
};

inline std::int64_t MonotonicNs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::int64_t>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

inline std::string FormatEntry(const JournalEntry& entry) {
  std::ostringstream line;
  line << entry.kind << ' ' << entry.key << ' ' << entry.value << ' ' << entry.startNs << ' ' << entry.endNs << ' '
       << (entry.succeeded ? 1 : 0);
  return line.str();
}

// False for a line that is not an entry.
inline bool ParseEntry(const std::string& text, JournalEntry& entry) {
  std::istringstream line(text);
  int succeeded = 0;
  line >> entry.kind >> entry.key >> entry.value >> entry.startNs >> entry.endNs >> succeeded;
  entry.succeeded = succeeded == 1;
  return !line.fail();
}

}  // namespace lxtest
