// Which stored bytes the site shows as pictures: every format a browser
// decodes by its signature, and the near misses that would otherwise put a
// broken picture on a page.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tools/lxcat/site/ImageFormat.h"

namespace lxtest {
namespace {

std::string_view ExtensionOf(std::string_view bytes) {
  return lxcat::ImageExtension(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

// A bitmap's file header (14 bytes) followed by the size of its info header.
std::string Bitmap(unsigned char infoHeaderSize) {
  std::string bytes = "BM" + std::string(12, '\0');
  bytes += static_cast<char>(infoHeaderSize);
  return bytes + std::string(40, '\0');
}

TEST(ImageFormatTest, SignaturesOfTheFormatsBrowsersShow) {
  using namespace std::string_view_literals;
  EXPECT_EQ(ExtensionOf("\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv), "png");
  EXPECT_EQ(ExtensionOf("\xFF\xD8\xFF\xE0\0\x10JFIF"sv), "jpg");
  EXPECT_EQ(ExtensionOf("GIF87a\x01\0"sv), "gif");
  EXPECT_EQ(ExtensionOf("GIF89a\x01\0"sv), "gif");
  EXPECT_EQ(ExtensionOf("RIFF\x24\0\0\0WEBPVP8 "sv), "webp");
  EXPECT_EQ(ExtensionOf(Bitmap(40)), "bmp");
  EXPECT_EQ(ExtensionOf(Bitmap(124)), "bmp");
  EXPECT_EQ(ExtensionOf(Bitmap(12)), "bmp");
  EXPECT_EQ(ExtensionOf("<svg xmlns=\"http://www.w3.org/2000/svg\"/>"), "svg");
  EXPECT_EQ(ExtensionOf("\xEF\xBB\xBF \r\n\t<?xml version=\"1.0\"?>\n<!-- drawn -->\n<svg/>"), "svg");
  EXPECT_EQ(ExtensionOf("<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\">\n<svg/>"), "svg");
}

TEST(ImageFormatTest, NearMissesAndOtherFilesAreNoPictures) {
  using namespace std::string_view_literals;
  EXPECT_EQ(ExtensionOf("\x89PNG\r\n\x1A"sv), "");  // signature cut short
  EXPECT_EQ(ExtensionOf("\xFF\xD8"sv), "");
  EXPECT_EQ(ExtensionOf("GIF88a\x01\0"sv), "");
  EXPECT_EQ(ExtensionOf("RIFF\x24\0\0\0WAVEfmt "sv), "");
  EXPECT_EQ(ExtensionOf(Bitmap(41)), "");  // "BM" by chance, no real header behind it
  EXPECT_EQ(ExtensionOf("BM"), "");
  EXPECT_EQ(ExtensionOf("<?xml version=\"1.0\"?><model/>"), "");
  EXPECT_EQ(ExtensionOf("<html><svg/></html>"), "");
  EXPECT_EQ(ExtensionOf("ISO-10303-21; <svg"), "");
  EXPECT_EQ(ExtensionOf(" \n "), "");
  EXPECT_EQ(ExtensionOf(""), "");
  EXPECT_EQ(lxcat::ImageExtension(nullptr, 8), "");
  // An SVG whose element comes only after the part that is looked at.
  EXPECT_EQ(ExtensionOf("<?xml version=\"1.0\"?>" + std::string(lxcat::kImageSniffBytes, ' ') + "<svg/>"), "");
}

}  // namespace
}  // namespace lxtest
