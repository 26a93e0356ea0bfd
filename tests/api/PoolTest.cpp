// A provider pool without providers, through the C interface: counting,
// index checks, deletion of what the pool does not hold.
#include <gtest/gtest.h>

#include "DebugOutput.h"
#include "LxDataAccess.h"

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

TEST_F(Pool, DeletingAProviderItDoesNotHoldReports) {
  int notAProvider = 0;
  auto* stranger = reinterpret_cast<LxDataProvider*>(&notAProvider);
  EXPECT_FAILS(pool_DeleteProvider(pool_, stranger),
               "Не найден провайдер среди списка доступных провайдеров "
               "[CProviderPool::_DeleteProvider]");
  EXPECT_EQ(notAProvider, 0);
}

}  // namespace
