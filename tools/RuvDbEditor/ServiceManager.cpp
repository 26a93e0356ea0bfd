#include "ServiceManager.h"

#include <chrono>
#include <deque>
#include <thread>
#include <vector>

#include "ServiceRequest.h"
#include "storage/ibpp/Exception.h"
#include "storage/ibpp/StatusVector.h"

namespace {

// The embedded engine takes any user name and checks no password, but SQL
// rights still apply: the owner of everything is SYSDBA.
constexpr const char* kUser = "SYSDBA";
constexpr const char* kLocalServiceManager = "service_mgr";
// How much of a failed task's output goes into its message.
constexpr std::size_t kKeptLines = 3;

std::string AttachParameters() {
  const std::string user(kUser);
  std::string parameters;
  parameters += static_cast<char>(isc_spb_version);
  parameters += static_cast<char>(isc_spb_current_version);
  parameters += static_cast<char>(isc_spb_user_name);
  parameters += static_cast<char>(user.size());
  parameters += user;
  return parameters;
}

// What one answer of the service manager to isc_info_svc_line says.
struct LineAnswer {
  std::string line;
  // The task may have more to say even though this answer had no line.
  bool moreToCome = false;
};

LineAnswer ReadLineAnswer(const char* answer, std::size_t size) {
  LineAnswer result;
  const char* cursor = answer;
  const char* end = answer + size;
  while (cursor < end && *cursor != isc_info_end) {
    const char item = *cursor++;
    if (item == isc_info_svc_line) {
      if (end - cursor < 2) break;
      const auto length = static_cast<std::size_t>(isc_vax_integer(cursor, 2));
      cursor += 2;
      if (static_cast<std::size_t>(end - cursor) < length) break;
      result.line.assign(cursor, length);
      cursor += length;
    } else if (item == isc_info_truncated || item == isc_info_data_not_ready || item == isc_info_svc_timeout) {
      result.moreToCome = true;
    } else {
      break;
    }
  }
  return result;
}

}  // namespace

ServiceManager::ServiceManager() {
  const std::string parameters = AttachParameters();
  IBPP::detail::StatusVector status;
  isc_service_attach(status.Get(), 0, kLocalServiceManager, &handle_, static_cast<unsigned short>(parameters.size()),
                     parameters.data());
  if (status.Failed()) {
    handle_ = 0;
    status.ThrowIfFailed();
  }
}

ServiceManager::~ServiceManager() {
  if (handle_ == 0) return;
  IBPP::detail::StatusVector status;
  isc_service_detach(status.Get(), &handle_);
}

void ServiceManager::Run(const ServiceRequest& request) {
  IBPP::detail::StatusVector status;
  isc_service_start(status.Get(), &handle_, nullptr, request.Size(), const_cast<char*>(request.Data()));
  status.ThrowIfFailed();

  std::deque<std::string> lastLines;
  try {
    std::string line;
    while (NextLine(line)) {
      if (line.empty()) continue;
      lastLines.push_back(line);
      if (lastLines.size() > kKeptLines) lastLines.pop_front();
    }
  } catch (const IBPP::Exception& failure) {
    std::string message = failure.what();
    for (const std::string& kept : lastLines) message += "\n" + kept;
    throw IBPP::Exception(message);
  }
}

bool ServiceManager::NextLine(std::string& line) {
  const char request[] = {isc_info_svc_line};
  std::vector<char> answer(32768);
  IBPP::detail::StatusVector status;
  isc_service_query(status.Get(), &handle_, nullptr, 0, nullptr, sizeof request, request,
                    static_cast<unsigned short>(answer.size()), answer.data());
  // A task that failed reports it here, once its output has been read.
  status.ThrowIfFailed();
  LineAnswer result = ReadLineAnswer(answer.data(), answer.size());
  line = std::move(result.line);
  if (!line.empty() || result.moreToCome) return true;
  // An empty line without a hint may be a pause of a quiet task, not its end.
  if (!StillRunning()) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return true;
}

bool ServiceManager::StillRunning() {
  const char request[] = {isc_info_svc_running};
  char answer[16] = {};
  IBPP::detail::StatusVector status;
  isc_service_query(status.Get(), &handle_, nullptr, 0, nullptr, sizeof request, request, sizeof answer, answer);
  status.ThrowIfFailed();
  if (answer[0] != isc_info_svc_running) return false;
  return isc_vax_integer(answer + 1, 4) != 0;
}
