#include "tools/lxcat/site/SiteImages.h"

#include <string_view>

#include "tools/lxcat/Utf8.h"
#include "tools/lxcat/site/ImageFormat.h"
#include "tools/lxcat/site/SiteFiles.h"

namespace lxcat {
namespace {

void AddPictures(std::vector<Thumbnail>& out, const std::string& icon, const std::string& file,
                 const std::string& caption) {
  if (!icon.empty()) out.push_back({icon, caption + " icon"});
  if (!file.empty()) out.push_back({file, caption});
}

}  // namespace

SiteImages::SiteImages(const std::filesystem::path& siteFolder, const std::string& subfolder)
    : folder_(siteFolder / subfolder), hrefPrefix_(subfolder + "/") {}

bool SiteImages::AddThumbnails(LxStdSize* size, std::vector<Thumbnail>& out, std::string& error) {
  const int32_t templateId = stdsize_GetTemplateID(size);
  if (templateId <= 0) return ReadThumbnails(size, out, error);
  const auto [entry, added] = templates_.try_emplace(templateId);
  if (added && !ReadThumbnails(size, entry->second, error)) return false;
  out.insert(out.end(), entry->second.begin(), entry->second.end());
  return true;
}

bool SiteImages::ReadThumbnails(LxStdSize* size, std::vector<Thumbnail>& out, std::string& error) {
  LxModel* model = stdsize_GetModel(size);
  if (model && !model_IsEmpty(model)) {
    const Pictures* pictures = nullptr;
    if (!ModelPictures(model, pictures, error)) return false;
    AddPictures(out, pictures->icon, pictures->file, "model " + Text(model_GetModelName(model)));
  }
  LxProjections* projections = stdsize_GetProjections(size);
  const int32_t count = projections ? projections_GetProjectioCount(projections) : 0;
  for (int32_t i = 0; i < count; ++i) {
    LxProjection* projection = projections_GetProjection(projections, i);
    if (!projection) continue;
    const Pictures* pictures = nullptr;
    if (!FragmentPictures(projection, pictures, error)) return false;
    AddPictures(out, pictures->icon, pictures->file, Text(projection_GetName(projection)));
  }
  return true;
}

bool SiteImages::ModelPictures(LxModel* model, const Pictures*& pictures, std::string& error) {
  const wchar_t* name = model_GetModelName(model);
  const auto [entry, added] = models_.try_emplace(name ? name : L"");
  pictures = &entry->second;
  if (!added) return true;
  unsigned char* icon = nullptr;
  int32_t iconSize = 0;
  const std::string stem = "model-" + std::to_string(++written_);
  if (model_GetIconData(model, &icon, &iconSize) &&
      !SaveImage(icon, iconSize, stem + "-icon", entry->second.icon, error)) {
    return false;
  }
  return CopyImage(model_GetModelFile(model), stem, entry->second.file, error);
}

bool SiteImages::FragmentPictures(LxProjection* projection, const Pictures*& pictures, std::string& error) {
  const wchar_t* digest = projection_GetDigest(projection);
  Pictures* target = &unkeyedFragment_;
  if (digest && *digest) {
    const auto [entry, added] = fragments_.try_emplace(digest);
    target = &entry->second;
    pictures = target;
    if (!added) return true;
  } else {
    unkeyedFragment_ = {};
    pictures = target;
  }
  unsigned char* icon = nullptr;
  int32_t iconSize = 0;
  const std::string stem = "fragment-" + std::to_string(++written_);
  if (projection_GetIconData(projection, &icon, &iconSize) &&
      !SaveImage(icon, iconSize, stem + "-icon", target->icon, error)) {
    return false;
  }
  return CopyImage(projection_GetFragmentFile(projection), stem, target->file, error);
}

bool SiteImages::SaveImage(const unsigned char* bytes, int32_t size, const std::string& stem, std::string& href,
                           std::string& error) {
  if (!bytes || size <= 0) return true;
  const std::string_view extension = ImageExtension(bytes, static_cast<size_t>(size));
  if (extension.empty()) return true;
  const std::string name = stem + "." + std::string(extension);
  if (!WriteSiteFile(folder_ / name, std::string_view(reinterpret_cast<const char*>(bytes), size), error)) return false;
  href = hrefPrefix_ + name;
  return true;
}

bool SiteImages::CopyImage(const wchar_t* file, const std::string& stem, std::string& href, std::string& error) {
  if (!file || !*file) return true;
  // The library names its files in UTF-8, as the file system sees them.
  const std::filesystem::path source(WideToUtf8(file));
  const std::string head = ReadFileHead(source, kImageSniffBytes);
  const std::string_view extension =
      ImageExtension(reinterpret_cast<const unsigned char*>(head.data()), head.size());
  if (extension.empty()) return true;
  const std::string name = stem + "." + std::string(extension);
  if (!CopySiteFile(source, folder_ / name, error)) return false;
  href = hrefPrefix_ + name;
  return true;
}

}  // namespace lxcat
