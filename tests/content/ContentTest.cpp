// Models, fragments and their thumbnails on real catalogs, through the C
// interface: what is stored comes back byte for byte, identical content is
// stored once by digest, a change on one size of a shared template does not
// reach its neighbours, refusals change nothing, and the provider reads each
// piece of content once and deletes the files it wrote on a reload.
#include <lzo/lzo1y.h>
#include <lzo/lzoconf.h>
#include <stdlib.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Bytes.h"
#include "CatalogFixture.h"
#include "api/Handles.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "content/TempPath.h"
#include "platform/TextCodec.h"
#include "storage/ibpp/IBPP.h"

namespace lxtest {
namespace {

// The library's temporary folder is fixed on its first use in the process,
// so TMP points at a private folder before any test runs.
class LibraryTempFolder : public ::testing::Environment {
 public:
  void SetUp() override {
    folder_ = std::make_unique<TempDir>();
    setenv("TMP", folder_->path().c_str(), 1);
  }
  void TearDown() override { folder_.reset(); }
  static std::filesystem::path Folder() { return instance_->folder_->path(); }

  static LibraryTempFolder* instance_;

 private:
  std::unique_ptr<TempDir> folder_;
};

LibraryTempFolder* LibraryTempFolder::instance_ =
    static_cast<LibraryTempFolder*>(::testing::AddGlobalTestEnvironment(new LibraryTempFolder));

std::wstring N(std::int32_t number) { return std::to_wstring(number); }

Bytes Text(const std::string& text) { return Bytes(text.begin(), text.end()); }

Bytes ReadFile(const std::wstring& path) {
  std::ifstream in(Path(path), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool Exists(const std::wstring& path) { return std::filesystem::exists(Path(path)); }

// The content of a stored blob as liblzo2 itself unpacks it, after the
// length that the first four bytes give, least significant first.
Bytes Unpacked(const Bytes& stored) {
  if (stored.size() < 4 || lzo_init() != LZO_E_OK) return Text("<not stored>");
  const std::uint32_t length = stored[0] | stored[1] << 8 | stored[2] << 16 | std::uint32_t{stored[3]} << 24;
  Bytes content(length);
  lzo_uint produced = length;
  const int result = lzo1y_decompress_safe(stored.data() + 4, stored.size() - 4, content.data(), &produced, nullptr);
  return result == LZO_E_OK && produced == length ? content : Text("<unreadable>");
}

// Random content whose stored form (length and LZO1Y-1 stream) has exactly
// `storedSize` bytes.
Bytes StoredAs(std::size_t storedSize) {
  if (lzo_init() != LZO_E_OK) return {};
  const Bytes pool = Random(storedSize, 3);
  std::vector<unsigned char> work(LZO1Y_MEM_COMPRESS);
  Bytes packed(storedSize * 2);
  for (std::size_t size = storedSize * 9 / 10; size < storedSize; ++size) {
    lzo_uint length = 0;
    lzo1y_1_compress(pool.data(), size, packed.data(), &length, work.data());
    if (length + 4 == storedSize) return Bytes(pool.begin(), pool.begin() + static_cast<std::ptrdiff_t>(size));
  }
  return {};
}

class Content : public TableFixture {
 protected:
  // Template 501 "T" shares model 300 among S1 to S4; templates 502 "U"
  // and 503 "V" have one size each (U1, V1) and nothing else. All have the
  // same column, so all sizes stand in one table.
  void SetUp() override {
    TableFixture::SetUp();
    const AttributeRow length{21, 1, L"Длина", L"Длина болта", L"10, NULL, NULL"};
    Sql().Execute({L"INSERT INTO MODEL (ID, MODEL, THUMBNAIL, MODEL_VERSION, DIGEST) VALUES (300, x'00', x'00', 1, "
                   L"'m300')",
                   TemplateRow(501, L"T", folderId_, 1, 4, L"300"), TemplateRow(502, L"U", folderId_),
                   TemplateRow(503, L"V", folderId_), AttributeRowSql(501, length), AttributeRowSql(502, length),
                   AttributeRowSql(503, length), SizeRow(601, 501, L"S1"), SizeRow(602, 501, L"S2"),
                   SizeRow(603, 501, L"S3"), SizeRow(604, 501, L"S4"), SizeRow(605, 502, L"U1"),
                   SizeRow(606, 503, L"V1")});
    ReloadAndWalk();
  }

  // A file of the test's own with these bytes.
  std::wstring File(const std::string& name, const Bytes& bytes) {
    std::ofstream(files_.path() / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return Utf8ToWide((files_.path() / name).string());
  }
  std::wstring Missing() const { return Utf8ToWide((files_.path() / "missing").string()); }

  LxModel* Model(const std::wstring& size) { return stdsize_GetModel(Size(size)); }
  LxProjections* Projections(const std::wstring& size) { return stdsize_GetProjections(Size(size)); }
  const CTemplate* TemplateOf(const std::wstring& size) { return Obj(Size(size))->GetTemplate(); }

  // Gives the size a new model from two new files; the MODEL row's id.
  std::int32_t NewModel(const std::wstring& size, const Bytes& model, const Bytes& icon, const std::wstring& digest) {
    const std::string name = WideToUtf8(digest);
    EXPECT_TRUE(model_SetModelEx(Model(size), File(name + ".m", model).c_str(), File(name + ".i", icon).c_str(),
                                 digest.c_str(), 1));
    return Sql().Int(L"SELECT ID FROM MODEL WHERE DIGEST = " + Quoted(digest));
  }
  LxProjection* NewProjection(const std::wstring& size, const Bytes& fragment, const Bytes& icon,
                              const std::wstring& digest, std::int32_t type, const std::wstring& name,
                              std::int32_t viewType) {
    const std::string file = WideToUtf8(digest);
    return projections_AddProjectionEx(Projections(size), File(file + ".f", fragment).c_str(),
                                       File(file + ".i", icon).c_str(), digest.c_str(), type, name.c_str(), viewType);
  }

  static Bytes IconOf(LxModel* model) {
    unsigned char* data = nullptr;
    std::int32_t size = 0;
    return model_GetIconData(model, &data, &size) ? Bytes(data, data + size) : Text("<no icon>");
  }
  static Bytes IconOf(LxProjection* projection) {
    unsigned char* data = nullptr;
    std::int32_t size = 0;
    return projection_GetIconData(projection, &data, &size) ? Bytes(data, data + size) : Text("<no icon>");
  }

  Bytes StoredBlob(const std::wstring& query) { return SqlScope(Obj(provider_)).Blob(query); }
  // Total size, largest segment and segment count of a stored blob.
  std::array<int, 3> BlobShape(const std::wstring& query) {
    SqlScope scope(Obj(provider_));
    IBPP::Statement statement = scope.NewStatement();
    statement.Execute(WideToCp1251(query));
    std::array<int, 3> shape{};
    if (!statement.Fetch()) return shape;
    IBPP::Blob blob = scope.NewBlob();
    statement.Get(1, blob);
    blob.Open();
    blob.Info(&shape[0], &shape[1], &shape[2]);
    blob.Close();
    return shape;
  }
  // The rows of a template as "direction|fragment|view type".
  Texts ProjectionRows(std::int32_t templateId) {
    return Sql().Texts(L"SELECT PROJECTIONID || '|' || FRAGMENTID || '|' || VIEW_TYPE FROM OBJECTPROJECTION WHERE "
                       L"OBJECTID = " + N(templateId) + L" ORDER BY VIEW_TYPE, PROJECTIONID");
  }
  // The content files the library left in its folder.
  static Texts ContentFiles() {
    Texts files;
    for (const auto& entry : std::filesystem::directory_iterator(LibraryTempFolder::Folder())) {
      const std::string extension = entry.path().extension().string();
      if (extension == ".qmx" || extension == ".qfx") files.push_back(Utf8ToWide(entry.path().filename().string()));
    }
    return files;
  }
  static std::wstring InFolder(const std::string& name) {
    return Utf8ToWide((LibraryTempFolder::Folder() / name).string());
  }

  TempDir files_;
};

TEST_F(Content, ModelsAndFragmentsComeBackByteForByteAndTheirFilesGoWithTheReload) {
  // Stored, this model is 40000 bytes: two segments.
  const Bytes model = StoredAs(40000);
  ASSERT_FALSE(model.empty());
  const Bytes modelIcon = Text("иконка модели"), fragment = Random(5000, 4), fragmentIcon = Text("иконка вида");
  LxModel* handle = Model(L"U1");
  ASSERT_TRUE(model_SetModelEx(handle, File("model.bin", model).c_str(), File("model.png", modelIcon).c_str(),
                               L"модель", 7));
  const std::int32_t id = Sql().Int(L"SELECT MODELID FROM OBJECT WHERE ID = 502");
  ASSERT_GT(id, 0);
  EXPECT_EQ(TemplateOf(L"U1")->GetModelId(), id);
  const std::wstring row = L" FROM MODEL WHERE ID = " + N(id);
  EXPECT_EQ(Sql().Texts(L"SELECT DIGEST || '|' || MODEL_VERSION || '|' || COALESCE(ORIENTATION, 'null')" + row),
            Texts{L"модель|7|null"});
  EXPECT_EQ(BlobShape(L"SELECT MODEL" + row), (std::array{40000, 32767, 2}));
  EXPECT_EQ(Unpacked(StoredBlob(L"SELECT MODEL" + row)), model);
  EXPECT_EQ(Unpacked(StoredBlob(L"SELECT THUMBNAIL" + row)), modelIcon);

  const wchar_t* file = model_GetModelFile(handle);
  ASSERT_NE(file, nullptr);
  const std::wstring modelFile = file;
  EXPECT_EQ(modelFile, InFolder(std::to_string(id) + ".qmx"));
  EXPECT_EQ(ReadFile(modelFile), model);
  EXPECT_STREQ(model_GetDigest(handle), L"модель");
  EXPECT_STREQ(model_GetModelName(handle), N(id).c_str());
  EXPECT_EQ(model_GetVersion(handle), 7);
  EXPECT_EQ(model_GetOrientation(handle), 0);
  EXPECT_EQ(IconOf(handle), modelIcon);
  EXPECT_FALSE(model_IsEmpty(handle));
  EXPECT_TRUE(model_IsEmpty(Model(L"V1")));

  LxProjection* projection = NewProjection(L"U1", fragment, fragmentIcon, L"вид", 2, L"", 1);
  ASSERT_NE(projection, nullptr);
  const std::int32_t fragmentId = Sql().Int(L"SELECT ID FROM FRAGMENT WHERE DIGEST = 'вид'");
  EXPECT_EQ(ProjectionRows(502), Texts{L"2|" + N(fragmentId) + L"|1"});
  EXPECT_EQ(Unpacked(StoredBlob(L"SELECT FRAGMENT FROM FRAGMENT WHERE ID = " + N(fragmentId))), fragment);
  EXPECT_EQ(Unpacked(StoredBlob(L"SELECT THUMBNAIL FROM FRAGMENT WHERE ID = " + N(fragmentId))), fragmentIcon);
  file = projection_GetFragmentFile(projection);
  ASSERT_NE(file, nullptr);
  const std::wstring fragmentFile = file;
  EXPECT_EQ(fragmentFile, InFolder(std::to_string(fragmentId) + ".qfx"));
  EXPECT_EQ(ReadFile(fragmentFile), fragment);
  EXPECT_EQ(IconOf(projection), fragmentIcon);
  EXPECT_STREQ(projection_GetName(projection), L"спереди");
  EXPECT_STREQ(projection_GetDigest(projection), L"вид");
  EXPECT_EQ(projection_GetType(projection), 2);
  EXPECT_EQ(projection_GetViewType(projection), 1);
  EXPECT_EQ(ContentFiles().size(), 2u);

  ReloadAndWalk();
  EXPECT_EQ(ContentFiles(), Texts{});
  ASSERT_EQ(projections_GetProjectioCount(Projections(L"U1")), 1);
  projection = projections_GetProjection(Projections(L"U1"), 0);
  EXPECT_EQ(IconOf(projection), fragmentIcon);
  EXPECT_EQ(ReadFile(projection_GetFragmentFile(projection)), fragment);
  EXPECT_EQ(ReadFile(model_GetModelFile(Model(L"U1"))), model);
  EXPECT_EQ(IconOf(Model(L"U1")), modelIcon);
}

TEST_F(Content, AKnownDigestSharesItsRowAndReadsNeitherFile) {
  const Bytes model = Text("первая модель"), icon = Text("первая иконка");
  const std::int32_t id = NewModel(L"U1", model, icon, L"общая");
  const std::int32_t models = Count(L"MODEL");
  // Other content, an empty icon and another version: none of it is read.
  ASSERT_TRUE(model_SetModelEx(Model(L"V1"), File("other.bin", Text("другая")).c_str(), File("empty", {}).c_str(),
                               L"общая", 9));
  EXPECT_EQ(Count(L"MODEL"), models);
  EXPECT_EQ(Sql().Texts(L"SELECT ID || ':' || MODELID FROM OBJECT WHERE ID IN (502, 503) ORDER BY ID"),
            (Texts{L"502:" + N(id), L"503:" + N(id)}));
  EXPECT_TRUE(model_IsEqualModel(Model(L"U1"), Model(L"V1")));
  EXPECT_EQ(model_GetVersion(Model(L"V1")), 1);
  EXPECT_EQ(ReadFile(model_GetModelFile(Model(L"V1"))), model);
  EXPECT_STREQ(model_GetModelFile(Model(L"V1")), model_GetModelFile(Model(L"U1")));
  EXPECT_EQ(IconOf(Model(L"V1")), icon);

  // Letting go of a model, also by taking another size's empty one, keeps
  // the row for the next size of that digest.
  EXPECT_TRUE(model_Clear(Model(L"V1")));
  EXPECT_TRUE(model_IsEmpty(Model(L"V1")));
  EXPECT_TRUE(model_SetModel(Model(L"U1"), Model(L"V1")));
  EXPECT_TRUE(model_IsEmpty(Model(L"U1")));
  EXPECT_EQ(Sql().Int(L"SELECT COUNT(*) FROM OBJECT WHERE ID IN (502, 503) AND MODELID IS NULL"), 2);
  EXPECT_EQ(Count(L"MODEL"), models);
}

TEST_F(Content, SetModelExChecksItsArgumentsFirstAndARefusalChangesNothing) {
  const std::wstring model = File("model", Text("модель")), icon = File("icon", Text("иконка"));
  const std::wstring empty = File("empty", {});
  LxModel* shared = Model(L"S1");
  const std::string method = " [CStdModel::_SetModelEx]";
  EXPECT_FAILS(model_SetModelEx(shared, L"", icon.c_str(), L"m300", 1), "Требуется задать путь до модели" + method);
  EXPECT_FAILS(model_SetModelEx(shared, Missing().c_str(), icon.c_str(), L"m300", 1),
               "Требуется задать реальный путь до модели" + method);
  EXPECT_FAILS(model_SetModelEx(shared, model.c_str(), L"", L"", 1), "Требуется задать путь до иконки" + method);
  // The digest is known, and still the icon file must exist.
  EXPECT_FAILS(model_SetModelEx(shared, model.c_str(), Missing().c_str(), L"m300", 1),
               "Требуется задать реальный путь до иконки" + method);
  EXPECT_FAILS(model_SetModelEx(shared, model.c_str(), icon.c_str(), L"", 1), "Требуется задать crc модели" + method);
  EXPECT_FAILS(model_SetModelEx(shared, model.c_str(), icon.c_str(), nullptr, 1));
  const std::string path = WideToUtf8(empty);
  EXPECT_FAILS(model_SetModelEx(shared, empty.c_str(), icon.c_str(), L"новая", 1),
               "Файл пустой или отсутствует " + path + " [ModelOperation::SaveFileToBlob]",
               "Проблемы при сохранении файла в блоб " + path + " [ModelOperation::CreateModel]",
               "Не смогли создать модель " + path + method);

  EXPECT_EQ(Count(L"MODEL"), 1);
  EXPECT_EQ(Count(L"OBJECT"), 3);
  EXPECT_EQ(stdsize_GetTemplateID(Size(L"S1")), 501);
  EXPECT_EQ(TemplateOf(L"S1")->GetModelId(), 300);
  EXPECT_STREQ(model_GetDigest(shared), L"m300");

  // A model is named by its id alone.
  EXPECT_FAILS(model_SetName(shared, L"имя"), " (fun: model_SetName) Неизвестное исключение");
  EXPECT_FAILS(model_SetName(shared, nullptr));
  EXPECT_STREQ(model_GetModelName(shared), L"300");

  // A null model is an empty one; anything else of it is a failure.
  EXPECT_EQ(Captured([] { return model_IsEmpty(nullptr); }), Quietly(true));
  EXPECT_FAILS(model_GetDigest(nullptr), "Передан нулевой указатель на объект model (fun: model_GetDigest)");
}

TEST_F(Content, AChangeOnOneSizeOfASharedTemplateGivesThatSizeATemplateOfItsOwn) {
  Sql().Execute({L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (400, x'00', x'00', 'f400')",
                 L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (401, x'00', x'00', 'f401')",
                 L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (1, 400, 501, 0)",
                 L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (2, 401, 501, 2)"});
  ReloadAndWalk();
  const Texts shared{L"1|400|0", L"2|401|2"};
  // S4's list is read before the changes; the split changes none of it.
  ASSERT_EQ(projections_GetProjectioCount(Projections(L"S4")), 2);

  const std::int32_t model = NewModel(L"S1", Text("своя модель"), Text("иконка"), L"своя");
  ASSERT_GT(model, 0);
  ASSERT_NE(NewProjection(L"S2", Text("изометрия"), Text("иконка"), L"изо", 7, L"изометрия", 0), nullptr);
  LxProjections* s3 = Projections(L"S3");
  ASSERT_TRUE(projections_DeleteProjection(s3, projections_FindProjection(s3, L"", 1, 0)));

  const std::int32_t user = Sql().Int(L"SELECT ID FROM PROJECTION WHERE NAME = 'изометрия'");
  const std::int32_t fragment = Sql().Int(L"SELECT ID FROM FRAGMENT WHERE DIGEST = 'изо'");
  const Texts sizes{L"S1", L"S2", L"S3", L"S4"};
  const Texts expected{L"S1:T (0):" + N(model), L"S2:T (1):300", L"S3:T (2):300", L"S4:T:300"};
  auto check = [&] {
    EXPECT_EQ(Sql().Texts(L"SELECT s.IDENTIFIER || ':' || o.NAME || ':' || o.MODELID FROM STANDARDSIZE s JOIN OBJECT "
                          L"o ON o.ID = s.OBJECTID WHERE o.NAME STARTING WITH 'T' ORDER BY s.IDENTIFIER"),
              expected);
    Texts inMemory;
    for (const std::wstring& size : sizes) {
      inMemory.push_back(size + L":" + TemplateOf(size)->GetName() + L":" + N(TemplateOf(size)->GetModelId()));
    }
    EXPECT_EQ(inMemory, expected);
    EXPECT_EQ(stdsize_GetTemplateID(Size(L"S4")), 501);
    EXPECT_EQ(ProjectionRows(501), shared);
    EXPECT_EQ(ProjectionRows(stdsize_GetTemplateID(Size(L"S1"))), shared);
    EXPECT_EQ(ProjectionRows(stdsize_GetTemplateID(Size(L"S2"))),
              (Texts{L"1|400|0", N(user) + L"|" + N(fragment) + L"|0", L"2|401|2"}));
    EXPECT_EQ(ProjectionRows(stdsize_GetTemplateID(Size(L"S3"))), Texts{L"2|401|2"});
    std::vector<std::int32_t> counts;
    for (const std::wstring& size : sizes) counts.push_back(projections_GetProjectioCount(Projections(size)));
    EXPECT_EQ(counts, (std::vector<std::int32_t>{2, 3, 1, 2}));
  };
  check();
  EXPECT_EQ(Count(L"MODEL WHERE ID = 300"), 1);
  ReloadAndWalk();
  check();
}

// Type, view type and fragment change the template's row itself: every size
// of the template sees it, and no size is split off.
TEST_F(Content, ChangesOfARowReachTheWholeTemplate) {
  Sql().Execute({L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (400, x'00', x'00', 'f400')",
                 L"INSERT INTO FRAGMENT (ID, FRAGMENT, THUMBNAIL, DIGEST) VALUES (401, x'00', x'00', 'f401')",
                 L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (1, 400, 501, 0)",
                 L"INSERT INTO OBJECTPROJECTION (PROJECTIONID, FRAGMENTID, OBJECTID, VIEW_TYPE) VALUES (2, 401, 501, 2)"});
  ReloadAndWalk();
  LxProjections* s1 = Projections(L"S1");
  LxProjection* top = projections_FindProjection(s1, L"", 1, 0);
  LxProjection* front = projections_FindProjection(s1, L"", 2, 2);
  ASSERT_TRUE(top && front);

  ASSERT_TRUE(projection_SetViewType(top, 1));
  ASSERT_TRUE(projection_SetType(front, 7, L"вид"));
  ASSERT_TRUE(projection_SetFragment(top, front));
  // The entry still shows its old fragment until the list is read again.
  EXPECT_FALSE(projection_IsEqualFragment(top, front));
  EXPECT_EQ(projection_GetDigest(top), std::wstring(L"f400"));

  const std::int32_t user = Sql().Int(L"SELECT ID FROM PROJECTION WHERE NAME = 'вид'");
  const Texts rows{L"1|401|1", N(user) + L"|401|2"};
  EXPECT_EQ(ProjectionRows(501), rows);
  EXPECT_EQ(Count(L"OBJECT WHERE NAME STARTING WITH 'T'"), 1);
  ReloadAndWalk();
  for (const wchar_t* size : {L"S1", L"S4"}) {
    EXPECT_EQ(stdsize_GetTemplateID(Size(size)), 501);
    LxProjections* list = Projections(size);
    ASSERT_EQ(projections_GetProjectioCount(list), 2);
    EXPECT_TRUE(projection_IsEqualFragment(projections_GetProjection(list, 0), projections_GetProjection(list, 1)));
    EXPECT_EQ(projection_GetName(projections_GetProjection(list, 1)), std::wstring(L"вид"));
  }
}

TEST_F(Content, AModelWithoutDataFailsEachTimeUntilItHasSome) {
  LxModel* model = Model(L"S1");
  Sql().Execute(L"UPDATE MODEL SET MODEL = '' WHERE ID = 300");
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_FAILS(model_GetModelFile(model), "Ошибка при чтении модели из блоба [ModelOperation::GetModel]",
                 "Не смогли получить модель из-за проблем с базой [CDataProvider::GetModelInfo]",
                 "У типоразмера нет модели [CStdModel::_GetModelFile]");
  }
  Sql().Execute(L"UPDATE MODEL SET MODEL = NULL WHERE ID = 300");
  EXPECT_TRUE(FailedInDatabase(Captured([&] { return model_GetDigest(model); }), "model_GetDigest"));
  Sql().Execute(L"UPDATE MODEL SET MODEL = x'2A' WHERE ID = 300");
  EXPECT_STREQ(model_GetDigest(model), L"m300");
  EXPECT_EQ(ReadFile(model_GetModelFile(model)), Bytes{0x2A});
  EXPECT_EQ(ContentFiles(), Texts{L"300.qmx"});
}

TEST_F(Content, ProjectionsFollowTheirRulesAndARefusalChangesNothing) {
  LxProjections* list = Projections(L"U1");
  const std::wstring fragment = File("fragment", Text("фрагмент")), icon = File("icon", Text("иконка"));
  auto add = [&](const std::wstring& path, const std::wstring& iconPath, const wchar_t* digest, std::int32_t type,
                 const wchar_t* name, std::int32_t viewType) {
    return projections_AddProjectionEx(list, path.c_str(), iconPath.c_str(), digest, type, name, viewType);
  };
  const std::string method = " [CStdProjs::_AddProjectionEx]";
  const std::string duplicate = "В данном списке проекций уже есть проекция данного типа";
  EXPECT_FAILS(add(L"", icon, L"d", 1, L"", 0), "Требуется задать путь до фрагмента" + method);
  EXPECT_FAILS(add(Missing(), icon, L"d", 1, L"", 0), "Требуется задать реальный путь до фрагмента" + method);
  EXPECT_FAILS(add(fragment, L"", L"", 0, L"", 9), "Требуется задать путь до иконки" + method);
  EXPECT_FAILS(add(fragment, Missing(), L"d", 1, L"", 0), "Требуется задать реальный путь до иконки" + method);
  EXPECT_FAILS(add(fragment, icon, L"", 0, L"", 9), "Требуется задать crc фрагмента" + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 0, L"", 9), "Неизвестная проекция" + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 8, L"", 0), "Неизвестная проекция" + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 1, L"", 3), "Неизвестный тип проекции" + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 1, L"", -1), "Неизвестный тип проекции" + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 1, nullptr, 0));
  const std::wstring empty = File("empty", {});
  const std::string emptyPath = WideToUtf8(empty);
  EXPECT_FAILS(add(empty, icon, L"d", 1, L"", 0),
               "Файл пустой или отсутствует " + emptyPath + " [ModelOperation::SaveFileToBlob]",
               "Проблемы при сохранении файла в блоб " + emptyPath + " [PrjOperation::AddFragment]",
               "Проблема с базой, не смогли вставить фрагмент в базу" + method);
  EXPECT_EQ(Count(L"FRAGMENT"), 0);
  EXPECT_EQ(Count(L"OBJECTPROJECTION"), 0);

  // A standard type takes its standard name; a user type with a standard
  // name is that standard direction.
  LxProjection* back = add(fragment, icon, L"d", 3, L"abc", 0);
  ASSERT_NE(back, nullptr);
  EXPECT_STREQ(projection_GetName(back), L"сзади");
  LxProjection* top = add(fragment, icon, L"d", 7, L"сверху", 0);
  ASSERT_NE(top, nullptr);
  EXPECT_EQ(projection_GetType(top), 1);
  EXPECT_FAILS(add(fragment, icon, L"d", 1, L"", 0), duplicate + method);
  EXPECT_FAILS(add(fragment, icon, L"d", 7, L"сзади", 0), duplicate + method);
  // User-named directions stand side by side; copies compare types only.
  LxProjection* first = add(fragment, icon, L"d", 7, L"вид А", 0);
  LxProjection* second = add(fragment, icon, L"d", 7, L"вид Б", 0);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(projection_GetType(second), 7);
  EXPECT_FAILS(add(fragment, icon, L"d", 7, L"вид А", 0), duplicate + method);
  EXPECT_FAILS(projections_AddProjection(list, first),
               "В данном списке проекции уже есть проекция данного типа [CStdProjs::_AddProjection]");
  LxProjection* copy = projections_AddProjection(Projections(L"V1"), first);
  ASSERT_NE(copy, nullptr);
  EXPECT_STREQ(projection_GetName(copy), L"вид А");
  EXPECT_TRUE(projection_IsEqualFragment(copy, first));

  const std::int32_t f = Sql().Int(L"SELECT ID FROM FRAGMENT WHERE DIGEST = 'd'");
  const std::int32_t a = Sql().Int(L"SELECT ID FROM PROJECTION WHERE NAME = 'вид А'");
  const std::int32_t b = Sql().Int(L"SELECT ID FROM PROJECTION WHERE NAME = 'вид Б'");
  EXPECT_EQ(Count(L"FRAGMENT"), 1);
  EXPECT_EQ(Count(L"PROJECTION"), 8);
  const std::wstring tail = L"|" + N(f) + L"|0";
  EXPECT_EQ(ProjectionRows(502), (Texts{L"1" + tail, L"3" + tail, N(a) + tail, N(b) + tail}));
  EXPECT_EQ(ProjectionRows(503), Texts{N(a) + tail});
  EXPECT_EQ(projections_GetProjectioCount(list), 4);

  auto find = [&](const wchar_t* name, std::int32_t type, std::int32_t viewType) {
    return projections_FindProjection(list, name, type, viewType);
  };
  const std::string findMethod = " [CStdProjs::_FindProjection]";
  EXPECT_FAILS(find(L"", -1, -1), "Оба параметра не могут быть пропущены" + findMethod);
  EXPECT_FAILS(find(L"", 0, 0), "Неизвестный тип проекции" + findMethod);
  EXPECT_FAILS(find(L"", 8, -1), "Неизвестный тип проекции" + findMethod);
  EXPECT_FAILS(find(L"", 1, 3), "Неизвестный тип вида" + findMethod);
  EXPECT_FAILS(find(L"", 3, -1));
  EXPECT_FAILS(find(L"", -2, 0));
  EXPECT_FAILS(find(nullptr, 3, 0));
  EXPECT_EQ(find(L"", 3, 0), back);
  EXPECT_EQ(find(L"сзади", 3, -1), back);
  EXPECT_EQ(find(L"вид Б", -1, 0), second);
  EXPECT_EQ(find(L"вид Б", 7, 0), second);
  EXPECT_FAILS(find(L"вид Б", 7, 1));

  EXPECT_FAILS(projection_SetType(second, 7, L"вид А"), duplicate + " [CStdPrj::_SetType]");
  EXPECT_FAILS(projection_SetType(second, 3, L""), duplicate + " [CStdPrj::_SetType]");
  EXPECT_FAILS(projection_SetType(second, 8, L""), "Неизвестная проекция [CStdPrj::_SetType]");
  EXPECT_FAILS(projections_DeleteProjection(list, copy),
               "Переданная проекция не принадлежит текущему списку проекций [CStdProjs::_DeleteProjection]");
  EXPECT_EQ(ProjectionRows(502), (Texts{L"1" + tail, L"3" + tail, N(a) + tail, N(b) + tail}));
  EXPECT_EQ(ProjectionRows(503), Texts{N(a) + tail});
  EXPECT_FAILS(projection_SetViewType(back, 0), duplicate + " [CStdPrj::_SetViewType]");
  EXPECT_FAILS(projection_SetViewType(back, 3), "Неизвестный тип проекции [CStdPrj::_SetViewType]");
  ASSERT_TRUE(projection_SetViewType(back, 2));
  EXPECT_EQ(projection_GetViewType(back), 2);
  ASSERT_TRUE(projections_DeleteProjection(list, top));
  EXPECT_EQ(ProjectionRows(502), (Texts{N(a) + tail, N(b) + tail, L"3|" + N(f) + L"|2"}));

  // A reload orders by view type, then direction.
  ReloadAndWalk();
  list = Projections(L"U1");
  Texts names;
  for (std::int32_t i = 0; i < projections_GetProjectioCount(list); ++i) {
    names.push_back(projection_GetName(projections_GetProjection(list, i)));
  }
  EXPECT_EQ(names, (Texts{L"вид А", L"вид Б", L"сзади"}));
}

TEST_F(Content, TemporaryNamesCountFromTwoAndContentIsReadOncePerProvider) {
  const std::filesystem::path folder = LibraryTempFolder::Folder();
  EXPECT_EQ(MakeTempPath(L"12", L".qmx"), InFolder("12.qmx"));
  std::ofstream(folder / "12.qmx") << "x";
  EXPECT_EQ(MakeTempPath(L"12", L".qmx"), InFolder("12 (2).qmx"));
  std::ofstream(folder / "12 (2).qmx") << "x";
  EXPECT_EQ(MakeTempPath(L"12", L".qmx"), InFolder("12 (3).qmx"));
  EXPECT_FALSE(std::filesystem::exists(folder / "12 (3).qmx"));

  // A file another run left under the model's name stays as it is.
  const std::int32_t id = NewModel(L"U1", Text("модель"), Text("иконка"), L"раз");
  const std::string name = std::to_string(id);
  std::ofstream(folder / (name + ".qmx")) << "чужой";
  LxModel* model = Model(L"U1");
  EXPECT_STREQ(model_GetDigest(model), L"раз");
  const std::wstring file = model_GetModelFile(model);
  EXPECT_EQ(file, InFolder(name + " (2).qmx"));
  LxProjection* projection = NewProjection(L"U1", Text("фрагмент"), Text("иконка"), L"вид", 1, L"", 0);
  ASSERT_NE(projection, nullptr);
  const std::wstring fragmentFile = projection_GetFragmentFile(projection);

  // Neither the row nor the blob is read again.
  Sql().Execute({L"UPDATE MODEL SET DIGEST = 'два', MODEL = x'00', MODEL_VERSION = 5 WHERE ID = " + N(id),
                 L"UPDATE FRAGMENT SET FRAGMENT = x'00'"});
  EXPECT_STREQ(model_GetDigest(model), L"раз");
  EXPECT_EQ(model_GetVersion(model), 1);
  EXPECT_EQ(model_GetModelFile(model), file);
  EXPECT_EQ(projection_GetFragmentFile(projection), fragmentFile);
  EXPECT_EQ(ReadFile(fragmentFile), Text("фрагмент"));

  ReloadAndWalk();
  EXPECT_FALSE(Exists(file));
  EXPECT_FALSE(Exists(fragmentFile));
  EXPECT_EQ(ReadFile(InFolder(name + ".qmx")), Text("чужой"));
  model = Model(L"U1");
  EXPECT_STREQ(model_GetDigest(model), L"два");
  EXPECT_EQ(ReadFile(model_GetModelFile(model)), Bytes{0});
}

TEST_F(Content, ThumbnailsComeFromTheOneEntrySlotsOrFromThePacketCache) {
  const std::int32_t a = NewModel(L"U1", Text("A"), Text("иконка A"), L"A");
  NewModel(L"V1", Text("B"), Text("иконка B"), L"B");
  EXPECT_EQ(IconOf(Model(L"U1")), Text("иконка A"));
  Sql().Execute(L"UPDATE MODEL SET THUMBNAIL = x'00' WHERE ID = " + N(a));
  EXPECT_EQ(IconOf(Model(L"U1")), Text("иконка A"));
  EXPECT_EQ(IconOf(Model(L"V1")), Text("иконка B"));
  EXPECT_EQ(IconOf(Model(L"U1")), Bytes{0});

  // Cached while the packet has no fragments: nothing to serve from.
  ASSERT_TRUE(packet_CacheData(packet_));
  LxProjection* first = NewProjection(L"U1", Text("1"), Text("иконка 1"), L"1", 1, L"", 0);
  LxProjection* second = NewProjection(L"V1", Text("2"), Text("иконка 2"), L"2", 1, L"", 0);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(IconOf(first), Text("иконка 1"));

  ASSERT_TRUE(packet_CacheData(packet_));
  Sql().Execute(L"UPDATE FRAGMENT SET THUMBNAIL = x'00'");
  EXPECT_EQ(IconOf(second), Text("иконка 2"));
  EXPECT_EQ(IconOf(first), Text("иконка 1"));
  ASSERT_TRUE(packet_ClearDataCache(packet_));
  EXPECT_EQ(IconOf(second), Bytes{0});
  EXPECT_EQ(IconOf(first), Bytes{0});
}

TEST_F(Content, OrientationIsZeroWhereTheCatalogHasNoSuchColumn) {
  const std::int32_t id = NewModel(L"U1", Text("модель"), Text("иконка"), L"м");
  Sql().Execute(L"UPDATE MODEL SET ORIENTATION = 2 WHERE ID = " + N(id));
  EXPECT_EQ(model_GetOrientation(Model(L"U1")), 2);
  ReloadAndWalk();
  Sql().Execute(L"ALTER TABLE MODEL DROP ORIENTATION");
  LxModel* model = Model(L"U1");
  EXPECT_EQ(Captured([&] { return model_GetOrientation(model); }), Quietly(0));
  EXPECT_STREQ(model_GetDigest(model), L"м");
  EXPECT_EQ(ReadFile(model_GetModelFile(model)), Text("модель"));
}

}  // namespace
}  // namespace lxtest
