// A provider pool without providers, through the C interface: counting,
// index checks, deletion of what the pool does not hold, null arguments.
#include <gtest/gtest.h>

#include "DebugOutput.h"
#include "LxDataAccess.h"

using lxtest::Captured;
using lxtest::FlushText;
using lxtest::Writes;

namespace {

class Pool : public ::testing::Test {
 protected:
  void SetUp() override { pool_ = lxAddLibraryProviderPool(L"PoolTestLibrary", L"/lib/pooltest.ulb"); }
  void TearDown() override { lxDeleteProviderPool(pool_); }
  LxProviderPool* pool_ = nullptr;
};

TEST_F(Pool, ANewPoolIsEmptyAndAnyIndexNamesItselfAndTheCount) {
  EXPECT_FAILS(pool_GetProviderCount(pool_));
  for (int32_t index : {-1, 0, 7, INT32_MIN, INT32_MAX}) {
    EXPECT_FAILS(
        pool_GetProvider(pool_, index),
        "Индекс " + std::to_string(index) + " выходит за пределы диапазона [0, 0) [CProviderPool::_GetProvider]");
  }
}

TEST_F(Pool, DeletingAProviderItDoesNotHoldOrANullPoolReports) {
  int notAProvider = 0;
  auto* stranger = reinterpret_cast<LxDataProvider*>(&notAProvider);
  EXPECT_FAILS(pool_DeleteProvider(pool_, stranger),
               "Не найден провайдер среди списка доступных провайдеров "
               "[CProviderPool::_DeleteProvider]");
  EXPECT_EQ(notAProvider, 0);
  EXPECT_FAILS(pool_DeleteProvider(pool_, nullptr),
               "Передан нулевой указатель на объект prov (fun: pool_DeleteProvider)");
  // Every pool export rejects a null pool by name.
  struct Case {
    const char* function;
    bool (*call)();
  };
  const Case cases[] = {
      {"pool_GetProviderCount", [] { return pool_GetProviderCount(nullptr) == 0; }},
      {"pool_GetProvider", [] { return pool_GetProvider(nullptr, 0) == nullptr; }},
      {"pool_FindProvider", [] { return pool_FindProvider(nullptr, L"", L"x.fdb", L"SYSDBA") == nullptr; }},
      {"pool_GetUlbPath", [] { return pool_GetUlbPath(nullptr) == nullptr; }},
      // With both handles null only the first is named.
      {"pool_DeleteProvider", [] { return !pool_DeleteProvider(nullptr, nullptr); }},
  };
  for (const Case& c : cases) {
    auto [failedAsZero, writes] = Captured(c.call);
    EXPECT_TRUE(failedAsZero) << c.function;
    EXPECT_EQ(writes, Writes{FlushText({std::string("Передан нулевой указатель на объект pool (fun: ") +
                                        c.function + ")"})});
  }
  // A null text with a pool is quiet.
  EXPECT_FAILS(pool_FindProvider(pool_, L"", nullptr, L"SYSDBA"));
}

}  // namespace
