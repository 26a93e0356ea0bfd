#include "catalog/PacketTemplatePartition.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "catalog/CFolder.h"
#include "catalog/CFolderTable.h"
#include "catalog/CTemplate.h"

namespace {

// Same number of records, and each of `candidate`'s records has an equal one
// somewhere in `first`.
bool Fits(const CTemplate& first, const CTemplate& candidate) {
  if (first.Records().size() != candidate.Records().size()) return false;
  return std::all_of(candidate.Records().begin(), candidate.Records().end(), [&first](const TemplateAttribute& record) {
    return std::any_of(first.Records().begin(), first.Records().end(),
                       [&record](const TemplateAttribute& other) { return SameRecord(record, other); });
  });
}

}  // namespace

bool PacketTemplatePartition(CFolder* folder) {
  CFolderTable* table = folder->TableInMemory();
  if (table->TemplateCount() < 2) return false;

  // Group boundaries: the index where each group starts.
  std::vector<std::size_t> starts{0};
  for (std::size_t i = 1; i < table->TemplateCount(); ++i) {
    if (!Fits(*table->Template(starts.back()), *table->Template(i))) starts.push_back(i);
  }
  if (starts.size() < 2) return false;

  std::vector<std::unique_ptr<CTemplate>> templates = table->TakeTemplates();
  starts.push_back(templates.size());
  for (std::size_t group = 0; group + 1 < starts.size(); ++group) {
    auto child = std::make_unique<CFolder>(0, std::to_wstring(group));
    child->SetPacket(folder->GetPacket());
    CFolder* added = folder->AppendChild(std::move(child));
    CFolderTable* virtualTable = added->TableInMemory();
    for (std::size_t i = starts[group]; i < starts[group + 1]; ++i) virtualTable->AppendTemplate(std::move(templates[i]));
    virtualTable->BuildAttributesFromFirstTemplate();
  }
  return true;
}
