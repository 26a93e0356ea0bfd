// Attaching providers to a pool: what counts as the same connection, what a
// failed attach leaves, and how deletion renumbers.
#include <algorithm>
#include <cwctype>

#include "CatalogFixture.h"

namespace lxtest {
namespace {

class PoolProviders : public CatalogFixture {
 protected:
  LxDataProvider* AttachAs(const std::wstring& path, const std::wstring& user, const std::wstring& password) {
    return pool_AddProvider(pool_, connection_.server.c_str(), path.c_str(), user.c_str(), password.c_str());
  }
};

TEST_F(PoolProviders, SameDatabaseInAnySpellingOrPasswordGivesTheFirstProviderButNotAnotherUser) {
  ASSERT_NE(provider_, nullptr);
  EXPECT_EQ(AttachAs(database_, connection_.user, L"another password"), provider_);
  std::wstring shouted = database_;
  std::transform(shouted.begin(), shouted.end(), shouted.begin(), [](wchar_t ch) { return std::towupper(ch); });
  std::wstring backslashed = database_;
  std::replace(backslashed.begin(), backslashed.end(), L'/', L'\\');
  EXPECT_EQ(AttachAs(shouted, connection_.user, connection_.password), provider_);
  EXPECT_EQ(AttachAs(backslashed, connection_.user, connection_.password), provider_);
  EXPECT_EQ(pool_GetProviderCount(pool_), 1);
  // Finding is exact: the other spellings are not found.
  EXPECT_EQ(pool_FindProvider(pool_, connection_.server.c_str(), backslashed.c_str(), connection_.user.c_str()), nullptr);
  EXPECT_EQ(pool_FindProvider(pool_, connection_.server.c_str(), database_.c_str(), connection_.user.c_str()), provider_);
  // Another user is another provider of the same database. Firebird folds
  // unquoted user names, so this is the same account under another text.
  std::wstring user = connection_.user;
  std::transform(user.begin(), user.end(), user.begin(), [](wchar_t ch) { return std::towlower(ch); });
  ASSERT_NE(user, connection_.user);
  LxDataProvider* second = AttachAs(database_, user, connection_.password);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(second, provider_);
  EXPECT_EQ(pool_GetProviderCount(pool_), 2);
}

TEST_F(PoolProviders, DeletingAProviderMovesTheFollowingDownAndOnlyItsPoolDeletesIt) {
  const std::wstring otherFile = NewCatalogFile("second.fdb");
  const std::wstring thirdFile = NewCatalogFile("third.fdb");
  LxDataProvider* second = Attach(otherFile);
  LxDataProvider* third = Attach(thirdFile);
  ASSERT_NE(third, nullptr);
  EXPECT_TRUE(pool_DeleteProvider(pool_, second));
  EXPECT_EQ(pool_GetProviderCount(pool_), 2);
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_);
  EXPECT_EQ(pool_GetProvider(pool_, 1), third);
  // Another pool does not delete this pool's provider.
  LxProviderPool* other = lxAddLibraryProviderPool(L"PoolProvidersOther", L"/other.ulb");
  EXPECT_FAILS(pool_DeleteProvider(other, provider_),
               "Не найден провайдер среди списка доступных провайдеров "
               "[CProviderPool::_DeleteProvider]");
  EXPECT_STREQ(provider_GetDatabaseName(provider_), database_.c_str()) << "the provider still lives";
  lxDeleteProviderPool(other);
}

TEST_F(PoolProviders, MissingDatabaseFailsWithTheClientTextAndAddsNothing) {
  const std::wstring missing = database_ + L".missing";
  auto [provider, writes] = Captured([&] { return Attach(missing); });
  EXPECT_EQ(provider, nullptr);
  ASSERT_EQ(writes.size(), 1u);
  EXPECT_EQ(writes[0].rfind(">LxDataAcces:  (fun: pool_AddProvider)\n", 0), 0u) << writes[0];
  EXPECT_NE(writes[0].find("missing"), std::string::npos) << "the client's text names the file: " << writes[0];
  EXPECT_EQ(pool_GetProviderCount(pool_), 1);
}

TEST_F(PoolProviders, WrongPasswordFailsWithTheServersTextAndChangesNothing) {
  if (connection_.server.empty()) GTEST_SKIP() << "the embedded engine takes any password";
  const std::wstring otherFile = NewCatalogFile("second.fdb");
  auto [provider, writes] = Captured([&] { return AttachAs(otherFile, connection_.user, L"not the password"); });
  EXPECT_EQ(provider, nullptr);
  ASSERT_EQ(writes.size(), 1u);
  EXPECT_EQ(writes[0].rfind(">LxDataAcces:  (fun: pool_AddProvider)\n", 0), 0u) << writes[0];
  EXPECT_NE(writes[0].find("Your user name and password are not defined"), std::string::npos) << writes[0];
  EXPECT_EQ(pool_GetProviderCount(pool_), 1);
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_);
}

TEST_F(PoolProviders, FindPacketLooksThroughEveryProviderWithoutLoading) {
  const std::wstring otherFile = NewCatalogFile("second.fdb");
  LxDataProvider* second = Attach(otherFile);
  ASSERT_NE(second, nullptr);
  LxPacket* inSecond = provider_AddPacket(second, L"Клапаны");
  EXPECT_EQ(pool_FindPacket(pool_, L"Клапаны"), inSecond);
  EXPECT_EQ(pool_FindPacket(pool_, L"клапаны"), nullptr);
  LxPacket* inFirst = provider_AddPacket(provider_, L"Клапаны");
  EXPECT_EQ(pool_FindPacket(pool_, L"Клапаны"), inFirst) << "the first provider wins";
}

}  // namespace
}  // namespace lxtest
