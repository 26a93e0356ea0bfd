// ServiceManager: one attachment to the Firebird service manager of this
// machine, through the embedded engine (no server is involved), as SYSDBA.
// It runs the engine's own maintenance tasks (backup, restore, a change of
// database properties) and waits for each to end.
//
// Owns the service handle: the destructor detaches. Not copyable; one thread
// at a time.
#pragma once

#include "storage/ibpp/Handles.h"

#include <string>

class ServiceRequest;

class ServiceManager {
 public:
  // Attaches; an IBPP::Exception with the engine's text if that fails.
  ServiceManager();
  ~ServiceManager();

  ServiceManager(const ServiceManager&) = delete;
  ServiceManager& operator=(const ServiceManager&) = delete;

  // Starts the task and reads its output until the task has ended. Throws
  // IBPP::Exception when the task cannot start or reports a failure; the
  // message then ends with the task's last lines of output.
  void Run(const ServiceRequest& request);

 private:
  // One poll: appends the task's next line of output to `line`; false once
  // the task has ended and said everything.
  bool NextLine(std::string& line);
  bool StillRunning();

  IBPP::NativeHandle handle_ = 0;
};
