// Values of placed objects on a real catalog: own values laid over the size,
// formulas and the order in which they read, the row date, binding, copies
// and comparison, specification columns and cache ids.
#include <filesystem>
#include <string>
#include <vector>

#include "ObjectFixture.h"

namespace lxtest {
namespace {

using Objects = ObjectFixture;

TEST_F(Objects, OwnValuesLieOverTheSizeUntilRestored) {
  LxObject* object = Create(s1_);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object_GetStdSize(object), s1_);
  EXPECT_STREQ(object_getPacketName(object), kPacket);
  EXPECT_STREQ(object_getStdSizeId(object), L"S1");
  EXPECT_STREQ(object_GetLibraryId(object), L"Lib");
  EXPECT_EQ(Seen(object, L"длина"), L"i:12");
  EXPECT_EQ(Seen(object, L"Масса"), L"d:1.5");
  EXPECT_EQ(Seen(object, L"Марка"), L"s:Ст3");

  LxAttribute* length = Column(L"Длина");
  LxAttribute* mass = Column(L"Масса");
  LxAttribute* grade = Column(L"Марка");
  // Text is converted by the column's type; the string column takes it as it is.
  const std::vector<std::tuple<LxAttribute*, const wchar_t*, std::wstring>> texts{
      {length, L"abc", L"i:0"},   {length, L"42", L"i:42"}, {mass, L"2,5", L"d:2.5"},
      {mass, L"2.75", L"d:2.75"}, {mass, L"x", L"d:0"},     {grade, L"Ст5 \U0001F600", L"s:Ст5 \U0001F600"}};
  for (const auto& [column, text, shown] : texts) {
    EXPECT_TRUE(object_SetValueS(object, column, text));
    EXPECT_EQ(Seen(object, attribute_GetName(column)), shown) << text;
  }
  // No kind is checked for numbers.
  EXPECT_TRUE(object_SetValueI(object, grade, 7));
  EXPECT_EQ(Seen(object, L"Марка"), L"i:7");
  EXPECT_TRUE(object_SetValueD(object, length, 0.25));
  EXPECT_EQ(Seen(object, L"Длина"), L"d:0.25");
  // The size and the database know nothing of it.
  EXPECT_EQ(Shown(s1_, length), L"i:12");
  EXPECT_EQ(StoredSizeValues(folderId_, 21), Texts{L"S1=12||"});

  EXPECT_TRUE(object_RestoreValue(object, length));
  EXPECT_EQ(Seen(object, L"Длина"), L"i:12");
  EXPECT_TRUE(object_RestoreValue(object, length));

  LxAttribute* alien = table_FindAttribute(stdsize_GetTable(p7_), L"A");
  ASSERT_NE(alien, nullptr);
  const std::string notOurs = "Атрибут не принадлежит таблице типоразмеров [CObject::";
  ValueView view{};
  EXPECT_FAILS(object_GetValue(object, alien, nullptr, &view), notOurs + "_GetValue]");
  EXPECT_FAILS(object_SetValueI(object, alien, 1), notOurs + "_SetValue]");
  EXPECT_FAILS(object_RestoreValue(object, alien), notOurs + "_RestoreValue]");
  EXPECT_FAILS(object_GetValueByName(object, L"Нет", nullptr, &view),
               "Не найден атрибут по имени Нет [CObject::_GetValue]");
  EXPECT_FAILS(object_GetValueByName(object, nullptr, nullptr, &view));
}

TEST_F(Objects, PlacingStampsTheRowDateWhichRestoringAllKeepsOnlyAsText) {
  LxObject* object = Create(s1_);
  LxAttribute* date = Column(L"USS_LAST_CHANGE_DATE");
  ASSERT_TRUE(stdsize_SetValueS(s1_, date, L"05.05.2021"));
  EXPECT_EQ(Seen(object, L"USS_LAST_CHANGE_DATE"), std::wstring(L"s:") + kDate);

  ASSERT_TRUE(object_SetValueI(object, Column(L"Длина"), 1));
  EXPECT_TRUE(object_RestoreAllValues(object));
  EXPECT_EQ(Seen(object, L"Длина"), L"i:12");
  EXPECT_EQ(Seen(object, L"USS_LAST_CHANGE_DATE"), std::wstring(L"s:") + kDate);

  ASSERT_TRUE(object_SetValueI(object, date, 20200201));
  EXPECT_TRUE(object_RestoreAllValues(object));
  EXPECT_EQ(Seen(object, L"USS_LAST_CHANGE_DATE"), L"s:05.05.2021");
}

TEST_F(Objects, FormulasReadTheObjectsOwnValuesFirst) {
  LxObject* object = Create(s1_);
  EXPECT_EQ(Seen(object, L"Ссылка"), L"i:12");
  ASSERT_TRUE(object_SetValueI(object, Column(L"Длина"), 40));
  EXPECT_EQ(Seen(object, L"Ссылка"), L"i:40");
  // A bare reference passes the value on to the column it names.
  EXPECT_TRUE(object_SetValueI(object, Column(L"Ссылка"), 7));
  EXPECT_EQ(Seen(object, L"Длина"), L"i:7");
  EXPECT_EQ(Seen(object, L"Ссылка"), L"i:7");
  EXPECT_FAILS(object_SetValueI(object, Column(L"Сумма"), 1),
               "Формуле нельзя задать значение, name = Сумма, formula = {A21}+1 [CObject::_SetValue]");
  EXPECT_EQ(Seen(object, L"Длина"), L"i:7");

  // The cycle ends empty, with one message.
  EXPECT_EQ(Captured([&] { return Seen(object, L"Цикл1"); }),
            std::make_pair(std::wstring(L"e"), Writes{">LxDataAcces: Зацикливание формулы в S1"}));

  // Own values under the names of calculated columns come only from a
  // buffer: a direct read ignores them, a formula reading them takes them.
  ObjectContent content{kPacket, L"S1", L"Lib", {{L"Ссылка", 0, 99}, {L"Цикл2", 0, 3}}};
  LxObject* loaded = Load(content.Written(20190222).bytes());
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(Seen(loaded, L"Ссылка"), L"i:12");
  EXPECT_EQ(Seen(loaded, L"Через"), L"i:99");
  EXPECT_EQ(Captured([&] { return Seen(loaded, L"Цикл1"); }), Quietly(std::wstring(L"i:3")));
}

TEST_F(Objects, BindingCopyingAndComparing) {
  LxObject* object = Create(s1_, L"LibA");
  LxAttribute* mass = Column(L"Масса");
  unsigned char block[] = {1, 2, 3};
  ASSERT_TRUE(object_SetValueD(object, mass, 3.0));
  ASSERT_TRUE(object_SetBufValue(object, L"блок", block, 3));
  unsigned char* data = nullptr;
  std::int32_t size = 0;

  // The present size: nothing changes, not even the library.
  EXPECT_TRUE(object_Initialize(object, L"LibB", s1_, true));
  EXPECT_EQ(Seen(object, L"Масса"), L"d:3");
  EXPECT_STREQ(object_GetLibraryId(object), L"LibA");
  LxObject* clone = Kept(object_Clone(object));
  ASSERT_NE(clone, nullptr);
  EXPECT_TRUE(object_compareByValues(object, clone));
  ASSERT_TRUE(object_GetBufValue(clone, L"блок", &data, &size));
  EXPECT_EQ(std::vector<unsigned char>(data, data + size), std::vector<unsigned char>(block, block + 3));
  EXPECT_NE(data, block);
  ASSERT_TRUE(object_SetValueD(object, mass, 3.000001));
  EXPECT_TRUE(object_compareByValues(object, clone));
  ASSERT_TRUE(object_SetValueD(object, mass, 3.001));
  EXPECT_FALSE(object_compareByValues(object, clone));
  ASSERT_TRUE(object_RestoreValue(object, mass));
  EXPECT_FALSE(object_compareByValues(object, clone));
  ASSERT_TRUE(object_SetValueD(object, mass, 3.0));
  EXPECT_TRUE(object_compareByValues(object, clone));

  // Another size keeps own values and drops binary ones.
  EXPECT_TRUE(object_Initialize(object, L"LibB", s2_, false));
  EXPECT_STREQ(object_getStdSizeId(object), L"S2");
  EXPECT_STREQ(object_GetLibraryId(object), L"LibB");
  EXPECT_EQ(Seen(object, L"Масса"), L"d:3");
  EXPECT_FALSE(object_GetBufValue(object, L"блок", &data, &size));
  EXPECT_FALSE(object_compareByValues(object, clone));  // the sizes differ
  EXPECT_TRUE(object_Initialize(object, L"LibC", s1_, true));
  EXPECT_EQ(Seen(object, L"Масса"), L"d:1.5");

  // A copy into an object of another template takes everything.
  LxObject* other = Create(u1_);
  EXPECT_TRUE(object_InitializeByObject(other, clone));
  EXPECT_EQ(object_GetStdSize(other), s1_);
  EXPECT_STREQ(object_GetLibraryId(other), L"LibA");
  EXPECT_TRUE(object_compareByValues(other, clone));
  ASSERT_TRUE(object_GetBufValue(other, L"блок", &data, &size));
  EXPECT_EQ(size, 3);

  // An empty or missing block deletes and is true either way.
  EXPECT_TRUE(object_SetBufValue(other, L"нет", block, 0));
  EXPECT_TRUE(object_SetBufValue(other, L"блок", nullptr, 3));
  EXPECT_FALSE(object_GetBufValue(other, L"блок", &data, &size));
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(size, 0);
}

TEST_F(Objects, SpecificationColumnsAndCacheIdsFollowTheObject) {
  Execute(SpecRows(11, 501, L"осн", 7, {L"{A21}", L"Болт {A23}"}));
  LxObject* object = Create(s1_);
  ASSERT_TRUE(object_SetValueI(object, Column(L"Длина"), 44));
  LxSpec* spec = stdsize_GetSpecification(s1_, 0);
  ValueView view{};
  ASSERT_TRUE(object_GetSpecValue(object, spec, 1, nullptr, &view));
  EXPECT_EQ(Described(view), L"i:44");
  ASSERT_TRUE(object_GetSpecValue(object, spec, 2, nullptr, &view));
  EXPECT_EQ(Described(view), L"s:Болт Ст3");
  EXPECT_FAILS(object_GetSpecValue(object, spec, 3, nullptr, &view),
               "Не найдена колонка 3 в спецификации 7 [CObject::_GetSpecValue]");

  const std::wstring stem = Path(provider_GetDatabaseName(provider_)).stem().wstring();
  EXPECT_EQ(std::wstring(object_generateCacheId(object)), stem + kPacket + L"S1");
  EXPECT_EQ(std::wstring(object_generateCacheId(Create(p7_))), stem + L"P7");
}

}  // namespace
}  // namespace lxtest
