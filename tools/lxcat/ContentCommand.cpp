// content: a size's model, projections and attached files, copied out of the
// library's temporary folder into a folder of the user's, with content.json
// telling what each file is.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ProgressBar.h"
#include "tools/lxcat/Utf8.h"
#include "tools/lxcat/site/ImageFormat.h"

namespace lxcat {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::ordered_json;

// A catalog name as one file name: no folders, nothing invisible.
std::string FileNamePart(std::string name) {
  for (char& c : name) {
    if (c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20) c = '_';
  }
  return name.empty() || name == "." || name == ".." ? "unnamed" : name;
}

class ContentWriter {
 public:
  explicit ContentWriter(fs::path outDir) : outDir_(std::move(outDir)) {}

  // Copies the library's temporary file; gives the name written.
  std::string CopyFile(const wchar_t* source, const std::string& name) {
    if (!source) throw Failure("the library gave no file for " + name + ": " + LibraryMessage());
    std::error_code error;
    fs::copy_file(fs::path(Text(source)), outDir_ / name, fs::copy_options::overwrite_existing, error);
    if (error) throw Failure("cannot write '" + (outDir_ / name).string() + "': " + error.message());
    return Written(name);
  }

  // Writes an icon's bytes; nothing when there are none.
  std::string WriteIcon(bool got, unsigned char* data, int32_t size, const std::string& stem) {
    if (!got || !data || size <= 0) return "";
    // Thumbnails are stored as whatever image the catalog's author had.
    const std::string_view extension = ImageExtension(data, static_cast<size_t>(size));
    const std::string name = stem + "." + std::string(extension.empty() ? "bin" : extension);
    std::ofstream out(outDir_ / name, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data), size);
    if (!out) throw Failure("cannot write '" + (outDir_ / name).string() + "'");
    return Written(name);
  }

  const fs::path& Dir() const { return outDir_; }

 private:
  std::string Written(const std::string& name) {
    std::printf("%s\n", (outDir_ / name).string().c_str());
    return name;
  }

  fs::path outDir_;
};

json Model(LxStdSize* size, ContentWriter& writer) {
  LxModel* model = stdsize_GetModel(size);
  if (model_IsEmpty(model)) return nullptr;
  json entry{{"digest", Text(model_GetDigest(model))},
             {"version", model_GetVersion(model)},
             {"orientation", model_GetOrientation(model)}};
  ForgetLibraryMessages();
  entry["file"] = writer.CopyFile(model_GetModelFile(model), "model.qmx");
  unsigned char* data = nullptr;
  int32_t bytes = 0;
  const bool icon = model_GetIconData(model, &data, &bytes);
  entry["icon"] = writer.WriteIcon(icon, data, bytes, "model-icon");
  return entry;
}

json Projections(LxStdSize* size, ContentWriter& writer) {
  json list = json::array();
  LxProjections* projections = stdsize_GetProjections(size);
  const int32_t count = projections ? projections_GetProjectioCount(projections) : 0;
  for (int32_t i = 0; i < count; ++i) {
    LxProjection* projection = projections_GetProjection(projections, i);
    if (!projection) continue;
    const std::string stem = "projection-" + std::to_string(i + 1);
    json entry{{"name", Text(projection_GetName(projection))},
               {"type", projection_GetType(projection)},
               {"viewType", projection_GetViewType(projection)},
               {"digest", Text(projection_GetDigest(projection))}};
    ForgetLibraryMessages();
    entry["file"] = writer.CopyFile(projection_GetFragmentFile(projection), stem + ".qfx");
    unsigned char* data = nullptr;
    int32_t bytes = 0;
    const bool icon = projection_GetIconData(projection, &data, &bytes);
    entry["icon"] = writer.WriteIcon(icon, data, bytes, stem + "-icon");
    list.push_back(std::move(entry));
  }
  return list;
}

json Files(LxStdSize* size, ContentWriter& writer) {
  json list = json::array();
  LxFiles* files = stdsize_GetFiles(size);
  const int32_t count = files ? files_GetFileCount(files) : 0;
  for (int32_t i = 0; i < count; ++i) {
    LxFile* file = files_GetFile(files, i);
    if (!file) continue;
    const std::string name = Text(file_GetName(file)) + Text(file_GetExt(file));
    fs::create_directories(writer.Dir() / "files");
    ForgetLibraryMessages();
    list.push_back({{"name", name}, {"file", writer.CopyFile(file_GetFile(file), "files/" + FileNamePart(name))}});
  }
  return list;
}

struct ContentOptions {
  CatalogOptions catalog;
  std::string folder;
  std::string size;
  std::string outDir;
};

void Content(const ContentOptions& options) {
  const auto session = options.catalog.Open();
  LxFolderTable* table = session->Table(options.folder);
  LxStdSize* size = table_FindStdSize(table, Utf8ToWide(options.size).c_str());
  if (!size) throw Failure("no size '" + options.size + "' in '" + options.folder + "'");
  std::error_code error;
  fs::create_directories(options.outDir, error);
  if (error) throw Failure("cannot make '" + options.outDir + "': " + error.message());
  ContentWriter writer(options.outDir);
  ProgressBar bar("writing the content of " + options.size);
  const json manifest{{"folder", options.folder},
                      {"size", options.size},
                      {"model", Model(size, writer)},
                      {"projections", Projections(size, writer)},
                      {"files", Files(size, writer)}};
  std::ofstream out(writer.Dir() / "content.json", std::ios::binary);
  out << manifest.dump(2) << '\n';
  if (!out) throw Failure("cannot write '" + (writer.Dir() / "content.json").string() + "'");
}

}  // namespace

void AddContentCommand(CLI::App& app, Work& chosen) {
  auto content = std::make_shared<ContentOptions>();
  CLI::App* command = app.add_subcommand(
      "content", "write a size's model, projections and attached files into a folder, with content.json");
  AddCatalogOptions(command, content->catalog);
  command->add_option("FOLDER", content->folder, "folder as 'Packet\\Folder\\...'")->required();
  command->add_option("SIZE", content->size, "size identifier")->required();
  command->add_option("--out", content->outDir, "folder to write into (made if missing)")->required();
  command->callback([&chosen, content] { chosen = [content] { Content(*content); }; });
}

}  // namespace lxcat
