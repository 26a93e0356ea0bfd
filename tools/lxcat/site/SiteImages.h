// The pictures of a site: for each standard size, the icon of its model and
// of each projection, and the model or fragment file itself when its bytes
// are an image a browser shows (ImageFormat.h).
//
// Every one of these is a database attachment of its own inside the library
// (tens of milliseconds embedded), so each is asked for as seldom as the
// catalog allows. Model and projections belong to the size's template, so
// they are read for the first size of each template and the other sizes
// reuse the result. Models and fragments are shared between templates (by
// model id and by fragment digest), so each is read and written into the
// site's image folder once, and the sizes that share it link the same file.
// Not thread-safe: it calls the library and keeps what it wrote.
#pragma once
#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "LxDataAccess.h"

namespace lxcat {

struct Thumbnail {
  // Relative to the site's folder.
  std::string href;
  // UTF-8, what the picture shows: "model 12", "сверху icon".
  std::string caption;
};

class SiteImages {
 public:
  // `folder` is `siteFolder`/`subfolder`, which must exist.
  SiteImages(const std::filesystem::path& siteFolder, const std::string& subfolder);

  // Appends the thumbnails of `size` to `out`. False with one line in `error`
  // when an image file could not be written.
  bool AddThumbnails(LxStdSize* size, std::vector<Thumbnail>& out, std::string& error);

 private:
  // Links into the site for one model or fragment; empty when not an image.
  struct Pictures {
    std::string icon;
    std::string file;
  };

  bool ReadThumbnails(LxStdSize* size, std::vector<Thumbnail>& out, std::string& error);
  bool ModelPictures(LxModel* model, const Pictures*& pictures, std::string& error);
  bool FragmentPictures(LxProjection* projection, const Pictures*& pictures, std::string& error);
  // Writes the bytes as <stem>.<extension> when they are an image.
  bool SaveImage(const unsigned char* bytes, int32_t size, const std::string& stem, std::string& href,
                 std::string& error);
  // Copies the library's file as <stem>.<extension> when it is an image.
  bool CopyImage(const wchar_t* file, const std::string& stem, std::string& href, std::string& error);

  std::filesystem::path folder_;
  std::string hrefPrefix_;
  // Keyed by the model's name (its id) and by the fragment's digest.
  std::unordered_map<int32_t, std::vector<Thumbnail>> templates_;
  std::unordered_map<std::wstring, Pictures> models_;
  std::unordered_map<std::wstring, Pictures> fragments_;
  // A fragment without a digest has no key to share it by; it is read
  // afresh each time and kept here only until the next one.
  Pictures unkeyedFragment_;
  // Numbers the image files, so that no catalog text reaches a file name.
  size_t written_ = 0;
};

}  // namespace lxcat
