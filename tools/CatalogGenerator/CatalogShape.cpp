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

}  // namespace

std::optional<std::string> ShapeProblem(const CatalogShape& shape) {
  if (auto problem = CountProblem(shape)) return problem;
  if (auto problem = AttributeProblem(shape)) return problem;
  return SplitProblem(shape);
}
