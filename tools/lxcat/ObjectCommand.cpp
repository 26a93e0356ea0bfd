// object: what a saved placed object holds, and whether a catalog still has
// its size.
#include <cstdio>
#include <fstream>
#include <iterator>

#include <nlohmann/json.hpp>

#include "tools/lxcat/CatalogPath.h"
#include "tools/lxcat/Commands.h"
#include "tools/lxcat/LibraryLog.h"
#include "tools/lxcat/ObjectBuffer.h"
#include "tools/lxcat/Utf8.h"

namespace lxcat {
namespace {

using json = nlohmann::ordered_json;

std::vector<unsigned char> ReadBuffer(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Failure("cannot read '" + path + "'");
  std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.empty()) throw Failure("'" + path + "' is empty");
  return bytes;
}

json ValueJson(const BufferValue& value) {
  switch (value.kind) {
    case LX_VALUE_INT: return value.integer;
    case LX_VALUE_DOUBLE: return value.number;
    case LX_VALUE_STRING: return WideToUtf8(value.text);
    default: return nullptr;
  }
}

// Whether the catalog has the object's size, and in which folder; the
// library looks exactly as it does when a client loads the object.
void AddFound(json& description, const CatalogOptions& catalog, std::vector<unsigned char>& bytes) {
  const auto session = catalog.Open();
  LxObject* object = Checked(
      [&] { return object_Load(session->Pool(), bytes.data(), static_cast<int32_t>(bytes.size()), true); },
      "the library cannot load the object");
  LxStdSize* size = object_GetStdSize(object);
  LxFolderTable* table = size ? stdsize_GetTable(size) : nullptr;
  LxFolder* folder = table ? table_GetFolder(table) : nullptr;
  description["found"] = size != nullptr;
  if (folder) description["folder"] = WideToUtf8(FolderPath(folder));
  object_Delete(object);
}

json Describe(const DecodedObject& object) {
  json own = json::array();
  for (const OwnValue& value : object.ownValues) {
    json entry = object.version < kOwnValuesByName ? json{{"oldNumber", value.oldNumber}} : json{{"name", WideToUtf8(value.name)}};
    entry["value"] = ValueJson(value.value);
    own.push_back(std::move(entry));
  }
  json binary = json::array();
  for (const BinaryValue& value : object.binaryValues) {
    binary.push_back({{"name", WideToUtf8(value.name)}, {"bytes", value.bytes}});
  }
  json description{{"version", object.version},   {"knownVersion", object.knownVersion},
                   {"packet", WideToUtf8(object.packet)}, {"size", WideToUtf8(object.size)},
                   {"library", WideToUtf8(object.library)}, {"ownValues", std::move(own)},
                   {"viewName", WideToUtf8(object.viewName)}, {"viewType", object.viewType},
                   {"binaryValues", std::move(binary)}};
  if (object.elevation) description["elevation"] = *object.elevation;
  return description;
}

std::string Shown(const json& value) { return value.is_string() ? value.get<std::string>() : value.dump(); }

void PrintText(const json& object) {
  std::printf("version   %s%s\n", object["version"].dump().c_str(),
              object["knownVersion"].get<bool>() ? "" : " (not a version the library loads)");
  for (const char* key : {"packet", "size", "library", "viewName", "viewType", "elevation"}) {
    if (object.contains(key)) std::printf("%-9s %s\n", key, Shown(object[key]).c_str());
  }
  for (const json& value : object["ownValues"]) {
    const std::string name = value.contains("name") ? Shown(value["name"]) : "#" + value["oldNumber"].dump();
    std::printf("own       %s = %s\n", name.c_str(), Shown(value["value"]).c_str());
  }
  for (const json& value : object["binaryValues"]) {
    std::printf("binary    %s: %s bytes\n", Shown(value["name"]).c_str(), value["bytes"].dump().c_str());
  }
  if (!object.contains("found")) return;
  std::printf("found     %s\n", object["found"].get<bool>() ? ("yes, in " + Shown(object["folder"])).c_str() : "no");
}

struct ObjectOptions {
  std::string buffer;
  CatalogOptions catalog;
  Format format = Format::Text;
};

void Object(const ObjectOptions& options) {
  std::vector<unsigned char> bytes = ReadBuffer(options.buffer);
  json object = Describe(DecodeObjectBuffer(bytes));
  if (!options.catalog.catalog.empty()) AddFound(object, options.catalog, bytes);
  if (options.format == Format::Json) {
    std::printf("%s\n", object.dump(2).c_str());
  } else {
    PrintText(object);
  }
}

}  // namespace

void AddObjectCommand(CLI::App& app, Work& chosen) {
  auto object = std::make_shared<ObjectOptions>();
  CLI::App* command = app.add_subcommand("object", "decode a saved placed object and look for its size");
  command->add_option("BUFFER", object->buffer, "file holding the object's bytes")->required();
  command->add_option("--catalog", object->catalog.catalog, "catalog in which to look for the size");
  AddCredentialOptions(command, object->catalog);
  AddFormatOption(command, object->format, false);
  command->callback([&chosen, object] { chosen = [object] { Object(*object); }; });
}

}  // namespace lxcat
