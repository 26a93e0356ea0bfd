// Attached files on real catalogs: rows written by SQL in the stored form
// come back byte for byte in temporary files named after them; the list of a
// size is read once; the writers of the interface refuse.
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "ChildProcess.h"
#include "ContentFixture.h"
#include "platform/TextCodec.h"

namespace lxtest {
namespace {

// The temporary folder is fixed at the first file the library writes in a
// process, so every test of this program shares one private folder.
const std::filesystem::path& FileFolder() {
  static TempDir* folder = [] {
    auto* made = new TempDir();
    setenv("TMP", made->path().c_str(), 1);
    return made;
  }();
  return folder->path();
}

class Files : public ContentFixture {
 protected:
  void SetUp() override {
    FileFolder();
    ContentFixture::SetUp();
  }

  // A FILES row with this content, attached to the sizes by id.
  void LayFile(std::int32_t id, const std::wstring& name, const Bytes& content, std::vector<std::int32_t> sizes) {
    Sql().Execute(L"INSERT INTO FILES (ID, NAME, DIGEST, DATAFILE) VALUES (" + std::to_wstring(id) + L", " +
                  Quoted(name) + L", 'd" + std::to_wstring(id) + L"', " + StoredLiteral(content) + L")");
    for (std::int32_t size : sizes)
      Sql().Execute(L"INSERT INTO STANDARTSIZE_FILE (ID, STDSIZE_ID, FILES_ID) VALUES (" +
                    std::to_wstring(id * 100 + size % 100) + L", " + std::to_wstring(size) + L", " +
                    std::to_wstring(id) + L")");
  }
  static Bytes Content(std::size_t length, unsigned seed) {
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<unsigned char>((i * seed + i / 7) % 251);
    return bytes;
  }
  // The file's content, and its name inside the temporary folder ("" when
  // it is elsewhere).
  static std::pair<Bytes, std::string> Written(LxFile* file) {
    const wchar_t* path = file_GetFile(file);
    if (path == nullptr) return {};
    const std::filesystem::path written = Path(path);
    const std::string bytes = ReadWhole(written);
    return {Bytes(bytes.begin(), bytes.end()),
            written.parent_path() == FileFolder() ? written.filename().string() : std::string()};
  }
  static std::wstring NameOf(LxFile* file) { return std::wstring(file_GetName(file)) + L"|" + file_GetExt(file); }
};

TEST_F(Files, StoredContentComesBackByteForByteUnderItsName) {
  const Bytes sheet = Content(3000, 13), plain = Content(17, 5), dotted = Content(1, 3);
  LayFile(1, L"Паспорт.PDF", sheet, {601});
  LayFile(2, L"README", plain, {601});
  LayFile(3, L"болт.м8.Txt", dotted, {601});
  LxFiles* files = stdsize_GetFiles(s1_);
  ASSERT_EQ(files_GetFileCount(files), 3);
  EXPECT_EQ(files_GetStdSize(files), s1_);

  std::map<std::wstring, LxFile*> byName;
  for (std::int32_t i = 0; i < 3; ++i) {
    LxFile* file = files_GetFile(files, i);
    EXPECT_EQ(file_GetStdSize(file), s1_);
    byName[NameOf(file)] = file;
  }
  ASSERT_EQ(byName.size(), 3u);
  ASSERT_TRUE(byName.count(L"Паспорт|.pdf") && byName.count(L"README|") && byName.count(L"болт.м8|.txt"));
  EXPECT_EQ(Written(byName[L"Паспорт|.pdf"]), std::make_pair(sheet, std::string("Паспорт.pdf")));
  EXPECT_EQ(Written(byName[L"README|"]), std::make_pair(plain, std::string("README")));
  EXPECT_EQ(Written(byName[L"болт.м8|.txt"]), std::make_pair(dotted, std::string("болт.м8.txt")));
  // The second request is the same file, not a second copy.
  EXPECT_STREQ(file_GetFile(byName[L"README|"]), file_GetFile(byName[L"README|"]));

  EXPECT_FAILS(files_GetFile(files, 3), "Индекс 3 выходит за пределы диапазона [0, 3) [CStdFiles::_GetFile]");
}

TEST_F(Files, TwoFilesOfOneNameGetNumberedFilesAndSizesShareOneRow) {
  const Bytes first = Content(40, 7), second = Content(50, 11);
  LayFile(4, L"Чертёж.dwg", first, {602, 603});
  LayFile(5, L"Чертёж.DWG", second, {602});
  LxFiles* files = stdsize_GetFiles(s2_);
  ASSERT_EQ(files_GetFileCount(files), 2);
  LxFile* a = files_GetFile(files, 0);
  LxFile* b = files_GetFile(files, 1);
  if (file_IsEqual(a, b)) FAIL() << "two rows compare equal";
  // Both names lower to "Чертёж.dwg": the one asked for second is numbered.
  const auto [bytesA, nameA] = Written(a);
  const auto [bytesB, nameB] = Written(b);
  EXPECT_EQ(nameA, "Чертёж.dwg");
  EXPECT_EQ(nameB, "Чертёж (2).dwg");
  EXPECT_TRUE((bytesA == first && bytesB == second) || (bytesA == second && bytesB == first));

  // U1 attaches row 4 too: a record of its own with the same id, which
  // compares equal across the sizes and shares the written file.
  LxFiles* other = stdsize_GetFiles(u1_);
  ASSERT_EQ(files_GetFileCount(other), 1);
  LxFile* shared = files_GetFile(other, 0);
  EXPECT_NE(shared, a);
  LxFile* same = Written(a).first == first ? a : b;
  LxFile* different = same == a ? b : a;
  EXPECT_TRUE(file_IsEqual(shared, same));
  EXPECT_FALSE(file_IsEqual(shared, different));
  EXPECT_STREQ(file_GetFile(shared), file_GetFile(same));
  EXPECT_FAILS(file_IsEqual(shared, nullptr), "Передан нулевой указатель на объект otherFile (fun: file_IsEqual)");
}

TEST_F(Files, ASizeWithoutFilesIsReadOnce) {
  LxFiles* files = stdsize_GetFiles(s1_);
  EXPECT_EQ(Captured([&] { return files_GetFileCount(files); }), Quietly(0));
  LayFile(6, L"поздний.txt", Content(10, 3), {601});
  EXPECT_EQ(files_GetFileCount(files), 0);
  EXPECT_EQ(stdsize_GetFiles(s1_), files);
  // A new load sees the row, so the count above was the cached list.
  ReloadAndWalk();
  EXPECT_EQ(files_GetFileCount(stdsize_GetFiles(Size(L"S1"))), 1);
}

TEST_F(Files, WritersRefuseAndChangeNothing) {
  LayFile(7, L"лист.xls", Content(30, 9), {601});
  LxFiles* files = stdsize_GetFiles(s1_);
  LxFile* file = files_GetFile(files, 0);
  ASSERT_NE(file, nullptr);
  const std::wstring source = Utf8ToWide((FileFolder() / "новый.txt").string());
  WriteWhole(FileFolder() / "новый.txt", "content");

  EXPECT_FAILS(files_AddFile(files, file), " (fun: files_AddFile) Неизвестное исключение");
  EXPECT_FAILS(files_AddFileEx(files, source.c_str(), L"новый.txt", L"abc"),
               " (fun: files_AddFileEx) Неизвестное исключение");
  EXPECT_FAILS(files_AddFileEx(files, source.c_str(), nullptr, L"abc"));
  EXPECT_FAILS(files_DeleteFile(files, file), " (fun: files_DeleteFile) Неизвестное исключение");
  EXPECT_FAILS(files_DeleteFile(files, nullptr), "Передан нулевой указатель на объект file (fun: files_DeleteFile)");

  EXPECT_EQ(files_GetFileCount(files), 1);
  EXPECT_EQ(files_GetFile(files, 0), file);
  EXPECT_EQ(Count(L"FILES"), 1);
  EXPECT_EQ(Count(L"STANDARTSIZE_FILE"), 1);
}

}  // namespace
}  // namespace lxtest
