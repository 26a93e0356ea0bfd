// lxcat end to end: the built program run on generated catalogs, each
// format it prints parsed back and held against what the C interface says
// in this process; changes read back through the interface after a reload;
// every failure one line on standard error with a non-zero exit.
#include <csv.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "ChildProcess.h"
#include "GeneratedCatalogFixture.h"
#include "platform/TextCodec.h"

namespace lxtest {
namespace {

using json = nlohmann::json;
using Records = std::vector<std::vector<std::string>>;

std::string U8(const wchar_t* text) { return text ? WideToUtf8(text) : std::string(); }

ChildResult Lxcat(const std::vector<std::string>& arguments) {
  return RunChild(BesideThisProgram("lxcat"), arguments);
}

// A run that worked: exit 0 and nothing on standard error, not even a
// progress bar, since standard error is a file here.
std::string Succeeded(const ChildResult& run) {
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.err, "");
  return run.out;
}

void ExpectOneLineFailure(const ChildResult& run, const std::string& part) {
  EXPECT_NE(run.exitCode, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  EXPECT_EQ(run.err.rfind("lxcat: ", 0), 0u) << run.err;
  EXPECT_NE(run.err.find(part), std::string::npos) << run.err;
}

Records ParseCsv(const std::string& text) {
  struct Reader {
    Records records{1};
  } reader;
  csv_parser parser;
  csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI);
  auto field = [](void* data, size_t length, void* self) {
    static_cast<Reader*>(self)->records.back().emplace_back(static_cast<char*>(data), length);
  };
  auto end = [](int, void* self) { static_cast<Reader*>(self)->records.emplace_back(); };
  EXPECT_EQ(csv_parse(&parser, text.data(), text.size(), field, end, &reader), text.size());
  EXPECT_EQ(csv_fini(&parser, field, end, &reader), 0);
  csv_free(&parser);
  reader.records.pop_back();
  return reader.records;
}

// Two packets of 1 + 2 + 4 folders; the leaves split into two virtual
// folders each; formulas, a model and projections with thumbnails.
CatalogShape Shape() {
  CatalogShape shape = SmallTree();
  shape.splitGroups = 2;
  shape.modelBytes = 700;
  shape.projectionsPerTemplate = 2;
  shape.fragmentBytes = 300;
  shape.thumbnailBytes = 90;
  return shape;
}

class LxcatTest : public GeneratedCatalogFixture {
 protected:
  void SetUp() override {
    ASSERT_NE(provider_, nullptr);
    Generate(Shape());
    ASSERT_TRUE(Reload());
  }

  std::string File() const { return WideToUtf8(database_); }

  // The folder of a path as the interface walks it, packet first.
  LxFolder* Walk(const std::vector<std::wstring>& path) {
    LxFolder* folder = packet_GetRootFolder(provider_GetPacketByName(provider_, path.front().c_str()));
    for (size_t i = 1; folder && i < path.size(); ++i) folder = ChildNamed(folder, path[i]);
    return folder;
  }
  static std::string Joined(const std::vector<std::wstring>& path) {
    std::wstring text;
    for (const std::wstring& part : path) text += (text.empty() ? L"" : L"\\") + part;
    return WideToUtf8(text);
  }
  // A virtual leaf with formulas, and a real folder without templates.
  const std::vector<std::wstring> leaf_{L"Пакет 1", L"Папка 1", L"Папка 3", L"0"};
  const std::vector<std::wstring> real_{L"Пакет 2", L"Папка 2"};
};

// ---- reading -------------------------------------------------------------

void ExpectSameFolder(LxFolder* folder, const json& node) {
  EXPECT_EQ(node["name"], U8(folder_GetName(folder)));
  EXPECT_EQ(node["virtual"], folder_IsVirtual(folder));
  EXPECT_EQ(node["sizes"], table_GetStdSizeCount(folder_GetTable(folder)));
  ASSERT_EQ(node["folders"].size(), static_cast<size_t>(folder_GetChildFolderCount(folder)));
  for (int32_t i = 0; i < folder_GetChildFolderCount(folder); ++i) {
    ExpectSameFolder(folder_GetChildFolder(folder, i), node["folders"][i]);
  }
}

TEST_F(LxcatTest, TreePrintsEveryPacketAndFolderWithTheLibrarysCounts) {
  const json tree = json::parse(Succeeded(Lxcat({"tree", File(), "--format", "json"})));
  ASSERT_EQ(tree["packets"].size(), static_cast<size_t>(provider_GetPacketCount(provider_)));
  for (int32_t p = 0; p < provider_GetPacketCount(provider_); ++p) {
    LxPacket* packet = provider_GetPacket(provider_, p);
    const json& node = tree["packets"][p];
    EXPECT_EQ(node["name"], U8(packet_GetName(packet)));
    EXPECT_EQ(node["sizes"], 24);
    ExpectSameFolder(packet_GetRootFolder(packet), json{{"name", U8(folder_GetName(packet_GetRootFolder(packet)))},
                                                        {"virtual", false},
                                                        {"sizes", node["rootSizes"]},
                                                        {"folders", node["folders"]}});
  }
  const std::string text = Succeeded(Lxcat({"tree", File()}));
  EXPECT_NE(text.find("Пакет 2  24 sizes"), std::string::npos) << text;
  EXPECT_NE(text.find("\n      1  [virtual]  2 sizes\n"), std::string::npos) << text;
}

TEST_F(LxcatTest, TableInEveryFormatShowsTheLibrarysColumnsAndEvaluatedValues) {
  LxFolderTable* table = folder_GetTable(Walk(leaf_));
  const int32_t columns = table_GetAttributeCount(table);
  const int32_t sizes = table_GetStdSizeCount(table);
  ASSERT_EQ(columns, 6);
  const json document = json::parse(Succeeded(Lxcat({"table", File(), Joined(leaf_), "--format", "json"})));
  const Records csv = ParseCsv(Succeeded(Lxcat({"table", File(), Joined(leaf_), "--format", "csv"})));
  ASSERT_EQ(document["columns"].size(), static_cast<size_t>(columns));
  ASSERT_EQ(document["sizes"].size(), static_cast<size_t>(sizes));
  ASSERT_EQ(csv.size(), static_cast<size_t>(sizes) + 1);
  int formulas = 0;
  for (int32_t c = 0; c < columns; ++c) {
    LxAttribute* attribute = table_GetAttribute(table, c);
    const json& column = document["columns"][c];
    EXPECT_EQ(column["number"], attribute_GetNumber(attribute));
    EXPECT_EQ(column["name"], U8(attribute_GetName(attribute)));
    EXPECT_EQ(csv[0][c + 1], U8(attribute_GetName(attribute)));
    EXPECT_EQ(column["measure"], U8(attribute_GetMeasure(attribute)));
    EXPECT_EQ(column["formula"], U8(attribute_GetFormula(attribute)));
    formulas += !column["formula"].get<std::string>().empty();
  }
  EXPECT_EQ(formulas, 2);
  for (int32_t s = 0; s < sizes; ++s) {
    LxStdSize* size = table_GetStdSize(table, s);
    EXPECT_EQ(document["sizes"][s]["id"], U8(stdsize_GetID(size)));
    EXPECT_EQ(csv[s + 1][0], U8(stdsize_GetID(size)));
    for (int32_t c = 0; c < columns; ++c) {
      ValueView view{};
      ASSERT_TRUE(stdsize_GetValue(size, table_GetAttribute(table, c), nullptr, &view));
      const json& value = document["sizes"][s]["values"][c];
      const std::string& field = csv[s + 1][c + 1];
      if (view.index == LX_VALUE_INT) {
        EXPECT_EQ(value, view.payload.integer);
        EXPECT_EQ(field, std::to_string(view.payload.integer));
      } else if (view.index == LX_VALUE_DOUBLE) {
        EXPECT_EQ(value.get<double>(), view.payload.number);  // exact: the shortest text reads back
        EXPECT_EQ(std::strtod(field.c_str(), nullptr), view.payload.number) << field;
      } else {
        const std::string text = WideToUtf8(std::wstring(view.payload.text, view.length));
        EXPECT_EQ(value, text);
        EXPECT_EQ(field, text);
      }
    }
  }
  const std::string text = Succeeded(Lxcat({"table", File(), Joined(leaf_)}));
  EXPECT_EQ(text.rfind(Joined(leaf_) + ": 6 columns, " + std::to_string(sizes) + " sizes\n", 0), 0u) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 1 + columns + 1 + 1 + sizes);
}

TEST_F(LxcatTest, SearchInEveryFormatFindsWhatTheLibraryFinds) {
  const std::wstring locations = L"Пакет 1\\Папка 2;Пакет 2";
  const std::wstring condition = L"A21 > 0";
  LxSearchResult* result = pool_GetSearchResult(pool_, locations.c_str(), condition.c_str());
  ASSERT_NE(result, nullptr);
  const int32_t count = search_GetCount(result);
  ASSERT_GT(count, 0);
  const std::vector<std::string> arguments{"search", File(), WideToUtf8(locations), WideToUtf8(condition), "--format"};
  auto with = [&](const char* format) {
    std::vector<std::string> all = arguments;
    all.push_back(format);
    return Succeeded(Lxcat(all));
  };
  const json document = json::parse(with("json"));
  const Records csv = ParseCsv(with("csv"));
  const std::string text = with("text");
  ASSERT_EQ(document["count"], count);
  ASSERT_EQ(csv.size(), static_cast<size_t>(count) + 1);
  EXPECT_EQ(csv[0], (std::vector<std::string>{"folder", "id"}));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), count + 1);
  for (int32_t i = 0; i < count; ++i) {
    LxStdSize* size = search_Get(result, i);
    const std::string id = U8(stdsize_GetID(size));
    LxFolder* folder = table_GetFolder(stdsize_GetTable(size));
    EXPECT_EQ(document["sizes"][i]["id"], id);
    EXPECT_EQ(csv[i + 1][1], id);
    const std::string path = document["sizes"][i]["folder"];
    EXPECT_EQ(csv[i + 1][0], path);
    EXPECT_EQ(path.substr(path.rfind('\\') + 1), U8(folder_GetName(folder)));
    EXPECT_EQ(path.rfind(U8(packet_GetName(folder_GetPacket(folder))), 0), 0u);
  }
  pool_DeleteSearchResult(pool_, result);
  ExpectOneLineFailure(Lxcat({"search", File(), "Нет такого", "A21 > 0"}), "Отсутствует пакет 'Нет такого'");
}

// ---- changing ------------------------------------------------------------

TEST_F(LxcatTest, EditsReachTheCatalogAndBadOnesChangeNothing) {
  const std::string folder = Joined(real_);
  EXPECT_EQ(Succeeded(Lxcat({"add-column", File(), folder, "Длина", "--type", "double", "--measure", "мм"})),
            "21\n");
  EXPECT_EQ(Succeeded(Lxcat({"add-column", File(), folder, "Счёт", "--type", "integer"})), "22\n");
  EXPECT_EQ(Succeeded(Lxcat({"add-size", File(), folder, "Новый"})), "Новый\n");
  // Identifiers are unique in the packet: the library picks a free one.
  EXPECT_EQ(Succeeded(Lxcat({"add-size", File(), folder, "Новый"})), "Новый (0)\n");
  Succeeded(Lxcat({"set", File(), folder, "Новый", "длина", "12,5"}));
  Succeeded(Lxcat({"set", File(), folder, "Новый", "Счёт", "-7"}));
  ExpectOneLineFailure(Lxcat({"set", File(), folder, "Новый", "Счёт", "7.5"}),
                       "'7.5' is not a value of the integer column 'Счёт'");
  ExpectOneLineFailure(Lxcat({"set", File(), folder, "Нет", "Длина", "1"}), "no size 'Нет'");
  ExpectOneLineFailure(Lxcat({"add-size", File(), Joined(leaf_), "X"}),
                       "Для виртуальных фолдеров создание темплейтов невозможно");

  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(Walk(real_));
  LxAttribute* length = table_FindAttribute(table, L"Длина");
  ASSERT_NE(length, nullptr);
  EXPECT_EQ(attribute_GetType(length), LX_VALUE_DOUBLE);
  EXPECT_EQ(U8(attribute_GetMeasure(length)), "мм");
  LxStdSize* added = table_FindStdSize(table, L"Новый");
  ASSERT_NE(added, nullptr);
  ASSERT_NE(table_FindStdSize(table, L"Новый (0)"), nullptr);
  ValueView view{};
  ASSERT_TRUE(stdsize_GetValue(added, length, nullptr, &view));
  EXPECT_EQ(view.index, LX_VALUE_DOUBLE);
  EXPECT_EQ(view.payload.number, 12.5);
  ASSERT_TRUE(stdsize_GetValueByName(added, L"Счёт", nullptr, &view));
  EXPECT_EQ(view.payload.integer, -7);
  EXPECT_EQ(table_GetStdSizeCount(folder_GetTable(Walk(leaf_))), 4);
}

TEST_F(LxcatTest, ImportWritesTheWholeFileOrNothing) {
  const std::string folder = Joined(real_);
  const std::filesystem::path rows = std::filesystem::path(File()).parent_path() / "rows.csv";
  std::string csv = "id,Параметр 21,Ширина,Примечание\n";
  for (int i = 1; i <= 1000; ++i) {
    csv += "И" + std::to_string(i) + "," + (i == 500 ? "пять" : std::to_string(i)) + "," + std::to_string(i) +
           ".25,\"текст, \"\"" + std::to_string(i) + "\"\"\"\n";
  }
  WriteWhole(rows, csv);
  Succeeded(Lxcat({"add-column", File(), folder, "Параметр 21", "--type", "integer"}));
  Succeeded(Lxcat({"add-column", File(), folder, "Удвоенный", "--type", "integer", "--formula", "{A21*2}"}));
  Succeeded(Lxcat({"add-size", File(), folder, "Старый"}));
  const std::wstring counted[] = {L"STANDARDSIZE", L"OBJECT", L"OBJECTATTRIBUTE", L"ATTRIBUTEVALUE", L"CONCRETEVALUE"};
  std::vector<int32_t> before;
  for (const std::wstring& table : counted) before.push_back(Count(table));

  ExpectOneLineFailure(Lxcat({"import", File(), folder, rows.string()}),
                       rows.string() + " line 501: 'пять' is not a value of the integer column 'Параметр 21'");
  std::vector<int32_t> after;
  for (const std::wstring& table : counted) after.push_back(Count(table));
  EXPECT_EQ(after, before);

  // Every library write is a transaction of its own on a freshly attached
  // database, so the import that succeeds is kept short: the first rows of
  // the same file, row 500 repaired, an existing size and empty fields.
  csv = csv.substr(0, csv.find("И6,")) + "И500,500,500.25,\"текст, \"\"500\"\"\"\nСтарый,77,,\n";
  WriteWhole(rows, csv);
  EXPECT_EQ(Succeeded(Lxcat({"import", File(), folder, rows.string()})),
            "7 rows: 6 new sizes, 2 new columns, 19 values written\n");
  ASSERT_TRUE(Reload());
  LxFolderTable* table = folder_GetTable(Walk(real_));
  EXPECT_EQ(table_GetStdSizeCount(table), 7);
  EXPECT_EQ(attribute_GetType(table_FindAttribute(table, L"Ширина")), LX_VALUE_DOUBLE);
  EXPECT_EQ(attribute_GetType(table_FindAttribute(table, L"Примечание")), LX_VALUE_STRING);
  ValueView view{};
  ASSERT_TRUE(stdsize_GetValueByName(table_FindStdSize(table, L"И500"), L"Ширина", nullptr, &view));
  EXPECT_EQ(view.payload.number, 500.25);
  ASSERT_TRUE(stdsize_GetValueByName(table_FindStdSize(table, L"И5"), L"Примечание", nullptr, &view));
  EXPECT_EQ(std::wstring(view.payload.text, view.length), L"текст, \"5\"");
  ASSERT_TRUE(stdsize_GetValueByName(table_FindStdSize(table, L"Старый"), L"Параметр 21", nullptr, &view));
  EXPECT_EQ(view.payload.integer, 77);

  WriteWhole(rows, "id,Параметр 21\nА,1\nБ,2,3\n");
  ExpectOneLineFailure(Lxcat({"import", File(), folder, rows.string()}), "line 3: 3 fields where the header has 2");
  WriteWhole(rows, "id,Параметр 21\nА,1\nА,2\n");
  ExpectOneLineFailure(Lxcat({"import", File(), folder, rows.string()}), "line 3: size 'А' stands on line 2 too");
  WriteWhole(rows, "id,Параметр 21\nТР-25,1\n");
  ExpectOneLineFailure(Lxcat({"import", File(), folder, rows.string()}), "size 'ТР-25' is in another folder");
  WriteWhole(rows, "id,Удвоенный\nИ1,1\n");
  ExpectOneLineFailure(Lxcat({"import", File(), folder, rows.string()}), "column 'Удвоенный' is calculated");
  EXPECT_EQ(Count(L"STANDARDSIZE"), before[0] + 6);
}

// ---- content and objects -------------------------------------------------

TEST_F(LxcatTest, ContentWritesTheSizesModelAndProjectionsAsTheLibraryHasThem) {
  LxStdSize* size = table_GetStdSize(folder_GetTable(Walk(leaf_)), 1);
  const std::string id = U8(stdsize_GetID(size));
  const std::filesystem::path out = std::filesystem::path(File()).parent_path() / "content";
  const std::string printed = Succeeded(Lxcat({"content", File(), Joined(leaf_), id, "--out", out.string()}));
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 6) << printed;  // model, 2 projections, 3 icons
  const json manifest = json::parse(ReadWhole(out / "content.json"));
  EXPECT_EQ(manifest["size"], id);

  LxModel* model = stdsize_GetModel(size);
  EXPECT_EQ(manifest["model"]["digest"], U8(model_GetDigest(model)));
  EXPECT_EQ(ReadWhole(out / manifest["model"]["file"].get<std::string>()), ReadWhole(U8(model_GetModelFile(model))));
  unsigned char* icon = nullptr;
  int32_t bytes = 0;
  ASSERT_TRUE(model_GetIconData(model, &icon, &bytes));
  EXPECT_EQ(ReadWhole(out / manifest["model"]["icon"].get<std::string>()),
            std::string(reinterpret_cast<char*>(icon), bytes));

  LxProjections* projections = stdsize_GetProjections(size);
  ASSERT_EQ(manifest["projections"].size(), static_cast<size_t>(projections_GetProjectioCount(projections)));
  for (int32_t i = 0; i < projections_GetProjectioCount(projections); ++i) {
    LxProjection* projection = projections_GetProjection(projections, i);
    const json& entry = manifest["projections"][i];
    EXPECT_EQ(entry["name"], U8(projection_GetName(projection)));
    EXPECT_EQ(entry["type"], projection_GetType(projection));
    EXPECT_EQ(ReadWhole(out / entry["file"].get<std::string>()), ReadWhole(U8(projection_GetFragmentFile(projection))));
    ASSERT_TRUE(projection_GetIconData(projection, &icon, &bytes));
    EXPECT_EQ(ReadWhole(out / entry["icon"].get<std::string>()), std::string(reinterpret_cast<char*>(icon), bytes));
  }
  EXPECT_EQ(manifest["files"], json::array());
  ExpectOneLineFailure(Lxcat({"content", File(), Joined(leaf_), "Нет", "--out", out.string()}), "no size 'Нет'");
}

TEST_F(LxcatTest, ObjectShowsWhatASavedObjectHoldsAndWhetherItsSizeIsThere) {
  LxFolderTable* table = folder_GetTable(Walk(leaf_));
  LxStdSize* size = table_GetStdSize(table, 0);
  LxObject* object = pool_CreateObject(pool_, size, L"Библиотека");
  ASSERT_NE(object, nullptr);
  ASSERT_TRUE(object_SetValueD(object, table_GetAttribute(table, 2), 2.75));
  unsigned char blob[] = {1, 2, 3, 4, 5};
  ASSERT_TRUE(object_SetBufValue(object, L"Чертёж", blob, sizeof blob));
  std::vector<unsigned char> buffer(4096);
  uint32_t written = 0;
  const std::filesystem::path folder = std::filesystem::path(File()).parent_path();
  for (int32_t selector : {1, 0}) {
    ASSERT_TRUE(object_Save(object, buffer.data(), static_cast<int32_t>(buffer.size()), &written, selector));
    WriteWhole(folder / ("object" + std::to_string(selector)), std::string(buffer.begin(), buffer.begin() + written));
  }
  object_Delete(object);

  const json saved = json::parse(Succeeded(
      Lxcat({"object", (folder / "object1").string(), "--catalog", File(), "--format", "json"})));
  EXPECT_EQ(saved["version"], 20190222);
  EXPECT_EQ(saved["packet"], "Пакет 1");
  EXPECT_EQ(saved["size"], U8(stdsize_GetID(size)));
  EXPECT_EQ(saved["library"], "Библиотека");
  ASSERT_EQ(saved["ownValues"].size(), 1u);
  EXPECT_EQ(saved["ownValues"][0]["name"], U8(attribute_GetName(table_GetAttribute(table, 2))));
  EXPECT_EQ(saved["ownValues"][0]["value"], 2.75);
  EXPECT_EQ(saved["binaryValues"], json::parse(R"([{"name": "Чертёж", "bytes": 5}])"));
  EXPECT_EQ(saved["found"], true);
  EXPECT_EQ(saved["folder"], Joined(leaf_));

  const json older = json::parse(Succeeded(Lxcat({"object", (folder / "object0").string(), "--format", "json"})));
  EXPECT_EQ(older["version"], 20160204);
  EXPECT_EQ(older["library"], "");
  EXPECT_FALSE(older.contains("found"));

  // The size goes; the object's bytes still name it.
  ASSERT_TRUE(table_DeleteStdSize(table, size));
  const std::string text = Succeeded(Lxcat({"object", (folder / "object1").string(), "--catalog", File()}));
  EXPECT_NE(text.find("\nfound     no\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nbinary    Чертёж: 5 bytes\n"), std::string::npos) << text;
}

// Versions the library reads but no longer writes, and damaged bytes, built
// by hand in the tagged format.
std::string Element(char tag, const std::string& bytes) { return tag + bytes; }
std::string Int(int32_t value) { return Element(1, std::string(reinterpret_cast<char*>(&value), 4)); }
std::string Text(const std::u16string& text) {
  const auto length = static_cast<int32_t>(2 * text.size());
  return Element(3, std::string(reinterpret_cast<const char*>(&length), 4) +
                        std::string(reinterpret_cast<const char*>(text.data()), length));
}

TEST_F(LxcatTest, ObjectReadsOlderVersionsAndSurvivesDamage) {
  const std::filesystem::path file = std::filesystem::path(File()).parent_path() / "old";
  const double elevation = 1.5;
  // 20110202: own values by old number, then an elevation.
  WriteWhole(file, Int(20110202) + Text(u"П") + Text(u"Р") + Int(2) + Int(7) + Int(-3) + Int(8) + Text(u"т") +
                       Element(2, std::string(reinterpret_cast<const char*>(&elevation), 8)) + Text(u"вид") + Int(4));
  json object = json::parse(Succeeded(Lxcat({"object", file.string(), "--format", "json"})));
  EXPECT_EQ(object["ownValues"], json::parse(R"([{"oldNumber": 7, "value": -3}, {"oldNumber": 8, "value": "т"}])"));
  EXPECT_EQ(object["elevation"], 1.5);
  EXPECT_EQ(object["viewName"], "вид");
  EXPECT_EQ(object["viewType"], 4);
  // A count that promises two billion values, and a block longer than the rest.
  WriteWhole(file, Int(20160204) + Text(u"П") + Text(u"Р") + Int(2000000000) + Text(u"а") + Int(1) + Text(u"") +
                       Int(0) + Int(1) + Text(u"б") + Element(4, std::string("\xff\x00\x00\x00", 4)));
  object = json::parse(Succeeded(Lxcat({"object", file.string(), "--format", "json"})));
  EXPECT_EQ(object["ownValues"].size(), 5u);  // what follows is read as values until nothing moves
  EXPECT_EQ(object["binaryValues"], json::array());
  WriteWhole(file, Int(20250101) + Text(u"П") + Text(u"Р"));
  object = json::parse(Succeeded(Lxcat({"object", file.string(), "--format", "json"})));
  EXPECT_EQ(object["knownVersion"], false);
  EXPECT_EQ(object["size"], "Р");
}

// ---- files and failures --------------------------------------------------

TEST_F(LxcatTest, MaintenanceCommandsWorkOnCatalogFiles) {
  const std::filesystem::path file = std::filesystem::path(File()).parent_path() / "new" / "catalog.fdb";
  Succeeded(Lxcat({"new", file.string()}));
  EXPECT_EQ(Succeeded(Lxcat({"tree", file.string()})), "");
  Succeeded(Lxcat({"upgrade", file.string()}));
  Succeeded(Lxcat({"readonly", File(), "on"}));
  ExpectOneLineFailure(Lxcat({"add-column", File(), Joined(real_), "Ш"}), "cannot add the column 'Ш'");
  Succeeded(Lxcat({"readonly", File(), "off"}));
  EXPECT_EQ(Succeeded(Lxcat({"add-column", File(), Joined(real_), "Ш"})), "21\n");
  ExpectOneLineFailure(Lxcat({"upgrade", (file.parent_path() / "missing.fdb").string()}), "cannot upgrade");
  ExpectOneLineFailure(Lxcat({"new", "127.0.0.1:" + file.string()}), "is on a server");
}

TEST_F(LxcatTest, EveryFailureIsOneLineOnStandardErrorWithANonZeroExit) {
  const std::string missing = (std::filesystem::path(File()).parent_path() / "missing.fdb").string();
  ExpectOneLineFailure(Lxcat({"tree", missing}), "cannot open catalog '" + missing + "'");
  ExpectOneLineFailure(Lxcat({"table", File(), "Пакет 1\\Нет"}), "no folder 'Пакет 1\\Нет'");
  ExpectOneLineFailure(Lxcat({"table", File(), Joined(leaf_), "--format", "xml"}), "--format");
  ExpectOneLineFailure(Lxcat({"search", File(), "Пакет 1", "A21"}), "search failed");
  ExpectOneLineFailure(Lxcat({"tree", "127.0.0.1/1:" + File()}), "cannot open catalog");
  ExpectOneLineFailure(Lxcat({"frobnicate"}), "subcommand");
  ExpectOneLineFailure(Lxcat({"table", File()}), "FOLDER is required");
  const std::string help = Succeeded(Lxcat({"import", "--help"}));
  EXPECT_NE(help.find("all rows or none"), std::string::npos) << help;
}

}  // namespace
}  // namespace lxtest
