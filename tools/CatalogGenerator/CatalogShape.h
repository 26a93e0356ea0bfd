// CatalogShape: what a synthetic catalog should hold, in numbers. The
// generator turns one shape and its seed into the same rows every time.
//
// Layout of a packet: a folder tree filled breadth first with `fanOut`
// children per folder (folder k of a packet has the parent (k - 1) / fanOut),
// templates in its leaf folders (or in every folder), sizes in the templates,
// and on demand a model and projections on each template.
// Attributes of a template are numbered from 21 in this order: those with a
// value per size, those with a value common to the template, those with a
// formula; attribute 11 "ID_specification" comes on top of them.
//
// A plain value type; no synchronisation of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Six standard directions in three view types.
inline constexpr std::int32_t kMostProjections = 18;

// How neighbouring templates of one folder are made to differ so that the
// library's load splits the folder into virtual folders.
enum class SplitBy {
  // Each group gets its own common values (needs commonAttributes > 0).
  CommonValues,
  // Every odd group carries one more attribute, with no value, behind the
  // others; the even groups don't.
  AttributeSets,
};

struct CatalogShape {
  std::uint64_t seed = 1;

  std::int32_t packets = 1;
  // Folders of each packet, root included: 1 + fanOut + ... + fanOut^depth,
  // unless totalFolders is set.
  std::int32_t depth = 0;
  std::int32_t fanOut = 2;
  // All folders of all packets, roots included, spread as evenly as possible
  // over the packets (earlier packets take the remainder). At least one per
  // packet.
  std::optional<std::int32_t> totalFolders;

  // Only leaf folders hold templates, or every folder.
  bool templatesInLeavesOnly = true;
  std::int32_t templatesPerFolder = 1;
  std::int32_t sizesPerTemplate = 1;
  // Sizes of each packet, spread over its templates (earlier templates take
  // the remainder); overrides sizesPerTemplate.
  std::optional<std::int32_t> sizesPerPacket;

  // Numbered attributes of a template (from 21), all kinds together.
  std::int32_t attributes = 3;
  // Of these, the ones whose value is common to the template, not per size.
  std::int32_t commonAttributes = 0;
  // Of these, the ones with a formula and no stored value.
  std::int32_t formulaAttributes = 0;
  // Attribute 11 "ID_specification", valued with each size's identifier.
  bool idSpecification = true;

  // Groups of neighbouring templates per folder that differ from each other;
  // 1 leaves every folder whole. A folder with fewer templates than groups
  // has one group per template.
  std::int32_t splitGroups = 1;
  SplitBy splitBy = SplitBy::CommonValues;

  // Content: random bytes of the given sizes, drawn from the seed and stored
  // as the library stores content. A model of modelBytes on every template
  // unless 0. The templates take distinctModels models in turn (template t
  // of the run the model t % distinctModels), so 2,000 templates over 200
  // models share each one ten times; 0 gives every template its own.
  std::int32_t modelBytes = 0;
  std::int32_t distinctModels = 0;
  // Projections of each template: the k-th in the standard direction
  // k % 6 + 1 and view type k / 6, so at most 18. Each projection has a
  // fragment of fragmentBytes; the projections take distinctFragments
  // fragments in turn as templates take models (0: each its own).
  std::int32_t projectionsPerTemplate = 0;
  std::int32_t fragmentBytes = 0;
  std::int32_t distinctFragments = 0;
  // The thumbnail of every model and every fragment.
  std::int32_t thumbnailBytes = 0;

  bool operator==(const CatalogShape&) const = default;
};

// The first thing wrong with the shape, as a sentence; nothing when it can be
// generated.
std::optional<std::string> ShapeProblem(const CatalogShape& shape);
