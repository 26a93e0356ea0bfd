// Faults of the database and of the disk under a catalog, embedded: a row
// locked by another attachment, a read-only catalog, a catalog file the
// process may not write, a temporary folder that fills up, a damaged catalog
// file. Each fault fails the call with the engine's text or the library's
// own report, and afterwards a reload shows what memory showed: no write
// stood half done.
//
// The process runs as root in CI, where file modes stop nothing, and a full
// file system cannot be had without privileges: those cases run this
// program again as a child, as user nobody or under a file-size limit.
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "ChildProcess.h"
#include "Shapes.h"
#include "TestCatalog.h"
#include "platform/TextCodec.h"
#include "storage/BlobTransfer.h"
#include "tests/content/ContentFixture.h"

namespace lxtest {
namespace {

using ::testing::HasSubstr;
namespace fs = std::filesystem;

// Content of this size, far more than a full temporary folder takes, yet
// compressed to little, so the catalog file stays small.
constexpr std::size_t kBigContent = 16 << 20;
constexpr long kSpace = 8 << 20;

// Runs one DISABLED_ test of FaultChild in a child process: as user nobody
// when `unprivileged` and this process is root, with extra environment.
ChildResult RunChildTest(const std::string& test, const std::vector<std::string>& environment,
                         bool unprivileged = false) {
  const std::string self = fs::read_symlink("/proc/self/exe").string();
  std::vector<std::string> arguments{"--gtest_also_run_disabled_tests", "--gtest_filter=FaultChild.DISABLED_" + test};
  if (!unprivileged || geteuid() != 0) return RunChild(self, arguments, environment);
  const std::vector<std::string> asNobody{"--reuid=nobody", "--regid=nogroup", "--clear-groups"};
  // A build below /root is out of nobody's reach; a copy of this program
  // in a folder open to all serves then.
  TempDir open;
  std::string program = self;
  std::vector<std::string> probe = asNobody;
  probe.insert(probe.end(), {"test", "-x", self});
  if (RunChild("setpriv", probe).exitCode != 0) {
    fs::permissions(open.path(), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    program = (open.path() / "fault-child").string();
    fs::copy_file(self, program);
  }
  arguments.insert(arguments.begin(), program);
  arguments.insert(arguments.begin(), asNobody.begin(), asNobody.end());
  return RunChild("setpriv", arguments, environment);
}

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

class Faults : public ContentFixture {
 protected:
  void SetUp() override {
    if (TestCatalog::ThroughServer()) GTEST_SKIP() << "the faults are made on a local catalog file";
    ContentFixture::SetUp();
  }
  // What the interface shows of the packet now, and the same after a
  // reload has read it from the database again.
  void ExpectMemoryMatchesDatabase() {
    const std::vector<std::wstring> memory = DumpFolder(root_);
    ReloadAndWalk();
    EXPECT_EQ(DumpFolder(root_), memory);
  }
  void Gfix(const std::string& mode) {
    const ChildResult gfix = RunChild("gfix", {"-mode", mode, "-user", "SYSDBA", WideToUtf8(database_)});
    ASSERT_EQ(gfix.exitCode, 0) << gfix.out << gfix.err;
  }
  // Sets a blob column of one row to big content in the stored form.
  void StoreBig(const std::string& table, const std::string& column, std::int32_t id) {
    const Bytes content(kBigContent, 'x');
    ByteData stored(content.data(), static_cast<std::int32_t>(content.size()));
    stored.Compress();
    CDataProvider catalog(connection_.server, database_, connection_.user, connection_.password);
    SqlScope scope(&catalog);
    IBPP::Blob blob = scope.NewBlob();
    WriteWholeBlob(blob, std::span<const unsigned char>(stored.Data(), static_cast<std::size_t>(stored.Size())));
    IBPP::Statement statement = scope.NewStatement();
    statement.Prepare("UPDATE " + table + " SET " + column + " = ? WHERE ID = " + std::to_string(id));
    statement.Set(1, blob);
    statement.Execute();
    scope.Commit();
  }
  static void ExpectChildPassed(const ChildResult& child) {
    EXPECT_EQ(child.exitCode, 0) << child.out << child.err;
    EXPECT_THAT(child.out, HasSubstr("[  PASSED  ] 1 test")) << child.out << child.err;
  }
};

TEST_F(Faults, ARowLockedByAnotherAttachmentFailsTheWriteAtOnceAndLetsItThroughOnceFree) {
  const std::int32_t nutsId = LayNuts({21, 1, L"Диаметр", L"Описание"}, L"7, NULL, NULL");
  ReloadAndWalk();
  LxFolder* nuts = ChildNamed(root_, L"Гайки");
  LxFolderTable* table = folder_GetTable(nuts);
  LxStdSize* size = table_FindStdSize(table, L"Г1");
  LxAttribute* column = ColumnOf(table, L"Диаметр");
  ASSERT_TRUE(size && column);
  const std::vector<std::wstring> before = DumpFolder(root_);
  {
    // Uncommitted updates of another attachment hold both rows. The calls
    // must come back while they are held: a write that waited for the lock
    // would never return here.
    CDataProvider other(connection_.server, database_, connection_.user, connection_.password);
    SqlScope holder(&other);
    holder.Run(L"UPDATE FOLDER SET NAME = NAME WHERE ID = " + std::to_wstring(nutsId));
    holder.Run(L"UPDATE ATTRIBUTEVALUE SET CONCRETEVALUEID = CONCRETEVALUEID WHERE STANDARDSIZEID = 950");
    const auto rename = Captured([&] { return folder_SetName(nuts, L"Шайбы"); });
    EXPECT_TRUE(FailedInDatabase(rename, "folder_SetName"));
    const auto write = Captured([&] { return stdsize_SetValueI(size, column, 9); });
    EXPECT_TRUE(FailedInDatabase(write, "stdsize_SetValueI"));
    for (const auto& writes : {rename.second, write.second})
      EXPECT_THAT(writes, ::testing::ElementsAre(HasSubstr("conflicts with concurrent update")));
    EXPECT_EQ(DumpFolder(root_), before);
  }
  EXPECT_EQ(StoredSizeValues(nutsId, 21), std::vector<std::wstring>{L"Г1=7||"});
  ExpectMemoryMatchesDatabase();
  // The lock is gone with the other transaction: both writes go through.
  nuts = ChildNamed(root_, L"Гайки");
  size = table_FindStdSize(folder_GetTable(nuts), L"Г1");
  ASSERT_TRUE(folder_SetName(nuts, L"Шайбы"));
  ASSERT_TRUE(stdsize_SetValueI(size, ColumnOf(folder_GetTable(nuts), L"Диаметр"), 9));
  EXPECT_EQ(StoredSizeValues(nutsId, 21), std::vector<std::wstring>{L"Г1=9||"});
  EXPECT_EQ(Sql().Texts(L"SELECT NAME FROM FOLDER WHERE ID = " + std::to_wstring(nutsId)), Texts{L"Шайбы"});
  ExpectMemoryMatchesDatabase();
}

TEST_F(Faults, AReadOnlyCatalogReadsButRefusesWritesWithTheEnginesText) {
  const std::vector<std::wstring> before = DumpFolder(root_);
  Gfix("read_only");
  ReloadAndWalk();
  EXPECT_EQ(DumpFolder(root_), before);
  EXPECT_EQ(Captured([&] { return provider_IsEditable(provider_); }), Quietly(false));
  const auto added = Captured([&] { return folder_AddChildFolder(root_, L"Новый"); });
  EXPECT_TRUE(FailedInDatabase(added, "folder_AddChildFolder"));
  EXPECT_THAT(added.second, ::testing::ElementsAre(HasSubstr("read-only database")));
  ExpectMemoryMatchesDatabase();
  Gfix("read_write");
  EXPECT_TRUE(provider_IsEditable(provider_));
  EXPECT_NE(folder_AddChildFolder(root_, L"Новый"), nullptr);
  ExpectMemoryMatchesDatabase();
}

TEST_F(Faults, ACatalogFileTheProcessMayNotWriteFailsToAttachWithTheEnginesText) {
  const fs::path file = Path(database_);
  const std::vector<std::wstring> before = DumpFolder(root_);
  // The child needs to reach the file and a lock folder of its own.
  TempDir locks;
  fs::permissions(locks.path(), fs::perms::all);
  fs::permissions(file.parent_path(), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  ExpectChildPassed(RunChildTest("AttachUnwritable", {"LX_FAULT_CATALOG=" + file.string(),
                                                      "FIREBIRD_LOCK=" + locks.path().string()},
                                 true));
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                            fs::perms::group_write);
  EXPECT_EQ(DumpFolder(root_), before);
  ExpectMemoryMatchesDatabase();
}

TEST_F(Faults, AFullTemporaryFolderFailsEveryMaterialisingAndLeavesNoFileBehind) {
  Sql().Execute({L"INSERT INTO MODEL (ID, THUMBNAIL, MODEL_VERSION, DIGEST) VALUES (300, x'00', 1, 'м')",
                 L"UPDATE OBJECT SET MODELID = 300 WHERE ID = 501",
                 L"INSERT INTO FRAGMENT (ID, THUMBNAIL, DIGEST) VALUES (400, x'00', 'ф')",
                 L"INSERT INTO OBJECTPROJECTION (ID, PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) "
                 L"VALUES (1, 1, 400, 501, 0)",
                 L"INSERT INTO FILES (ID, NAME, DIGEST) VALUES (700, 'чертёж', 'd')",
                 L"INSERT INTO STANDARTSIZE_FILE (ID, STDSIZE_ID, FILES_ID) VALUES (1, 601, 700)"});
  StoreBig("MODEL", "MODEL", 300);
  StoreBig("FRAGMENT", "FRAGMENT", 400);
  StoreBig("FILES", "DATAFILE", 700);
  ASSERT_LT(fs::file_size(Path(database_)), std::uintmax_t{kSpace}) << "the limit would hit the catalog";
  // A small file system where this machine lets us mount one; otherwise a
  // limit on the size of the files the child writes, which fails writes
  // the same way without privileges.
  TempDir temporary;
  const std::string size = "size=" + std::to_string(kSpace);
  const bool mounted = mount("tmpfs", temporary.path().c_str(), "tmpfs", 0, size.c_str()) == 0;
  const ChildResult child =
      RunChildTest("MaterialiseIntoFullFolder", {"LX_FAULT_CATALOG=" + WideToUtf8(database_),
                                                 "TMP=" + temporary.path().string(),
                                                 "LX_FAULT_FILE_LIMIT=" + std::to_string(mounted ? 0 : kSpace)});
  if (mounted) umount2(temporary.path().c_str(), MNT_DETACH);
  ExpectChildPassed(child);
  ExpectMemoryMatchesDatabase();
}

TEST_F(Faults, ADamagedCatalogFileFailsToAttachWithTheEnginesTextAlone) {
  const std::wstring file = NewCatalogFile("damaged.fdb");
  const std::string whole = ReadWhole(Path(file));
  std::string garbage(whole.size(), '\0');
  for (std::size_t i = 0; i < garbage.size(); ++i) garbage[i] = static_cast<char>((i * 7919 + i / 13) % 256);
  const std::vector<std::pair<const char*, std::string>> damages{
      {"empty", ""}, {"cut inside the header page", whole.substr(0, 100)},
      {"cut to half", whole.substr(0, whole.size() / 2)}, {"garbage", garbage}};
  for (const auto& [name, bytes] : damages) {
    WriteWhole(Path(file), bytes);
    const auto attached = Captured([&] { return Attach(file); });
    EXPECT_TRUE(FailedInDatabase(attached, "pool_AddProvider")) << name;
    EXPECT_EQ(pool_GetProviderCount(pool_), 1) << name;
  }
  // The provider of a sound file is not touched by any of it.
  ExpectMemoryMatchesDatabase();
  // Its own file damaged, a reload fails the same way; the provider stays,
  // and a reload once the file is sound again fills it as before.
  const std::vector<std::wstring> before = DumpFolder(root_);
  const std::string sound = ReadWhole(Path(database_));
  WriteWhole(Path(database_), garbage);
  EXPECT_TRUE(FailedInDatabase(Captured([&] { return Reload(); }), "lxReloadProvider"));
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_);
  WriteWhole(Path(database_), sound);
  ReloadAndWalk();
  EXPECT_EQ(DumpFolder(root_), before);
}

// The children's halves. They run only when a test above starts them.
TEST(FaultChild, DISABLED_AttachUnwritable) {
  ASSERT_NE(geteuid(), 0u) << "root would write the file anyway";
  const std::wstring file = Utf8ToWide(Env("LX_FAULT_CATALOG"));
  LxProviderPool* pool = lxAddLibraryProviderPool(L"FaultChild", L"/lib/fault-child.ulb");
  const auto attached =
      Captured([&] { return pool_AddProvider(pool, L"", file.c_str(), L"SYSDBA", L"masterkey"); });
  EXPECT_TRUE(FailedInDatabase(attached, "pool_AddProvider"));
  EXPECT_THAT(attached.second, ::testing::ElementsAre(HasSubstr("no permission for read-write access")));
  EXPECT_EQ(pool_GetProviderCount(pool), 0);
  lxDeleteProviderPool(pool);
}

TEST(FaultChild, DISABLED_MaterialiseIntoFullFolder) {
  if (const long limit = std::atol(Env("LX_FAULT_FILE_LIMIT").c_str()); limit > 0) {
    // Writes past the limit fail with EFBIG rather than end the process.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit files{static_cast<rlim_t>(limit), RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &files), 0);
  }
  const std::wstring file = Utf8ToWide(Env("LX_FAULT_CATALOG"));
  const fs::path folder = Env("TMP");
  LxProviderPool* pool = lxAddLibraryProviderPool(L"FaultChild", L"/lib/fault-child.ulb");
  LxDataProvider* provider = pool_AddProvider(pool, L"", file.c_str(), L"SYSDBA", L"masterkey");
  ASSERT_NE(provider, nullptr);
  LxStdSize* size = packet_FindStdSize(provider_GetPacketByName(provider, L"Пакет"), L"S1");
  ASSERT_NE(size, nullptr);
  const std::string base = (folder / "").string();
  EXPECT_EQ(FailureWrites([&] { return model_GetModelFile(stdsize_GetModel(size)); }),
            Flushed({"Ошибка при записи модели в файл " + base + "300.qmx [ModelOperation::GetModel]",
                     "Не смогли получить модель из-за проблем с базой [CDataProvider::GetModelInfo]",
                     "У типоразмера нет модели [CStdModel::_GetModelFile]"}));
  LxProjection* projection = projections_GetProjection(stdsize_GetProjections(size), 0);
  EXPECT_EQ(FailureWrites([&] { return projection_GetFragmentFile(projection); }),
            Flushed({"Ошибка при записи фрагмента в файл " + base + "400.qfx [PrjOperation::SaveFragmentAs]",
                     "Не смогли сохранить фрагмент [CDataProvider::_GetFragmentFile]"}));
  EXPECT_EQ(FailureWrites([&] { return file_GetFile(files_GetFile(stdsize_GetFiles(size), 0)); }),
            Flushed({"Не смогли сохранить файл " + base + "чертёж  [CDataProvider::_GetFilePath]"}));
  EXPECT_TRUE(fs::is_empty(folder)) << "a partial file stayed behind";
  lxDeleteProviderPool(pool);
}

}  // namespace
}  // namespace lxtest
