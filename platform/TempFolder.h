// The folder for the library's temporary files: TMP, else TMPDIR, else /tmp.
// Read anew on every call, so a client may change it between calls.
#pragma once

#include <string>

// Without a trailing separator, unless the variable itself ends in one.
std::wstring TempFolder();

