#include "platform/TempFolder.h"

#include <cstdlib>

#include "platform/TextCodec.h"

std::wstring TempFolder() {
  for (const char* name : {"TMP", "TMPDIR"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return Utf8ToWide(value);
  }
  return L"/tmp";
}

