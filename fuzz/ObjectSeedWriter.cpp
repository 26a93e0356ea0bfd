// Writes the seed inputs of the object buffer fuzzer into the folder named on
// the command line (fuzz/corpus/object/ in the tree): buffers of all six
// format versions, written by the test support's own writer, for the sizes
// of the fuzzer's catalog, a renamed size and a missing one. Each file is a
// control byte (keepIfMissing in its lowest bit) and the buffer.
//
//   object_fuzz_seeds fuzz/corpus/object
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/ObjectBuffer.h"

namespace {

using lxtest::ObjectContent;

// Own values that the catalog's root table knows, by name and by old number,
// of each kind; old number 99 belongs to no column.
std::vector<lxtest::BufferValue> RootValues() {
  return {{L"Длина", 1, std::int32_t{16}},
          {L"Шаг", 2, 1.75},
          {L"Марка", 3, std::wstring(L"09Г2С")},
          {L"Неизвестный", 99, std::int32_t{5}}};
}

ObjectContent Content(const std::wstring& packet, const std::wstring& size, const std::wstring& library) {
  ObjectContent content;
  content.packetName = packet;
  content.stdSizeId = size;
  content.libraryId = library;
  content.values = RootValues();
  content.elevation = 1250.5;
  content.viewName = L"сверху";
  content.viewType = 0;
  content.blocks = {{L"geometry", std::vector<unsigned char>(64, 0xA5)}, {L"пусто", {}}};
  return content;
}

void Write(const std::filesystem::path& folder, const std::string& name, unsigned char control,
           const lxtest::ObjectBuffer& buffer) {
  std::ofstream file(folder / name, std::ios::binary);
  file.put(static_cast<char>(control));
  file.write(reinterpret_cast<const char*>(buffer.bytes().data()), static_cast<std::streamsize>(buffer.size()));
}

// Values under an empty name with the date holding the name they belong to:
// the form that the load repairs.
ObjectContent Repaired() {
  ObjectContent content = Content(L"P", L"2", L"object-fuzz");
  content.values = {{L"", 0, std::int32_t{22}}, {L"USS_LAST_CHANGE_DATE", 0, std::wstring(L"Длина")}};
  content.viewName = L"";
  content.viewType = 0xFFFFFFFF;
  return content;
}

// Buffers of an accepted version whose elements claim more than there is.
void WriteDamaged(const std::filesystem::path& folder) {
  using lxtest::ObjectBuffer;
  const auto head = [] { return ObjectBuffer().Int(20190222).String(L"P").String(L"1").String(L""); };
  const std::uint32_t tooLong = 0x7FFFFFF0;
  const std::int32_t negative = -8;
  Write(folder, "damaged-string-past-end", 1, ObjectBuffer().Int(20190222).Raw("\x03", 1).Raw(&tooLong, 4).Raw("P\0", 2));
  Write(folder, "damaged-odd-string", 1, ObjectBuffer().Int(20190222).Raw("\x03\x03\0\0\0P\0P", 8).String(L"1"));
  Write(folder, "damaged-lone-surrogate", 1,
        ObjectBuffer().Int(20190222).String(L"P").Raw("\x03\x04\0\0\0\x00\xD8\x31\x00", 9).String(L""));
  Write(folder, "damaged-huge-counts", 1, head().Int(0x7FFFFFFF));
  Write(folder, "damaged-value-cut", 1, head().Int(1).String(L"Длина").Raw("\x01\x10\x00", 3));
  Write(folder, "damaged-unknown-value-tag", 1, head().Int(2).String(L"Длина").Raw("\x07", 1).String(L"Шаг").Double(2.5));
  Write(folder, "damaged-block-past-end", 1,
        head().Int(0).String(L"").Int(0).Int(1).String(L"b").Raw("\x04", 1).Raw(&tooLong, 4).Raw("xy", 2));
  Write(folder, "damaged-negative-block", 1,
        head().Int(0).String(L"").Int(0).Int(1).String(L"b").Raw("\x04", 1).Raw(&negative, 4).Raw("xyxyxyxy", 8));
  Write(folder, "damaged-old-numbers-no-size", 1,
        ObjectBuffer().Int(20110202).String(L"P").String(L"Z").Int(1).Int(1).Int(5).Double(3.0).String(L"").Int(0));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <corpus folder>\n", argv[0]);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  struct Case {
    const char* name;
    ObjectContent content;
    unsigned char control;
  };
  const Case cases[] = {
      {"root-size", Content(L"P", L"1", L"object-fuzz"), 0},
      {"folder-as-packet", Content(L"F", L"A", L""), 0},
      {"child-size-in-p", Content(L"P", L"A", L""), 1},
      {"renamed-bend", Content(L"Отводы круглого сечения ВСН 353-86", L"DT#080#010#15", L"object-fuzz"), 0},
      {"missing-kept", Content(L"P", L"Z", L"object-fuzz-empty"), 1},
      {"other-library", Content(L"P", L"2", L"другая"), 1},
      {"repaired", Repaired(), 0},
  };
  for (const Case& entry : cases) {
    for (std::int32_t version : lxtest::kObjectBufferVersions) {
      Write(folder, std::to_string(version) + "-" + entry.name, entry.control, entry.content.Written(version));
    }
  }
  // The short forms: a lone tag and a version with nothing behind it; and a
  // version that was never written.
  Write(folder, "short-tag", 1, lxtest::ObjectBuffer().Raw("\x01", 1));
  Write(folder, "version-only", 1, lxtest::ObjectBuffer().Int(20190222));
  lxtest::ObjectBuffer future = Content(L"P", L"1", L"").Written(20190222);
  future.data()[1] = 0x0F;  // 20190223
  Write(folder, "future-version", 1, future);
  WriteDamaged(folder);
  return 0;
}
