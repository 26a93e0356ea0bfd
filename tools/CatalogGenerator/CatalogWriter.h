// CatalogWriter: walks a CatalogPlan and writes its rows through one
// CatalogGeneratorOperation: per packet its folders in position order, and
// behind each folder that holds templates those templates, each with its
// attributes, sizes, the sizes' values and its projections. The distinct
// models and fragments come first, since templates and projections refer to
// them. Only the rows of the template being written, or one piece of
// content, are held in memory, so the size of a generation is bounded by the
// database, not by this process.
//
// Used once, by one thread, inside the operation's transaction; committing
// is the caller's business.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/CatalogGenerator/CatalogCounts.h"
#include "tools/CatalogGenerator/CatalogGeneratorOperation.h"
#include "tools/CatalogGenerator/CatalogPlan.h"
#include "tools/CatalogGenerator/IdRange.h"
#include "tools/CatalogGenerator/SyntheticContent.h"
#include "tools/CatalogGenerator/SyntheticValues.h"

// Told what has been written so far, after each template.
using GenerationProgress = std::function<void(const CatalogCounts& written)>;

class CatalogWriter {
 public:
  CatalogWriter(CatalogGeneratorOperation& operation, const CatalogPlan& plan, GenerationProgress progress);

  // Reserves the ids, writes every row, and returns what it wrote.
  CatalogCounts WriteAll();

 private:
  // Dictionary ids of one group layout, by position in the layout.
  struct LayoutIds {
    std::vector<std::int32_t> names;
    std::vector<std::int32_t> descriptions;
  };
  // A written attribute of the template at hand that takes a value per size.
  struct SizeColumn {
    std::int32_t templateAttributeId;
    const AttributeDefinition* attribute;
  };

  void Prepare();
  LayoutIds DictionaryIds(const std::vector<AttributeDefinition>& layout);
  void WriteModels();
  void WriteFragments();
  void WritePacket(std::int32_t packet);
  void WriteTemplates(std::int32_t packet, std::int32_t packetId, std::int32_t folderId);
  std::vector<SizeColumn> WriteTemplateAttributes(std::int32_t templateId, std::int32_t group);
  void WriteSizes(std::int32_t templateId, std::int32_t sizes, const std::vector<SizeColumn>& columns);
  void WriteProjections(std::int32_t templateId);

  CatalogGeneratorOperation& operation_;
  const CatalogPlan& plan_;
  GenerationProgress progress_;
  SyntheticValues values_;
  SyntheticContent content_;

  IdRange folderIds_;
  IdRange packetIds_;
  IdRange templateIds_;
  IdRange templateAttributeIds_;
  IdRange sizeIds_;
  IdRange valueIds_;
  IdRange modelIds_;
  IdRange fragmentIds_;
  // Reserved ranges are runs, so the n-th distinct model or fragment has the
  // first id + n.
  std::int32_t firstModelId_ = 0;
  std::int32_t firstFragmentId_ = 0;

  std::int32_t representationId_ = 0;
  std::vector<std::int32_t> objectTypeIds_;
  LayoutIds evenGroupIds_;
  LayoutIds oddGroupIds_;
  // The right bound of everything written so far; the next tree starts
  // behind it.
  std::int32_t lastBound_ = 0;
  // Places in the whole run, which key the synthetic values.
  std::int64_t folderPlace_ = 0;
  std::int64_t sizePlace_ = 0;
  std::int64_t projectionPlace_ = 0;
  // Templates of the packet being written, in write order.
  std::int64_t packetTemplates_ = 0;

  CatalogCounts written_;
};
