#include "tools/CatalogGenerator/CatalogPlan.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace {

constexpr std::int64_t kMostIds = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kBeyond = std::numeric_limits<std::int64_t>::max();

// Shapes come from command lines: a product that overflows stays "too many"
// instead of wrapping round to a small number.
std::int64_t Product(std::int64_t a, std::int64_t b) {
  std::int64_t product = 0;
  return __builtin_mul_overflow(a, b, &product) ? kBeyond : product;
}

std::int64_t Sum(std::int64_t a, std::int64_t b) {
  std::int64_t sum = 0;
  return __builtin_add_overflow(a, b, &sum) ? kBeyond : sum;
}

std::int64_t TreeFolders(std::int32_t depth, std::int32_t fanOut) {
  std::int64_t total = 0;
  std::int64_t level = 1;
  for (std::int32_t i = 0; i <= depth && total <= kMostIds; ++i) {
    total = Sum(total, level);
    level = Product(level, fanOut);
  }
  return total;
}

void RequireIds(std::int64_t count, const char* what) {
  if (count > kMostIds) throw std::invalid_argument(std::string("too many ") + what + " for 32-bit ids");
}

const CatalogShape& Validated(const CatalogShape& shape) {
  if (auto problem = ShapeProblem(shape)) throw std::invalid_argument(*problem);
  RequireIds(Product(shape.packets, 2), "packets");
  if (!shape.totalFolders) RequireIds(Product(TreeFolders(shape.depth, shape.fanOut), shape.packets), "folders");
  if (shape.sizesPerPacket.value_or(0) > 0 && shape.templatesPerFolder == 0)
    throw std::invalid_argument("sizes need templates to stand in");
  return shape;
}

// Distinct contents for `users` rows that take them in turn: no more than
// there are users, so none is written without one.
std::int64_t DistinctOf(std::int64_t users, std::int32_t distinct) {
  return distinct == 0 ? users : std::min<std::int64_t>(users, distinct);
}

}  // namespace

CatalogPlan::CatalogPlan(const CatalogShape& shape)
    : shape_(Validated(shape)), evenGroup_(TemplateAttributes(shape, 0)), oddGroup_(TemplateAttributes(shape, 1)) {
  Count();
}

std::int32_t CatalogPlan::FoldersOf(std::int32_t packet) const {
  if (shape_.totalFolders)
    return *shape_.totalFolders / shape_.packets + (packet < *shape_.totalFolders % shape_.packets ? 1 : 0);
  return static_cast<std::int32_t>(TreeFolders(shape_.depth, shape_.fanOut));
}

bool CatalogPlan::HoldsTemplates(std::int32_t folders, std::int32_t folder) const {
  return !shape_.templatesInLeavesOnly || std::int64_t{shape_.fanOut} * folder + 1 >= folders;
}

// Folders with a child are the positions k with fanOut * k + 1 < folders.
std::int32_t CatalogPlan::TemplateFoldersOf(std::int32_t packet) const {
  const std::int32_t folders = FoldersOf(packet);
  if (!shape_.templatesInLeavesOnly) return folders;
  const std::int32_t withChildren = (folders - 1 + shape_.fanOut - 1) / shape_.fanOut;
  return folders - withChildren;
}

std::int32_t CatalogPlan::SizesOf(std::int32_t packet, std::int64_t index) const {
  if (!shape_.sizesPerPacket) return shape_.sizesPerTemplate;
  const std::int64_t templates = std::int64_t{TemplateFoldersOf(packet)} * shape_.templatesPerFolder;
  return static_cast<std::int32_t>(*shape_.sizesPerPacket / templates +
                                   (index < *shape_.sizesPerPacket % templates ? 1 : 0));
}

std::int32_t CatalogPlan::GroupsPerFolder() const { return std::min(shape_.splitGroups, shape_.templatesPerFolder); }

std::int32_t CatalogPlan::GroupOf(std::int32_t index) const {
  return static_cast<std::int32_t>(std::int64_t{index} * GroupsPerFolder() / shape_.templatesPerFolder);
}

// The least index whose GroupOf is at least `group`: ceil(group * templates / groups).
std::int64_t CatalogPlan::FirstOfGroup(std::int32_t group) const {
  const std::int64_t groups = GroupsPerFolder();
  return (std::int64_t{group} * shape_.templatesPerFolder + groups - 1) / groups;
}

const std::vector<AttributeDefinition>& CatalogPlan::AttributesOfGroup(std::int32_t group) const {
  return group % 2 == 0 ? evenGroup_ : oddGroup_;
}

std::int32_t CatalogPlan::ModelOf(std::int64_t place) const {
  return static_cast<std::int32_t>(place % totals_.models);
}

std::int32_t CatalogPlan::FragmentOf(std::int64_t place) const {
  return static_cast<std::int32_t>(place % totals_.fragments);
}

void CatalogPlan::Count() {
  std::int64_t templateFolders = 0;
  totals_.packets = shape_.packets;
  for (std::int32_t packet = 0; packet < shape_.packets; ++packet) {
    totals_.folders += FoldersOf(packet);
    templateFolders += TemplateFoldersOf(packet);
    if (shape_.sizesPerPacket && shape_.templatesPerFolder > 0) totals_.sizes += *shape_.sizesPerPacket;
  }
  totals_.templates = Product(templateFolders, shape_.templatesPerFolder);
  if (!shape_.sizesPerPacket) totals_.sizes = Product(totals_.templates, shape_.sizesPerTemplate);

  std::int64_t attributesPerFolder = 0;
  const std::int32_t groups = GroupsPerFolder();
  for (std::int32_t group = 0; group < groups; ++group) {
    // GroupOf(index) == group for FirstOfGroup(group) <= index < FirstOfGroup(group + 1).
    const std::int64_t templates = FirstOfGroup(group + 1) - FirstOfGroup(group);
    attributesPerFolder += templates * static_cast<std::int64_t>(AttributesOfGroup(group).size());
  }
  totals_.templateAttributes = Product(templateFolders, attributesPerFolder);

  const std::int64_t perSize = std::count_if(evenGroup_.begin(), evenGroup_.end(),
                                             [](const auto& a) { return a.kind == ValueKind::PerSize; });
  totals_.sizeValues = Product(totals_.sizes, perSize);
  totals_.values = Sum(totals_.sizeValues, Product(totals_.templates, shape_.commonAttributes));
  totals_.splitFolders = groups >= 2 ? templateFolders : 0;
  totals_.virtualFolders = totals_.splitFolders * groups;
  if (shape_.modelBytes > 0) totals_.models = DistinctOf(totals_.templates, shape_.distinctModels);
  totals_.projections = Product(totals_.templates, shape_.projectionsPerTemplate);
  totals_.fragments = DistinctOf(totals_.projections, shape_.distinctFragments);

  RequireIds(Product(totals_.folders, 2), "folders");
  RequireIds(totals_.templates, "templates");
  RequireIds(totals_.sizes, "sizes");
  RequireIds(totals_.templateAttributes, "template attributes");
  RequireIds(totals_.values, "values");
  RequireIds(totals_.projections, "projections");
}
