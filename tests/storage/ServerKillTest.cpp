// A server killed under the library's feet. The tests run a private server
// of their own (restartable-server.sh), kill it with SIGKILL before a call
// and in the middle of one, and start it again on the same port with the
// same databases: the call fails with the client library's text, the
// process lives on, the next call on the same pool works, and a reload shows
// what memory showed, with no write standing half done.
//
// "In the middle" is made certain for writes by a trigger that keeps the
// engine busy inside the write for seconds; a packet load is made long by
// its size instead, and killed a third of the way into its measured time.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>

#include "ChildProcess.h"
#include "Shapes.h"
#include "tests/content/ContentFixture.h"

namespace lxtest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using namespace std::chrono_literals;

// What the client library says when the server cannot be reached, and when
// it went away while a request was under way.
constexpr const char* kRefused = "Unable to complete network request to host";
constexpr const char* kLost = "Error reading data from the connection";
// ... and when a server in its last moments took the connection but never
// answered it.
constexpr const char* kRejected = "connection rejected by remote interface";

class ServerKill : public ContentFixture {
 public:
  static void SetUpTestSuite() {
    if (geteuid() != 0) return;
    folder_ = new TempDir();
    if (!Control("start")) return;
    setenv("LX_TEST_SERVER", ("127.0.0.1/" + Line("port")).c_str(), 1);
    setenv("LX_TEST_DB_DIR", (folder_->path() / "db").c_str(), 1);
    setenv("LX_TEST_USER", "SYSDBA", 1);
    setenv("LX_TEST_PASSWORD", Line("password").c_str(), 1);
    // The server opens the catalog files through their group.
    umask(0002);
    serverUp_ = true;
  }
  static void TearDownTestSuite() {
    if (folder_ != nullptr) Control("stop");
    delete folder_;
    folder_ = nullptr;
  }

 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "the private server runs as user firebird, which needs root";
    ASSERT_TRUE(serverUp_) << "the private server did not start";
    ContentFixture::SetUp();
  }

  static bool Control(const std::string& command) {
    const ChildResult run = RunChild("bash", {LX_RESTARTABLE_SERVER, command, folder_->path().string()});
    EXPECT_EQ(run.exitCode, 0) << command << ": " << run.err;
    return run.exitCode == 0;
  }
  static std::string Line(const std::string& name) {
    std::string text = ReadWhole(folder_->path() / name);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
  }
  // Kills the server with SIGKILL and waits until its port is closed.
  static void Kill() { ASSERT_TRUE(Control("kill")); }
  static void Restart() { ASSERT_TRUE(Control("start")); }

  // Runs the call while another thread kills the server `delay` into it;
  // gives what Captured gives.
  template <typename Call>
  static auto KilledAfter(std::chrono::milliseconds delay, Call&& call) {
    std::thread killer([delay] {
      std::this_thread::sleep_for(delay);
      ::kill(std::stoi(Line("server.pid")), SIGKILL);
    });
    auto captured = Captured(call);
    killer.join();
    return captured;
  }

  // Every insert or update of the table keeps the engine busy for up to
  // ten seconds, so a kill a moment into the call lands inside the write.
  void Stall(const std::wstring& table) {
    Sql().Execute(L"CREATE TRIGGER LX_STALL FOR " + table +
                  L" BEFORE INSERT OR UPDATE AS DECLARE STOP_AT TIMESTAMP; BEGIN "
                  L"STOP_AT = DATEADD(10 SECOND TO CAST('NOW' AS TIMESTAMP)); "
                  L"WHILE (CAST('NOW' AS TIMESTAMP) < STOP_AT) DO STOP_AT = STOP_AT; END");
  }

  // The write, killed before it starts and then inside its work on
  // `table`: both times it fails with the client's text, and neither the
  // rows that `stored` reads nor the tree in memory change. Then, with the
  // server back, the same call on the same pool goes through.
  void ExpectWriteSurvivesKills(const char* function, const std::wstring& table, const std::function<bool()>& call,
                                const std::function<Texts()>& stored) {
    const Texts storedBefore = stored();
    const std::vector<std::wstring> memoryBefore = DumpFolder(root_);
    Kill();
    const auto refused = Captured(call);
    EXPECT_TRUE(FailedInDatabase(refused, function));
    EXPECT_THAT(refused.second, ElementsAre(HasSubstr(kRefused)));
    // The writability probe keeps its failure to itself.
    EXPECT_EQ(Captured([&] { return provider_IsEditable(provider_); }), Quietly(false));
    Restart();

    Stall(table);
    const auto lost = KilledAfter(500ms, call);
    EXPECT_TRUE(FailedInDatabase(lost, function));
    EXPECT_THAT(lost.second, ElementsAre(HasSubstr(kLost)));
    Restart();
    Sql().Execute(L"DROP TRIGGER LX_STALL");

    EXPECT_EQ(stored(), storedBefore);
    EXPECT_EQ(DumpFolder(root_), memoryBefore);
    ASSERT_TRUE(call());
    EXPECT_NE(stored(), storedBefore);
  }

  // What memory shows of the packet, and the same after a reload.
  void ExpectMemoryMatchesDatabase() {
    const std::vector<std::wstring> memory = DumpFolder(root_);
    ReloadAndWalk();
    EXPECT_EQ(DumpFolder(root_), memory);
  }

  inline static TempDir* folder_ = nullptr;
  inline static bool serverUp_ = false;
};

TEST_F(ServerKill, ASizeWriteFailsWithTheClientsTextAndTheNextOneWorks) {
  const std::int32_t nutsId = LayNuts({21, 1, L"Диаметр", L"Описание"}, L"7, NULL, NULL");
  ReloadAndWalk();
  LxFolderTable* nuts = folder_GetTable(ChildNamed(root_, L"Гайки"));
  LxStdSize* size = table_FindStdSize(nuts, L"Г1");
  LxAttribute* column = ColumnOf(nuts, L"Диаметр");
  ASSERT_TRUE(size && column);
  ExpectWriteSurvivesKills(
      "stdsize_SetValueI", L"ATTRIBUTEVALUE", [&] { return stdsize_SetValueI(size, column, 9); },
      [&] {
        Texts rows = StoredSizeValues(nutsId, 21);
        rows.push_back(L"values " + std::to_wstring(Count(L"CONCRETEVALUE")));
        return rows;
      });
  EXPECT_EQ(StoredSizeValues(nutsId, 21), Texts{L"Г1=9||"});
  ExpectMemoryMatchesDatabase();
}

TEST_F(ServerKill, AModelStoreFailsWithTheClientsTextAndTheNextOneWorks) {
  TempDir files;
  WriteWhole(files.path() / "model.qmx", std::string(300000, 'm'));
  WriteWhole(files.path() / "icon.png", "icon");
  const std::wstring model = files.File("model.qmx");
  const std::wstring icon = files.File("icon.png");
  LxModel* handle = stdsize_GetModel(s1_);
  ExpectWriteSurvivesKills(
      "model_SetModelEx", L"MODEL",
      [&] { return model_SetModelEx(handle, model.c_str(), icon.c_str(), L"модель-1", 3); },
      [&] { return Sql().Texts(L"SELECT ID || ':' || DIGEST || ':' || MODEL_VERSION FROM MODEL UNION ALL "
                               L"SELECT 'uses ' || COALESCE(MODELID, 0) FROM OBJECT ORDER BY 1"); });
  EXPECT_STREQ(model_GetDigest(handle), L"модель-1");
  EXPECT_EQ(ReadWhole(Path(model_GetModelFile(handle))), std::string(300000, 'm'));
  ExpectMemoryMatchesDatabase();
}

TEST_F(ServerKill, ACommandDocumentFailsWithTheClientsTextAndTheNextOneWorks) {
  Execute(SpecRows(1, 501, L"Старая", 1, {L"a", L"b"}));
  ReloadAndWalk();
  s1_ = Size(L"S1");
  const Texts seenBefore = SeenSpecs(s1_);
  const std::wstring document =
      L"<commands><command type=\"create_spec\"><stdSize packet=\"Пакет\" id=\"S1\"/>"
      L"<spec libName=\"Новая\" styleNum=\"2\" firstPart=\"3\" secondPart=\"4\"><column num=\"1\" formula=\"x\"/>"
      L"</spec></command></commands>";
  ExpectWriteSurvivesKills(
      "provider_RunCommand", L"SPECIFICATION", [&] { return provider_RunCommand(provider_, document.c_str()); },
      [&] { return StoredSpecs(501); });
  EXPECT_EQ(StoredSpecs(501), Texts{L"Новая|2|3|4|1=x"});
  EXPECT_EQ(SeenSpecs(s1_), StoredSpecs(501));
  ExpectMemoryMatchesDatabase();
  EXPECT_NE(SeenSpecs(Size(L"S1")), seenBefore);
}

TEST_F(ServerKill, APacketLoadFailsWithTheClientsTextAndTheNextOneLoadsItWhole) {
  // 1200 sizes of 4 columns: the load splits them over worker tasks.
  Sql().Execute({shapes::Template(510, folderId_, packetId_, L"Большой")});
  for (std::int32_t number = 21; number < 25; ++number)
    Sql().Execute(shapes::Column(510, number, 1, L"К" + std::to_wstring(number)));
  Sql().Execute(
      L"EXECUTE BLOCK AS DECLARE I INTEGER = 0; DECLARE N INTEGER; BEGIN WHILE (I < 1200) DO BEGIN "
      L"INSERT INTO STANDARDSIZE (ID, OBJECTID, IDENTIFIER) VALUES (10000 + :I, 510, 'Б' || :I); N = 21; "
      L"WHILE (N < 25) DO BEGIN EXECUTE PROCEDURE CREATE_ATTR_VAL(:N, 10000 + :I, :I * 100 + :N, NULL, NULL); "
      L"N = N + 1; END I = I + 1; END END");
  // The whole packet as a load from a sound server shows it.
  ReloadAndWalk();
  const std::vector<std::wstring> whole = DumpFolder(root_);
  ASSERT_GT(whole.size(), 1200u);

  // How long a load takes here, to kill the next one a third of the way in.
  ASSERT_TRUE(Reload());
  LxFolder* root = packet_GetRootFolder(provider_GetPacketByName(provider_, kPacket));
  const auto start = std::chrono::steady_clock::now();
  ASSERT_NE(folder_GetTable(root), nullptr);
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);

  ASSERT_TRUE(Reload());
  root = packet_GetRootFolder(provider_GetPacketByName(provider_, kPacket));
  Kill();
  const auto refused = Captured([&] { return folder_GetTable(root); });
  EXPECT_TRUE(FailedInDatabase(refused, "folder_GetTable"));
  EXPECT_THAT(refused.second, ElementsAre(HasSubstr(kRefused)));
  Restart();
  const auto lost = KilledAfter(took / 3, [&] { return folder_GetTable(root); });
  EXPECT_TRUE(FailedInDatabase(lost, "folder_GetTable")) << "the load took " << took.count() << " ms before";
  // The load attaches anew for its worker tasks, so the kill may meet a
  // request under way or an attachment being made.
  EXPECT_THAT(lost.second,
              ElementsAre(::testing::AnyOf(HasSubstr(kLost), HasSubstr(kRejected), HasSubstr(kRefused))));
  Restart();

  // The same handle loads again, and what the broken load left behind does
  // not show twice.
  ASSERT_NE(folder_GetTable(root), nullptr);
  root_ = root;
  EXPECT_EQ(DumpFolder(root_), whole);
  ExpectMemoryMatchesDatabase();

  // A reload with the server down fails the same way; the provider stays,
  // and the next reload fills it again.
  Kill();
  const auto reload = Captured([&] { return Reload(); });
  EXPECT_TRUE(FailedInDatabase(reload, "lxReloadProvider"));
  EXPECT_THAT(reload.second, ElementsAre(HasSubstr(kRefused)));
  EXPECT_EQ(pool_GetProvider(pool_, 0), provider_);
  Restart();
  ReloadAndWalk();
  EXPECT_EQ(DumpFolder(root_), whole);
}

}  // namespace
}  // namespace lxtest
