// Wide text to and from UTF-8 and code page 1251.
#include <gtest/gtest.h>

#include <string>

#include "platform/TextCodec.h"

namespace {

TEST(Cp1251, EveryAssignedByteRoundTrips) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != 0x98) all += static_cast<char>(byte);  // 0x98 has no character
  }
  const std::wstring wide = Cp1251ToWide(all);
  EXPECT_EQ(wide.size(), all.size());
  EXPECT_EQ(WideToCp1251(wide), all);
}

TEST(Cp1251, KnownCharactersMapToTheirBytesAndOthersAreDropped) {
  struct Case {
    std::wstring wide;
    std::string bytes;
  };
  const Case cases[] = {
      {L"Болт М12", "\xC1\xEE\xEB\xF2 \xCC" "12"}, {L"ёЁ", "\xB8\xA8"}, {L"№€…", "\xB9\x88\x85"}, {L"\u00A0", "\xA0"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(WideToCp1251(c.wide), c.bytes);
    EXPECT_EQ(Cp1251ToWide(c.bytes), c.wide);
  }
  // Characters outside are precisely dropped.
  EXPECT_EQ(WideToCp1251(L"a\u4E2Db\U0001F600c\u00E9"), "abc");
  EXPECT_EQ(Cp1251ToWide("x\x98y"), L"xy");
}

TEST(Utf8, RoundTripsEveryPlaneAndReplacesMalformedInput) {
  const std::wstring text = L"ascii Кириллица \u20AC \U0001F600 \u07FF\u0800\uFFFD";
  EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
  EXPECT_EQ(WideToUtf8(L"Ж"), "\xD0\x96");
  EXPECT_EQ(WideToUtf8(L"\U0001F600"), "\xF0\x9F\x98\x80");
  // Malformed input becomes replacement characters.
  struct Case {
    std::string bytes;
    std::wstring wide;
  };
  const Case cases[] = {
      {"a\xFF" "b", L"a\uFFFDb"},
      {"\xC0\xAF", L"\uFFFD\uFFFD"},       // overlong '/'
      {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},  // a surrogate
      {"\xE2\x82", L"\uFFFD\uFFFD"},       // cut short at the end
      {"\xD0", L"\uFFFD"},
  };
  for (const Case& c : cases) EXPECT_EQ(Utf8ToWide(c.bytes), c.wide) << c.bytes.size();
}

}  // namespace
