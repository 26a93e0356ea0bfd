#include "tools/CatalogGenerator/LxgenArguments.h"

#include <charconv>
#include <cstdint>
#include <functional>
#include <map>

namespace {

constexpr const char* kUsage =
    "usage: lxgen [options] CATALOG.fdb\n"
    "Writes a synthetic catalog; a missing file is first created as an empty catalog.\n"
    "  --packets N             packets (1)\n"
    "  --folders N             folders of all packets, roots included (else --depth and --fan-out)\n"
    "  --depth N               folder levels below each root (0)\n"
    "  --fan-out N             children per folder (2)\n"
    "  --all-folders           templates in every folder, not only in leaves\n"
    "  --templates N           templates per folder (1)\n"
    "  --sizes N               sizes per packet, spread over its templates\n"
    "  --sizes-per-template N  sizes per template (1)\n"
    "  --attributes N          numbered attributes per template, from 21 (3)\n"
    "  --common N              of these, with a value common to the template (0)\n"
    "  --formulas N            of these, with a formula (0)\n"
    "  --no-id-specification   leave out attribute 11 ID_specification\n"
    "  --split N               groups of differing templates per folder (1)\n"
    "  --split-by values|attributes   what makes the groups differ (values)\n"
    "  --model-bytes N         a model of N random bytes on every template (0: none)\n"
    "  --models N              distinct models, taken by the templates in turn (0: one each)\n"
    "  --projections N         projections per template, up to 18 (0)\n"
    "  --fragment-bytes N      the fragment of every projection, in bytes\n"
    "  --fragments N           distinct fragments, taken by the projections in turn (0: one each)\n"
    "  --thumbnail-bytes N     the thumbnail of every model and fragment, in bytes\n"
    "  --seed N                seed of the values and the content (1)\n"
    "  --server HOST           server (empty: embedded), --user NAME, --password TEXT\n"
    "  --quiet                 no progress lines\n";

std::optional<std::int64_t> Number(const std::string& text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

using Setter = std::function<std::optional<std::string>(LxgenArguments&, const std::string&)>;

// An option that takes a non-negative count that fits 32 bits.
template <typename Field>
Setter Count(Field field) {
  return [field](LxgenArguments& arguments, const std::string& text) -> std::optional<std::string> {
    const std::optional<std::int64_t> value = Number(text);
    if (!value || *value < 0 || *value > INT32_MAX) return "expects a count, not '" + text + "'";
    field(arguments, static_cast<std::int32_t>(*value));
    return std::nullopt;
  };
}

// An option that takes any text.
template <typename Field>
Setter Text(Field field) {
  return [field](LxgenArguments& arguments, const std::string& text) -> std::optional<std::string> {
    field(arguments, text);
    return std::nullopt;
  };
}

const std::map<std::string, Setter>& ValueOptions() {
  static const std::map<std::string, Setter> options = {
      {"--packets", Count([](LxgenArguments& a, std::int32_t v) { a.shape.packets = v; })},
      {"--folders", Count([](LxgenArguments& a, std::int32_t v) { a.shape.totalFolders = v; })},
      {"--depth", Count([](LxgenArguments& a, std::int32_t v) { a.shape.depth = v; })},
      {"--fan-out", Count([](LxgenArguments& a, std::int32_t v) { a.shape.fanOut = v; })},
      {"--templates", Count([](LxgenArguments& a, std::int32_t v) { a.shape.templatesPerFolder = v; })},
      {"--sizes", Count([](LxgenArguments& a, std::int32_t v) { a.shape.sizesPerPacket = v; })},
      {"--sizes-per-template", Count([](LxgenArguments& a, std::int32_t v) { a.shape.sizesPerTemplate = v; })},
      {"--attributes", Count([](LxgenArguments& a, std::int32_t v) { a.shape.attributes = v; })},
      {"--common", Count([](LxgenArguments& a, std::int32_t v) { a.shape.commonAttributes = v; })},
      {"--formulas", Count([](LxgenArguments& a, std::int32_t v) { a.shape.formulaAttributes = v; })},
      {"--split", Count([](LxgenArguments& a, std::int32_t v) { a.shape.splitGroups = v; })},
      {"--model-bytes", Count([](LxgenArguments& a, std::int32_t v) { a.shape.modelBytes = v; })},
      {"--models", Count([](LxgenArguments& a, std::int32_t v) { a.shape.distinctModels = v; })},
      {"--projections", Count([](LxgenArguments& a, std::int32_t v) { a.shape.projectionsPerTemplate = v; })},
      {"--fragment-bytes", Count([](LxgenArguments& a, std::int32_t v) { a.shape.fragmentBytes = v; })},
      {"--fragments", Count([](LxgenArguments& a, std::int32_t v) { a.shape.distinctFragments = v; })},
      {"--thumbnail-bytes", Count([](LxgenArguments& a, std::int32_t v) { a.shape.thumbnailBytes = v; })},
      {"--seed",
       [](LxgenArguments& a, const std::string& text) -> std::optional<std::string> {
         const std::optional<std::int64_t> value = Number(text);
         if (!value || *value < 0) return "expects a non-negative number, not '" + text + "'";
         a.shape.seed = static_cast<std::uint64_t>(*value);
         return std::nullopt;
       }},
      {"--split-by",
       [](LxgenArguments& a, const std::string& text) -> std::optional<std::string> {
         if (text == "values") a.shape.splitBy = SplitBy::CommonValues;
         else if (text == "attributes") a.shape.splitBy = SplitBy::AttributeSets;
         else return "expects 'values' or 'attributes', not '" + text + "'";
         return std::nullopt;
       }},
      {"--server", Text([](LxgenArguments& a, const std::string& v) { a.server = v; })},
      {"--user", Text([](LxgenArguments& a, const std::string& v) { a.user = v; })},
      {"--password", Text([](LxgenArguments& a, const std::string& v) { a.password = v; })},
  };
  return options;
}

std::optional<std::string> Flag(LxgenArguments& arguments, const std::string& option) {
  if (option == "--all-folders") arguments.shape.templatesInLeavesOnly = false;
  else if (option == "--no-id-specification") arguments.shape.idSpecification = false;
  else if (option == "--quiet") arguments.quiet = true;
  else return "unknown option " + option;
  return std::nullopt;
}

}  // namespace

const char* LxgenUsage() { return kUsage; }

std::variant<LxgenArguments, std::string> ParseLxgenArguments(const std::vector<std::string>& arguments) {
  LxgenArguments parsed;
  std::vector<std::string> catalogs;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--help" || argument == "-h") return std::string();
    if (argument.rfind("--", 0) != 0) {
      catalogs.push_back(argument);
      continue;
    }
    const auto option = ValueOptions().find(argument);
    if (option == ValueOptions().end()) {
      if (auto problem = Flag(parsed, argument)) return *problem;
      continue;
    }
    if (i + 1 == arguments.size()) return argument + " needs a value";
    if (auto problem = option->second(parsed, arguments[++i])) return argument + " " + *problem;
  }
  if (catalogs.size() != 1) return std::string("name exactly one catalog file");
  parsed.catalog = catalogs.front();
  if (auto problem = ShapeProblem(parsed.shape)) return *problem;
  return parsed;
}
