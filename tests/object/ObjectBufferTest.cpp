// Saved objects on real catalogs: buffers the library writes are compared
// with buffers written independently (ObjectBuffer), buffers of every
// version are loaded, damaged buffers fail with a message or give an object,
// and the size is found again through the registry, the built-in rename and
// the old references.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ObjectFixture.h"

namespace lxtest {
namespace {

using Bytes = ObjectBuffer::Bytes;
using ObjectBuffers = ObjectFixture;

const std::string kLoad = " [CObjectHelper::_LoadObject]";
const std::string kOld = " [CObjectHelper::_CreateObject_OLD]";

// The object of packet "P", size "7", library "L", own integer "A" = 5, no
// view, as ten elements: version, three texts, count, name, value, view
// name, view type, count of blocks.
const std::vector<Bytes> kExample{{0x01, 0x0E, 0x14, 0x34, 0x01}, {0x03, 0x02, 0, 0, 0, 0x50, 0},
                                  {0x03, 0x02, 0, 0, 0, 0x37, 0}, {0x03, 0x02, 0, 0, 0, 0x4C, 0},
                                  {0x01, 0x01, 0, 0, 0},          {0x03, 0x02, 0, 0, 0, 0x41, 0},
                                  {0x01, 0x05, 0, 0, 0},          {0x03, 0, 0, 0, 0},
                                  {0x01, 0xFF, 0xFF, 0xFF, 0xFF}, {0x01, 0, 0, 0, 0}};

Bytes Elements(std::initializer_list<int> indexes) {
  Bytes bytes;
  for (int i : indexes) bytes.insert(bytes.end(), kExample[i].begin(), kExample[i].end());
  return bytes;
}

TEST_F(ObjectBuffers, TheSmallExampleBothWays) {
  const Bytes example = Elements({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  ASSERT_EQ(example.size(), 58u);
  LxObject* object = Create(p7_, L"L");
  ASSERT_TRUE(object_SetValueI(object, table_FindAttribute(stdsize_GetTable(p7_), L"A"), 5));
  ASSERT_TRUE(object_SetProjection(object, nullptr));
  EXPECT_EQ(Saved(object), example);
  // Elements that do not fit are left out, and those behind them still go in.
  EXPECT_EQ(Saved(object, 1, 24), Elements({0, 1, 2, 4}));
  EXPECT_EQ(Saved(object, 1, 10), Elements({0, 4}));
  EXPECT_EQ(Saved(object, 1, 5), Elements({0}));
  EXPECT_EQ(Saved(object, 1, 3), Bytes({'<', 'f', 'a', 'l', 's', 'e', '>'}));

  LxObject* loaded = Load(example);
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(object_GetStdSize(loaded), p7_);
  EXPECT_STREQ(object_GetLibraryId(loaded), L"L");
  EXPECT_EQ(Seen(loaded, L"A"), L"i:5");
  EXPECT_EQ(object_GetProjectionViewType(loaded), 0xFFFFFFFFu);
  EXPECT_EQ(object_GetProjectionType(loaded), 0);
  EXPECT_TRUE(object_compareByValues(object, loaded));
}

TEST_F(ObjectBuffers, EveryKindOfValueAndBlockComesBack) {
  LxObject* object = Create(s1_);
  const std::wstring text = L"Ст5 \U0001F600 конец";
  ASSERT_TRUE(object_SetValueI(object, Column(L"Длина"), -5));
  ASSERT_TRUE(object_SetValueD(object, Column(L"Масса"), 0.0025));
  ASSERT_TRUE(object_SetValueS(object, Column(L"Марка"), text.c_str()));
  Bytes block{0, 1, 255, 0};
  ASSERT_TRUE(object_SetBufValue(object, L"блок", block.data(), 4));
  const ObjectContent content{
      kPacket, L"S1",
      L"Lib",  {{L"USS_LAST_CHANGE_DATE", 0, kDate}, {L"Длина", 0, -5}, {L"Марка", 0, text}, {L"Масса", 0, 0.0025}},
      0.0,     L"сверху",
      0,       {{L"блок", block}}};
  const Bytes saved = Saved(object);
  EXPECT_EQ(saved, content.Written(20190222).bytes());
  EXPECT_EQ(Saved(object, 0), content.Written(20160204).bytes());

  for (const Bytes& bytes : {saved, Saved(object, 0)}) {
    LxObject* loaded = Load(bytes);
    ASSERT_NE(loaded, nullptr);
    EXPECT_TRUE(object_compareByValues(object, loaded));
    EXPECT_EQ(Seen(loaded, L"Марка"), L"s:" + text);
    unsigned char* data = nullptr;
    std::int32_t size = 0;
    ASSERT_TRUE(object_GetBufValue(loaded, L"блок", &data, &size));
    EXPECT_EQ(Bytes(data, data + size), block);
    EXPECT_EQ(Saved(loaded, bytes == saved ? 1 : 0), bytes);
  }
  // Without a library id the load takes the registry's name of its pool.
  EXPECT_EQ(std::wstring(object_GetLibraryId(Load(Saved(object, 0)))), std::wstring(lxGetLibraryName(pool_)));

  // An unknown tag leaves the value empty; it is saved as the integer 0.
  ObjectBuffer odd;
  odd.Int(20190222).String(kPacket).String(L"S1").String(L"Lib").Int(1).String(L"Длина").Raw("\x09", 1);
  LxObject* empty = Load(odd.bytes());
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(Seen(empty, L"Длина"), L"e");
  const Bytes zero =
      ObjectContent{kPacket, L"S1", L"Lib", {{L"Длина", 0, 0}}, 0.0, L"сверху", 0}.Written(20190222).bytes();
  EXPECT_EQ(Saved(empty), zero);
  EXPECT_EQ(Seen(Load(zero), L"Длина"), L"i:0");
}

TEST_F(ObjectBuffers, OldVersionsTakeOldNumbersAndOneOfThemElevation) {
  const std::wstring library = lxGetLibraryName(pool_);
  const ObjectContent content{
      kPacket, L"S1",      L"", {{L"Длина", 5, 33}, {L"Масса", 6, 2.25}, {L"Лишнее", 99, 1}, {L"Длина", 5, 34}},
      3.5,     L"спереди", 1};
  for (std::int32_t version : {20110124, 20110202, 20110725, 20111128}) {
    SCOPED_TRACE(version);
    LxObject* object = Load(content.Written(version).bytes());
    ASSERT_NE(object, nullptr);
    // By number a later entry wins, by name the first one.
    std::vector<BufferValue> values{{L"Длина", 0, version < 20111128 ? 34 : 33}, {L"Масса", 0, 2.25}};
    if (version == 20111128) values.insert(values.begin() + 1, {L"Лишнее", 0, 1});
    if (version == 20110202) values.insert(values.begin(), {L"elevation", 0, 3.5});
    EXPECT_EQ(Saved(object),
              (ObjectContent{kPacket, L"S1", library, values, 0.0, L"спереди", 1}.Written(20190222).bytes()));
    EXPECT_EQ(Seen(object, L"elevation"), version == 20110202 ? L"d:3.5" : L"d:7.5");
  }
  // Elevation missing: 0.
  ObjectBuffer noElevation;
  noElevation.Int(20110202).String(kPacket).String(L"S1").Int(0).String(L"спереди").Int(1);
  EXPECT_EQ(Seen(Load(noElevation.bytes()), L"elevation"), L"d:0");
  // Without a size old values cannot be mapped and are skipped unread, so
  // the view type meets their count.
  ObjectContent lost = content;
  lost.stdSizeId = L"S9";
  LxObject* kept = Load(lost.Written(20110124).bytes(), true);
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(Saved(kept), (ObjectContent{kPacket, L"S9", library, {}, 0.0, L"сверху", 4}.Written(20190222).bytes()));
}

TEST_F(ObjectBuffers, CutOrDamagedBuffersFailWithAMessageOrGiveAnObject) {
  const ObjectContent content{kPacket, L"S1",     L"Lib", {{L"Длина", 0, 3}, {L"Масса", 0, 1.5}, {L"Марка", 0, L"x"}},
                              0.0,     L"сверху", 0,      {{L"a", {1, 2, 3}}, {L"b", {}}}};
  const Bytes whole = content.Written(20190222).bytes();
  const std::int32_t namesEnd = ObjectBuffer().Int(1).String(kPacket).String(L"S1").size();
  const std::string noVersion = "Неподдерживаемая версия данных для типоразмера:\nПакет объектов: , ID типоразмера: ";
  for (std::int32_t length = 1; length <= static_cast<std::int32_t>(whole.size()); ++length) {
    SCOPED_TRACE(length);
    // Exactly `length` bytes on the heap, so that a read past them is seen.
    std::unique_ptr<unsigned char[]> cut(new unsigned char[length]);
    std::copy(whole.begin(), whole.begin() + length, cut.get());
    auto [object, writes] = Captured([&] { return Kept(object_Load(pool_, cut.get(), length, false)); });
    if (length < namesEnd) {
      EXPECT_EQ(object, nullptr);
    }
    if (length <= 4) {
      EXPECT_EQ(writes, Flushed({noVersion + kLoad}));
    } else if (length < namesEnd) {
      ASSERT_EQ(writes.size(), 1u);
      EXPECT_EQ(writes[0].rfind(">LxDataAcces: В пакете ", 0), 0u) << writes[0];
    } else {
      EXPECT_EQ(object_GetStdSize(object), s1_);
      EXPECT_TRUE(writes.empty());
    }
    if (length > 4) {
      EXPECT_NE(Kept(object_Load(pool_, cut.get(), length, true)), nullptr);
    }
  }

  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (unsigned char damage : {0x00, 0x04, 0x7F, 0xFF}) {
      Bytes bytes = whole;
      bytes[at] = damage;
      auto [object, writes] = Captured([&] { return Kept(object_Load(pool_, bytes.data(), bytes.size(), true)); });
      if (object == nullptr) {
        ASSERT_EQ(writes.size(), 1u) << at;
        EXPECT_EQ(writes[0].rfind(">LxDataAcces: Неподдерживаемая версия данных", 0), 0u) << at;
      } else {
        EXPECT_GT(Saved(object).size(), 8u) << at;
      }
    }
  }
}

TEST_F(ObjectBuffers, AnObjectWhoseSizeIsGoneIsKeptAndSavedUnchanged) {
  LxObject* object = Create(s2_);
  ASSERT_TRUE(object_SetValueD(object, Column(L"Масса"), 9.5));
  unsigned char block[] = {7, 8};
  ASSERT_TRUE(object_SetBufValue(object, L"блок", block, 2));
  const Bytes saved = Saved(object);
  ASSERT_TRUE(table_DeleteStdSize(table_, s2_));

  EXPECT_FAILS(Load(saved), "В пакете Пакет отсутствует типоразмер S2" + kLoad);
  LxObject* kept = Load(saved, true);
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(Captured([&] { return object_GetStdSize(kept); }), Quietly<LxStdSize*>(nullptr));
  EXPECT_STREQ(object_getStdSizeId(kept), L"S2");
  EXPECT_STREQ(object_GetLibraryId(kept), L"Lib");
  EXPECT_EQ(Saved(kept), saved);
  EXPECT_EQ(Captured([&] { return std::wstring(object_generateCacheId(kept)); }), Quietly(std::wstring()));
  EXPECT_EQ(object_GetProjectionType(kept), 1);
  EXPECT_TRUE(object_compareByValues(kept, kept));
  EXPECT_FALSE(object_compareByValues(kept, object));
  ValueView view{};
  EXPECT_FAILS(object_GetValue(kept, Column(L"Масса"), nullptr, &view), Refusal("_GetValue"));
  EXPECT_FAILS(object_SetValueI(kept, Column(L"Масса"), 1), Refusal("_SetValue"));
  EXPECT_FAILS(object_RestoreAllValues(kept), Refusal("_RestoreAllValues"));
  EXPECT_FAILS(Kept(object_Clone(kept)), Refusal("_Clone"));
  EXPECT_FAILS(object_GetProjection(kept), Refusal("_GetProjection"));
  EXPECT_FAILS(object_SetProjection(kept, nullptr), Refusal("_SetProjection"));
  EXPECT_FAILS(object_GetLayers(kept), Refusal("_GetLayers"));
  EXPECT_FAILS(object_InitializeByObject(Create(s1_), kept),
               "Перед использованием передаваемый объект следует инициализировать типоразмером [CObject::_Initialize]");

  // Bound again, it keeps its values and drops its blocks.
  EXPECT_TRUE(object_Initialize(kept, L"Lib2", s1_, false));
  EXPECT_EQ(Seen(kept, L"Масса"), L"d:9.5");
  unsigned char* data = nullptr;
  std::int32_t size = 0;
  EXPECT_FALSE(object_GetBufValue(kept, L"блок", &data, &size));
}

TEST_F(ObjectBuffers, TheLibraryIdChoosesThePoolAndEveryProviderIsAsked) {
  const std::wstring file = NewCatalogFile("второй.каталог.fdb");
  const std::wstring library = L"ВтораяБиблиотека" + std::to_wstring(reinterpret_cast<std::uintptr_t>(this));
  LxProviderPool* second = lxAddLibraryProviderPool(library.c_str(), L"/lib/second.ulb");
  LxDataProvider* provider = pool_AddProvider(second, connection_.server.c_str(), file.c_str(),
                                              connection_.user.c_str(), connection_.password.c_str());
  ASSERT_NE(provider, nullptr);
  CatalogSql sql(connection_.server, file, connection_.user, connection_.password);
  LayPacket(provider, sql, kPacket, 800, {L"X1"}, {});
  ASSERT_TRUE(lxReloadProvider(connection_.server.c_str(), file.c_str()));
  LxStdSize* x1 = packet_FindStdSize(provider_GetPacketByName(provider, kPacket), L"X1");
  ASSERT_NE(x1, nullptr);

  ObjectContent content{kPacket, L"X1", library};
  LxObject* object = Load(content.Written(20190222).bytes());
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object_GetStdSize(object), x1);
  EXPECT_STREQ(object_GetLibraryId(object), library.c_str());
  EXPECT_EQ(std::wstring(object_generateCacheId(object)), std::wstring(L"второй.каталог") + kPacket + L"X1");

  // A library the registry lacks: the argument pool, whose packet of that
  // name lacks the size, until a later provider of the pool has it.
  content.libraryId = L"Чужая";
  EXPECT_FAILS(Load(content.Written(20190222).bytes()), "В пакете Пакет отсутствует типоразмер X1" + kLoad);
  EXPECT_STREQ(object_GetLibraryId(Load(content.Written(20190222).bytes(), true)), L"Чужая");
  LxDataProvider* later = Attach(file);
  ASSERT_NE(later, nullptr);
  LxObject* found = Load(content.Written(20190222).bytes());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(object_GetStdSize(found), packet_FindStdSize(provider_GetPacketByName(later, kPacket), L"X1"));
  EXPECT_STREQ(object_GetLibraryId(found), L"Чужая");
  lxDeleteProviderPool(second);
}

TEST_F(ObjectBuffers, RenamedBendsAndOldReferencesFindTheirSizes) {
  LxStdSize* renamed = packet_FindStdSize(provider_GetPacketByName(provider_, kBends), L"DT#080#030#15");
  LxObject* bend = Load(ObjectContent{kBends, L"DT#080#010#15", L"Lib"}.Written(20190222).bytes());
  ASSERT_NE(bend, nullptr);
  EXPECT_EQ(object_GetStdSize(bend), renamed);
  EXPECT_STREQ(object_getStdSizeId(bend), L"DT#080#010#15");
  EXPECT_FAILS(Load(ObjectContent{kBends, L"DT#080#010#16", L"Lib"}.Written(20190222).bytes()),
               "В пакете Отводы круглого сечения ВСН 353-86 отсутствует типоразмер DT#080#010#16" + kLoad);

  Sql().Execute({L"UPDATE STANDARDSIZE SET OLD_INDEX = '17', OLD_NAME = 'Старый' WHERE ID = 602",
                 SizeRow(604, 501, L"S4"),
                 L"UPDATE STANDARDSIZE SET OLD_INDEX = '18', OLD_NAME = 'Новый' WHERE ID = 604"});
  LxObject* direct = Kept(pool_CreateObject_OLD(pool_, kPacket, L"S1", L"что угодно", L"L"));
  EXPECT_EQ(object_GetStdSize(direct), s1_);
  LxObject* old = Kept(pool_CreateObject_OLD(pool_, kPacket, L"17", L"Старый", L"L"));
  EXPECT_EQ(object_GetStdSize(old), s2_);
  EXPECT_STREQ(object_GetLibraryId(old), L"L");
  EXPECT_EQ(Seen(old, L"USS_LAST_CHANGE_DATE"), std::wstring(L"s:") + kDate);
  EXPECT_FAILS(Kept(pool_CreateObject_OLD(pool_, kPacket, L"17", L"Другое", L"L")),
               "Не нашли типоразмер по старому ID = 17 и старому имениДругое в пакете Пакет" + kOld);
  EXPECT_FAILS(Kept(pool_CreateObject_OLD(pool_, kPacket, L"18", L"Новый", L"L")), "Не найден типоразмер 604" + kOld);
  EXPECT_FAILS(Kept(pool_CreateObject_OLD(pool_, L"Нет", L"17", L"Старый", L"L")), "Не найден пакет Нет" + kOld);
  EXPECT_FAILS(Kept(pool_CreateObject_OLD(pool_, kBends, L"DT#080#010#15", L"", L"L")),
               "Не нашли типоразмер по старому ID = DT#080#010#15 и старому имени в пакете "
               "Отводы круглого сечения ВСН 353-86" +
                   kOld);
}

TEST_F(ObjectBuffers, PacketInfoAndRefusedBuffers) {
  auto info = [](Bytes bytes, std::int32_t size = -1) {
    const wchar_t* texts[3] = {nullptr, nullptr, nullptr};
    const bool ok = object_getPacketInfo(bytes.empty() ? nullptr : bytes.data(),
                                         size < 0 ? static_cast<std::int32_t>(bytes.size()) : size, &texts[0],
                                         &texts[1], &texts[2]);
    return ok ? std::wstring(texts[0]) + L"|" + texts[1] + L"|" + texts[2] : L"<false>";
  };
  ObjectBuffer future;
  future.Int(20200101).String(L"П").String(L"Р").String(L"Б");
  EXPECT_EQ(info(Elements({0, 1, 2, 3, 4})), L"P|7|L");
  EXPECT_EQ(info(future.bytes()), L"П|Р|Б");
  EXPECT_EQ(info(ObjectContent{L"П", L"Р", L"Б"}.Written(20160204).bytes()), L"П|Р|");
  EXPECT_EQ(info({}), L"||");

  const std::string version = "Неподдерживаемая версия данных для типоразмера:\nПакет объектов: ";
  EXPECT_FAILS(Load(future.bytes()), version + "П, ID типоразмера: Р" + kLoad);
  EXPECT_FAILS(Load(ObjectBuffer().String(L"П").String(L"Р").bytes()), version + "П, ID типоразмера: Р" + kLoad);
  EXPECT_FAILS(Load({1, 0x0E, 0x14, 0x34}), version + ", ID типоразмера: " + kLoad);
  unsigned char byte = 1;
  EXPECT_FAILS(Kept(object_Load(pool_, nullptr, 10, true)), "Передан нулевой указатель на буфер" + kLoad);
  EXPECT_FAILS(Kept(object_Load(pool_, &byte, 0, true)), "Передан неверное значение размера" + kLoad);
  EXPECT_FAILS(Kept(object_Load(pool_, &byte, -1, true)), "Передан неверное значение размера" + kLoad);
}

}  // namespace
}  // namespace lxtest
