// What hangs on a template and is reached through any of its sizes: the
// specification records, shared by all sizes of the template through the
// provider's cache, and the representation data, an opaque block stored
// once per MD5 digest. Neither splits a shared template: a write through one
// size reaches every size of its template.
//
// Free functions under the frame lock.
#pragma once

#include <cstdint>

class CSpec;
class CStandartSize;

std::int32_t GetSpecificationCount(CStandartSize* size);
// The record at `index` of the template's list; null with a range report.
CSpec* GetSpecification(CStandartSize* size, std::int32_t index);

// The bytes stay valid until another template's data is read or any is
// written.
bool GetRepresentationData(CStandartSize* size, unsigned char** data, std::int32_t* length);
// Copies the bytes into the catalog; the caller's buffer is not kept.
bool SetRepresentationData(CStandartSize* size, const unsigned char* data, std::int32_t length);
