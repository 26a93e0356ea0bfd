#include "object/ObjectFormat.h"

#include <unordered_map>

#include "catalog/CTemplate.h"
#include "object/BufferReader.h"
#include "object/BufferWriter.h"

namespace {

// Runs `readEntry` for each of the count's entries. An entry that consumed
// no byte leaves the reader where it was, so every later one would read the
// same nothing again and store the same thing: the loop ends there, and a
// count of two billion in a short buffer costs no more than the buffer.
template <typename ReadEntry>
void ForEachEntry(BufferReader& reader, ReadEntry&& readEntry) {
  std::int32_t count = 0;
  reader.ReadInt(count);
  for (std::int32_t i = 0; i < count; ++i) {
    const std::size_t before = reader.Position();
    readEntry();
    if (reader.Position() == before) break;
  }
}

void WriteValue(const Value& value, BufferWriter& writer) {
  switch (value.index()) {
    case LX_VALUE_DOUBLE:
      return writer.WriteDouble(std::get<double>(value));
    case LX_VALUE_STRING:
      return writer.WriteString(std::get<std::wstring>(value));
    case LX_VALUE_INT:
      return writer.WriteInt(std::get<std::int32_t>(value));
    default:
      return writer.WriteInt(0);
  }
}

}  // namespace

bool IsObjectVersion(std::int32_t version) {
  switch (version) {
    case kOldNumbersVersion:
    case kElevationVersion:
    case kNoElevationVersion:
    case kNamedValuesVersion:
    case kBlocksVersion:
    case kLibraryVersion:
      return true;
    default:
      return false;
  }
}

ObjectHeader ReadObjectHeader(BufferReader& reader) {
  ObjectHeader header;
  reader.ReadInt(header.version);
  reader.ReadString(header.packetName);
  reader.ReadString(header.stdSizeId);
  return header;
}

CObject::ValueMap ReadValuesByName(BufferReader& reader) {
  CObject::ValueMap values;
  ForEachEntry(reader, [&] {
    std::wstring name;
    reader.ReadString(name);
    Value value = reader.ReadValue();
    values.emplace(std::move(name), std::move(value));
  });
  // Old writers kept one value under an empty name, with its real name as
  // the text of the last change date.
  const auto unnamed = values.find(L"");
  const auto date = values.find(CObject::kLastChangeDate);
  if (unnamed != values.end() && date != values.end() && IsString(date->second)) {
    const std::wstring name = std::get<std::wstring>(date->second);
    Value value = unnamed->second;
    values[name] = std::move(value);
    values.erase(L"");
    values.erase(CObject::kLastChangeDate);
  }
  return values;
}

CObject::ValueMap ReadValuesByNumber(BufferReader& reader, const CTemplate& owner) {
  std::unordered_map<std::int32_t, const std::wstring*> names;
  for (const TemplateAttribute& record : owner.Records()) names[record.oldNumber] = &record.name;
  CObject::ValueMap values;
  ForEachEntry(reader, [&] {
    std::int32_t number = 0;
    reader.ReadInt(number);
    Value value = reader.ReadValue();
    const auto name = names.find(number);
    if (name != names.end()) values[*name->second] = std::move(value);
  });
  return values;
}

void ReadBlocks(BufferReader& reader, CObject::BlockMap& blocks) {
  ForEachEntry(reader, [&] {
    std::wstring name;
    reader.ReadString(name);
    std::vector<unsigned char> block;
    reader.ReadBlock(block);
    blocks[std::move(name)] = std::move(block);
  });
}

void WriteObject(const CObject& object, std::int32_t version, BufferWriter& writer) {
  writer.WriteInt(version);
  writer.WriteString(object.GetPacketName());
  writer.WriteString(object.GetStdSizeId());
  if (version == kLibraryVersion) writer.WriteString(object.GetLibraryId());
  writer.WriteInt(static_cast<std::int32_t>(object.Values().size()));
  for (const auto& [name, value] : object.Values()) {
    writer.WriteString(name);
    WriteValue(value, writer);
  }
  writer.WriteString(object.GetViewName());
  writer.WriteInt(static_cast<std::int32_t>(object.GetViewType()));
  writer.WriteInt(static_cast<std::int32_t>(object.BufValues().size()));
  for (const auto& [name, block] : object.BufValues()) {
    writer.WriteString(name);
    writer.WriteBlock(block);
  }
}
