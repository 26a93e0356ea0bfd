// The driver of a load run, shared by lxload and lxsoak: it generates a
// catalog in a folder of its own, starts the clients (lxload_client, each a
// process that loads the library itself), waits for them, and then prints
// the figures: operations per second, failures counted by the message the
// library wrote, memory samples, and the check of every client's journal
// against the database, read directly in SQL: each write a client saw
// succeed is in the database or was overwritten by a write that may have
// committed after it, and no write that failed is there.
//
// Through the server of tests/storage/with-server.sh when asked (clients of
// several processes share one catalog only there), else embedded.
#pragma once

namespace lxtest {

struct LoadPlan {
  int processes = 1;
  int threads = 1;
  int seconds = 3;
  // Resident memory and the temporary folder are sampled this often; 0 never.
  int sampleSeconds = 0;
  // Resident memory must level off after the first sample.
  bool memoryCheck = false;
  bool throughServer = false;
};

// 0 when every client ended well and every check held; 1 otherwise.
int RunLoad(const LoadPlan& plan);

}  // namespace lxtest
