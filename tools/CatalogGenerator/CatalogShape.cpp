#include "tools/CatalogGenerator/CatalogShape.h"

namespace {

// Attribute numbers are SMALLINT in the catalog; the numbered ones start at
// 21 and an odd split group may add one more behind them.
constexpr std::int32_t kMostAttributes = 32000;

std::optional<std::string> CountProblem(const CatalogShape& shape) {
  if (shape.packets < 1) return "there must be at least one packet";
  if (shape.depth < 0) return "the folder depth can't be negative";
  if (shape.fanOut < 1) return "the fan-out must be at least 1";
  if (shape.totalFolders && *shape.totalFolders < shape.packets)
    return "every packet needs a root folder: give at least as many folders as packets";
  if (shape.templatesPerFolder < 0) return "templates per folder can't be negative";
  if (shape.sizesPerTemplate < 0) return "sizes per template can't be negative";
  if (shape.sizesPerPacket && *shape.sizesPerPacket < 0) return "sizes per packet can't be negative";
  return std::nullopt;
}

std::optional<std::string> AttributeProblem(const CatalogShape& shape) {
  if (shape.attributes < 0 || shape.attributes > kMostAttributes)
    return "attributes per template must lie between 0 and " + std::to_string(kMostAttributes);
  if (shape.commonAttributes < 0 || shape.formulaAttributes < 0)
    return "common and formula attributes can't be negative";
  if (shape.commonAttributes + shape.formulaAttributes > shape.attributes)
    return "common and formula attributes together exceed the attributes";
  // The formulas read A21 (an integer) and A22 (a double).
  if (shape.formulaAttributes > 0 && shape.attributes - shape.formulaAttributes < 2)
    return "formulas need at least two attributes with values beside them";
  return std::nullopt;
}

std::optional<std::string> SplitProblem(const CatalogShape& shape) {
  if (shape.splitGroups < 1) return "there must be at least one group per folder";
  if (shape.splitGroups > 1 && shape.splitBy == SplitBy::CommonValues && shape.commonAttributes < 1)
    return "groups that differ by common values need at least one common attribute";
  return std::nullopt;
}

// The stored form of a piece of content must fit the library's 32-bit
// sizes, with room for what the compressor adds to random bytes.
constexpr std::int32_t kMostContentBytes = 1 << 30;

std::optional<std::string> ContentProblem(const CatalogShape& shape) {
  for (std::int32_t number : {shape.modelBytes, shape.distinctModels, shape.projectionsPerTemplate,
                              shape.fragmentBytes, shape.distinctFragments, shape.thumbnailBytes}) {
    if (number < 0) return "content sizes and counts can't be negative";
  }
  for (std::int32_t bytes : {shape.modelBytes, shape.fragmentBytes, shape.thumbnailBytes}) {
    if (bytes > kMostContentBytes) return "content must be at most " + std::to_string(kMostContentBytes) + " bytes";
  }
  if (shape.projectionsPerTemplate > kMostProjections)
    return "a template has at most 18 projections: 6 directions in 3 view types";
  if (shape.projectionsPerTemplate > 0 && shape.fragmentBytes == 0) return "projections need a fragment size";
  if ((shape.modelBytes > 0 || shape.projectionsPerTemplate > 0) && shape.thumbnailBytes == 0)
    return "models and fragments need a thumbnail size";
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ShapeProblem(const CatalogShape& shape) {
  if (auto problem = CountProblem(shape)) return problem;
  if (auto problem = AttributeProblem(shape)) return problem;
  if (auto problem = SplitProblem(shape)) return problem;
  return ContentProblem(shape);
}
