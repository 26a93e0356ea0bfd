// The registry of provider pools, through the C interface.
#include <gtest/gtest.h>

#include <string>

#include "DebugOutput.h"
#include "LxDataAccess.h"

using lxtest::Captured;

namespace {

// Each test registers its own library names and deletes its pools again, so
// the process-wide registry is the same after every test.
class Registry : public ::testing::Test {
 protected:
  LxProviderPool* Add(const wchar_t* name, const wchar_t* path) {
    LxProviderPool* pool = lxAddLibraryProviderPool(name, path);
    if (pool != nullptr) created_.push_back(pool);
    return pool;
  }
  void TearDown() override {
    for (LxProviderPool* pool : created_) lxDeleteProviderPool(pool);
  }

 private:
  std::vector<LxProviderPool*> created_;
};

TEST_F(Registry, AddingANameTwiceKeepsTheFirstPoolAndItsPathAndNameText) {
  LxProviderPool* first = Add(L"RegTwice", L"/lib/first.ulb");
  LxProviderPool* second = lxAddLibraryProviderPool(L"RegTwice", L"/lib/second.ulb");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, second);
  EXPECT_STREQ(pool_GetUlbPath(first), L"/lib/first.ulb");
  EXPECT_EQ(lxGetLibraryProviderPool(L"RegTwice"), first);
  // The library name is one static text, overwritten by each call.
  LxProviderPool* pipes = Add(L"RegPipesLonger", L"/p");
  const wchar_t* name = lxGetLibraryName(first);
  EXPECT_STREQ(name, L"RegTwice");
  EXPECT_EQ(lxGetLibraryName(pipes), name);
  EXPECT_STREQ(name, L"RegPipesLonger");
}

TEST_F(Registry, NamesThatDifferInCaseAreTwoLibrariesPathsThatDoAreOne) {
  LxProviderPool* lower = Add(L"regcase", L"/a");
  LxProviderPool* upper = Add(L"REGCASE", L"/b");
  ASSERT_NE(lower, nullptr);
  ASSERT_NE(upper, nullptr);
  EXPECT_NE(lower, upper);
  EXPECT_EQ(lxGetLibraryProviderPool(L"RegCase"), nullptr);
  // A look-up by path folds Latin case but not separators.
  LxProviderPool* pool = Add(L"RegPath", L"/Opt/Lib/Ducts.ULB");
  EXPECT_EQ(lxGetLibraryProviderPoolForUlbPath(L"/opt/lib/ducts.ulb"), pool);
  EXPECT_EQ(lxGetLibraryProviderPoolForUlbPath(L"/OPT/LIB/DUCTS.ULB"), pool);
  EXPECT_EQ(lxGetLibraryProviderPoolForUlbPath(L"\\Opt\\Lib\\Ducts.ULB"), nullptr);
  EXPECT_EQ(lxGetLibraryProviderPoolForUlbPath(L"/Opt/Lib/Ducts.ULB/"), nullptr);
}

TEST_F(Registry, EmptyOrMissingNameHasNoPool) {
  EXPECT_FAILS(lxAddLibraryProviderPool(L"", L"/lib/empty.ulb"));
  EXPECT_EQ(lxGetLibraryProviderPool(L""), nullptr);
  // No pool was made behind the scenes: its path finds nothing.
  EXPECT_EQ(lxGetLibraryProviderPoolForUlbPath(L"/lib/empty.ulb"), nullptr);
  EXPECT_FAILS(lxGetLibraryProviderPool(L"NoSuchLibrary"));
}

TEST_F(Registry, ADeletedPoolIsGoneUntilItsNameIsAddedAgain) {
  LxProviderPool* pool = lxAddLibraryProviderPool(L"RegGone", L"/old");
  ASSERT_TRUE(lxDeleteProviderPool(pool));
  EXPECT_EQ(lxGetLibraryProviderPool(L"RegGone"), nullptr);
  // The library name of a deleted pool is empty, not null, and quiet.
  auto [name, writes] = Captured([&] { return lxGetLibraryName(pool); });
  ASSERT_NE(name, nullptr);
  EXPECT_STREQ(name, L"");
  EXPECT_TRUE(writes.empty());
  EXPECT_FAILS(lxDeleteProviderPool(pool),
               "Не найден провайдер среди списка доступных провайдеров "
               "[CLxDataAccess::_DeleteProviderPool]");
  LxProviderPool* renewed = Add(L"RegGone", L"/new");
  ASSERT_NE(renewed, nullptr);
  EXPECT_STREQ(pool_GetUlbPath(renewed), L"/new");
}

}  // namespace
