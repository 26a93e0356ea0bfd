// Many client threads at once: every call's report arrives as one write of
// its own, whole, with nothing of another call's in it, and nobody deadlocks.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <thread>
#include <vector>

#include "DebugOutput.h"
#include "LxDataAccess.h"

using lxtest::FlushText;

namespace {

TEST(Concurrency, FlushesNeverMixAndEveryCallReports) {
  constexpr int kThreads = 8;
  constexpr int kCallsPerThread = 300;
  LxProviderPool* pool = lxAddLibraryProviderPool(L"ConcurrencyLibrary", L"/lib/concurrency.ulb");
  ASSERT_NE(pool, nullptr);

  lxtest::StderrCapture capture;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([pool, t] {
      // Each thread fails with its own index, so a flush that carried another
      // thread's message would show.
      for (int i = 0; i < kCallsPerThread; ++i) {
        pool_GetProvider(pool, -1 - t);
        pool_GetProviderCount(pool);  // silent, but empties the shared list
        lxAddLibraryProviderPool(L"ConcurrencyLibrary", L"/ignored");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  const std::vector<std::string> writes = capture.FinishWrites();

  std::map<std::string, int> expected;
  for (int t = 0; t < kThreads; ++t) {
    expected[FlushText({"Индекс " + std::to_string(-1 - t) +
                        " выходит за пределы диапазона [0, 0) [CProviderPool::_GetProvider]"})] = kCallsPerThread;
  }
  std::map<std::string, int> seen;
  for (const std::string& write : writes) ++seen[write];
  EXPECT_EQ(seen, expected);
  EXPECT_TRUE(lxDeleteProviderPool(pool));
}

}  // namespace
