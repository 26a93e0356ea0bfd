#include "tools/CatalogGenerator/CatalogWriter.h"

#include <span>
#include <stdexcept>

#include "tools/CatalogGenerator/PacketFolderTree.h"

namespace {

std::wstring PacketName(std::int32_t packetId) { return L"Пакет " + std::to_wstring(packetId); }
std::wstring FolderName(std::int32_t position) { return L"Папка " + std::to_wstring(position); }
std::wstring TemplateName(std::int32_t index) { return L"Шаблон " + std::to_wstring(index + 1); }
// Built on the size's id, so identifiers are unique in the packet and in the
// whole catalog, also when a generation adds to a catalog that has sizes.
std::wstring Identifier(std::int32_t sizeId) { return L"ТР-" + std::to_wstring(sizeId); }

// The standard directions are the PROJECTION rows 1 to 6 of every catalog.
constexpr std::int32_t kStandardDirections = 6;
// What MODEL_VERSION says; the library shows it and compares nothing by it.
constexpr std::int32_t kModelVersion = 1;

std::span<const unsigned char> Bytes(const ByteData& data) {
  return {data.Data(), static_cast<std::size_t>(data.Size())};
}

}  // namespace

CatalogWriter::CatalogWriter(CatalogGeneratorOperation& operation, const CatalogPlan& plan,
                             GenerationProgress progress)
    : operation_(operation),
      plan_(plan),
      progress_(std::move(progress)),
      values_(plan.Shape().seed),
      content_(plan.Shape().seed) {}

CatalogCounts CatalogWriter::WriteAll() {
  Prepare();
  WriteModels();
  WriteFragments();
  for (std::int32_t packet = 0; packet < plan_.Shape().packets; ++packet) WritePacket(packet);
  for (const IdRange* range : {&folderIds_, &packetIds_, &templateIds_, &templateAttributeIds_, &sizeIds_,
                               &valueIds_, &modelIds_, &fragmentIds_}) {
    if (range->Left() != 0) throw std::logic_error("fewer rows written than ids reserved");
  }
  return written_;
}

void CatalogWriter::Prepare() {
  const CatalogCounts& totals = plan_.Totals();
  folderIds_ = operation_.ReserveIds(IdTable::Folder, totals.folders);
  packetIds_ = operation_.ReserveIds(IdTable::Packet, totals.packets);
  templateIds_ = operation_.ReserveIds(IdTable::Object, totals.templates);
  templateAttributeIds_ = operation_.ReserveIds(IdTable::ObjectAttribute, totals.templateAttributes);
  sizeIds_ = operation_.ReserveIds(IdTable::StandardSize, totals.sizes);
  valueIds_ = operation_.ReserveIds(IdTable::ConcreteValue, totals.values);
  modelIds_ = operation_.ReserveIds(IdTable::Model, totals.models);
  fragmentIds_ = operation_.ReserveIds(IdTable::Fragment, totals.fragments);
  lastBound_ = operation_.HighestFolderBound();
  if (totals.templates == 0) return;

  representationId_ = operation_.FirstRepresentationId();
  objectTypeIds_ = operation_.ObjectTypeIds();
  const std::int64_t names = operation_.AttributeNameRows();
  const std::int64_t descriptions = operation_.AttributeDescriptionRows();
  evenGroupIds_ = DictionaryIds(plan_.AttributesOfGroup(0));
  oddGroupIds_ = plan_.GroupsPerFolder() >= 2 ? DictionaryIds(plan_.AttributesOfGroup(1)) : evenGroupIds_;
  written_.newAttributeNames = operation_.AttributeNameRows() - names;
  written_.newAttributeDescriptions = operation_.AttributeDescriptionRows() - descriptions;
}

CatalogWriter::LayoutIds CatalogWriter::DictionaryIds(const std::vector<AttributeDefinition>& layout) {
  LayoutIds ids;
  for (const AttributeDefinition& attribute : layout) {
    ids.names.push_back(operation_.AttributeNameId(attribute.name));
    ids.descriptions.push_back(operation_.AttributeDescriptionId(attribute.description));
  }
  return ids;
}

void CatalogWriter::WriteModels() {
  const CatalogShape& shape = plan_.Shape();
  for (std::int64_t place = 0; place < plan_.Totals().models; ++place) {
    const std::int32_t id = modelIds_.Take();
    if (place == 0) firstModelId_ = id;
    const ByteDataPtr model = content_.Stored(ContentKind::Model, place, shape.modelBytes);
    const ByteDataPtr thumbnail = content_.Stored(ContentKind::ModelThumbnail, place, shape.thumbnailBytes);
    operation_.InsertModel(id, Bytes(*model), Bytes(*thumbnail),
                           content_.Digest(ContentKind::Model, place, shape.modelBytes), kModelVersion);
    ++written_.models;
  }
}

void CatalogWriter::WriteFragments() {
  const CatalogShape& shape = plan_.Shape();
  for (std::int64_t place = 0; place < plan_.Totals().fragments; ++place) {
    const std::int32_t id = fragmentIds_.Take();
    if (place == 0) firstFragmentId_ = id;
    const ByteDataPtr fragment = content_.Stored(ContentKind::Fragment, place, shape.fragmentBytes);
    const ByteDataPtr thumbnail = content_.Stored(ContentKind::FragmentThumbnail, place, shape.thumbnailBytes);
    operation_.InsertFragment(id, Bytes(*fragment), Bytes(*thumbnail),
                              content_.Digest(ContentKind::Fragment, place, shape.fragmentBytes));
    ++written_.fragments;
  }
}

void CatalogWriter::WritePacket(std::int32_t packet) {
  const PacketFolderTree tree(plan_.FoldersOf(packet), plan_.Shape().fanOut);
  const std::vector<NestedBounds> bounds = tree.Bounds(lastBound_ + 1);
  lastBound_ = bounds[0].right;
  const std::int32_t packetId = packetIds_.Take();
  packetTemplates_ = 0;

  std::vector<std::int32_t> folderIds(tree.Folders());
  for (std::int32_t folder = 0; folder < tree.Folders(); ++folder) {
    folderIds[folder] = folderIds_.Take();
    const std::int32_t parent = tree.Parent(folder);
    operation_.InsertFolder(folderIds[folder], parent < 0 ? -1 : folderIds[parent], bounds[folder].left,
                            bounds[folder].right, folder == 0 ? PacketName(packetId) : FolderName(folder));
    ++written_.folders;
    // The packet row refers to its root folder, so it follows that row.
    if (folder == 0) {
      operation_.InsertPacket(packetId, folderIds[0], PacketName(packetId));
      ++written_.packets;
    }
    if (plan_.HoldsTemplates(tree.Folders(), folder)) WriteTemplates(packet, packetId, folderIds[folder]);
    ++folderPlace_;
  }
}

void CatalogWriter::WriteTemplates(std::int32_t packet, std::int32_t packetId, std::int32_t folderId) {
  const std::int32_t templates = plan_.Shape().templatesPerFolder;
  for (std::int32_t index = 0; index < templates; ++index) {
    const std::int32_t templateId = templateIds_.Take();
    const std::int32_t objectType = objectTypeIds_[written_.templates % objectTypeIds_.size()];
    const std::int32_t modelId = written_.models == 0 ? 0 : firstModelId_ + plan_.ModelOf(written_.templates);
    operation_.InsertTemplate(templateId, folderId, packetId, objectType, representationId_, modelId,
                              TemplateName(index));
    ++written_.templates;
    const std::vector<SizeColumn> columns = WriteTemplateAttributes(templateId, plan_.GroupOf(index));
    WriteSizes(templateId, plan_.SizesOf(packet, packetTemplates_++), columns);
    WriteProjections(templateId);
    if (progress_) progress_(written_);
  }
  const std::int32_t groups = plan_.GroupsPerFolder();
  if (groups >= 2) {
    ++written_.splitFolders;
    written_.virtualFolders += groups;
  }
}

std::vector<CatalogWriter::SizeColumn> CatalogWriter::WriteTemplateAttributes(std::int32_t templateId,
                                                                                std::int32_t group) {
  const std::vector<AttributeDefinition>& layout = plan_.AttributesOfGroup(group);
  const LayoutIds& ids = group % 2 == 0 ? evenGroupIds_ : oddGroupIds_;
  std::vector<SizeColumn> columns;
  for (std::size_t position = 0; position < layout.size(); ++position) {
    const AttributeDefinition& attribute = layout[position];
    TemplateAttributeRow row;
    if (attribute.kind == ValueKind::Common) {
      row.valueId = valueIds_.Take();
      operation_.InsertValue(*row.valueId, values_.CommonValue(folderPlace_, group, attribute.number, attribute.type));
      ++written_.values;
    }
    row.id = templateAttributeIds_.Take();
    row.templateId = templateId;
    row.nameId = ids.names[position];
    row.descriptionId = ids.descriptions[position];
    row.number = attribute.number;
    row.type = attribute.type;
    row.measure = &attribute.measure;
    row.varName = &attribute.varName;
    row.formula = &attribute.formula;
    operation_.InsertTemplateAttribute(row);
    ++written_.templateAttributes;
    if (attribute.kind == ValueKind::PerSize) columns.push_back({row.id, &attribute});
  }
  return columns;
}

void CatalogWriter::WriteSizes(std::int32_t templateId, std::int32_t sizes, const std::vector<SizeColumn>& columns) {
  std::vector<SizeValueRow> values(columns.size());
  for (std::int32_t size = 0; size < sizes; ++size, ++sizePlace_) {
    const std::int32_t sizeId = sizeIds_.Take();
    const std::wstring identifier = Identifier(sizeId);
    operation_.InsertSize(sizeId, templateId, identifier);
    ++written_.sizes;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const AttributeDefinition& attribute = *columns[i].attribute;
      values[i].templateAttributeId = columns[i].templateAttributeId;
      values[i].value =
          attribute.identifier ? Value(identifier) : values_.SizeValue(sizePlace_, attribute.number, attribute.type);
    }
    operation_.InsertSizeValues(sizeId, valueIds_.TakeRun(static_cast<std::int32_t>(values.size())), values);
    written_.values += static_cast<std::int64_t>(values.size());
    written_.sizeValues += static_cast<std::int64_t>(values.size());
  }
}

void CatalogWriter::WriteProjections(std::int32_t templateId) {
  for (std::int32_t k = 0; k < plan_.Shape().projectionsPerTemplate; ++k, ++projectionPlace_) {
    const std::int32_t fragmentId = firstFragmentId_ + plan_.FragmentOf(projectionPlace_);
    operation_.InsertProjection(templateId, fragmentId, k % kStandardDirections + 1, k / kStandardDirections);
    ++written_.projections;
  }
}
