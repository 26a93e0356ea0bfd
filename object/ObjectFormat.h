// The layout of an object buffer, in its six versions, each a date:
//
//   version     adds to the one before
//   20110124    own values by old attribute number
//   20110202    an elevation double behind the values
//   20110725    the elevation is gone again
//   20111128    own values by attribute name
//   20160204    binary values              (written, selector 0)
//   20190222    the library id             (written, selector 1)
//
// In order: integer version, string packet name, string size id, [string
// library id], integer n, n pairs (name or old number, value), [double
// elevation], string view name, integer view type, [integer m, m pairs
// (string name, block)]. Own values and blocks stand in their maps' order;
// an empty value is written as the integer 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "object/CObject.h"

class BufferReader;
class BufferWriter;
class CTemplate;

inline constexpr std::int32_t kOldNumbersVersion = 20110124;
inline constexpr std::int32_t kElevationVersion = 20110202;
inline constexpr std::int32_t kNoElevationVersion = 20110725;
inline constexpr std::int32_t kNamedValuesVersion = 20111128;
inline constexpr std::int32_t kBlocksVersion = 20160204;
inline constexpr std::int32_t kLibraryVersion = 20190222;

// Exactly the six versions; any other number is unknown however large.
bool IsObjectVersion(std::int32_t version);

struct ObjectHeader {
  std::int32_t version = 0;  // 0 when the buffer opens with none
  std::wstring packetName;
  std::wstring stdSizeId;
};
ObjectHeader ReadObjectHeader(BufferReader& reader);

// Own values by name; the first of two equal names stays. Repairs the
// entry that old writers left under an empty name.
CObject::ValueMap ReadValuesByName(BufferReader& reader);
// Own values by old attribute number, named through the template's records;
// numbers the template lacks are dropped.
CObject::ValueMap ReadValuesByNumber(BufferReader& reader, const CTemplate& owner);
// Binary values into `blocks`, a later name replacing an earlier one.
void ReadBlocks(BufferReader& reader, CObject::BlockMap& blocks);

// Writes the object in `version` (kBlocksVersion or kLibraryVersion).
void WriteObject(const CObject& object, std::int32_t version, BufferWriter& writer);
