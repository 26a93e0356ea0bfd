// lxsoak: the long run. One client process does the mixed work of the load
// run on one thread, embedded, while resident memory and the temporary
// folder are sampled: memory must level off after the first sample (no
// growth beyond 5%), and the folder must hold exactly the files the open
// provider wrote. Then the writes are checked as in lxload.
//
//   lxsoak --seconds 600 --sample-seconds 60 [--memory-check 0|1]
#include <cstdlib>
#include <cstring>

#include "LoadDriver.h"

int main(int argc, char** argv) {
  lxtest::LoadPlan plan;
  plan.seconds = 600;
  plan.sampleSeconds = 60;
  plan.memoryCheck = true;
  for (int i = 1; i + 1 < argc; i += 2) {
    const int value = std::atoi(argv[i + 1]);
    if (std::strcmp(argv[i], "--seconds") == 0) plan.seconds = value;
    if (std::strcmp(argv[i], "--sample-seconds") == 0) plan.sampleSeconds = value;
    if (std::strcmp(argv[i], "--memory-check") == 0) plan.memoryCheck = value != 0;
  }
  return lxtest::RunLoad(plan);
}
