// Where the Firebird client library is looked for first. The library's frame
// hands in its own directory when the library is loaded.
//
// On Linux the layer is linked against libfbclient directly, so the loader
// has already found the client by the time anything runs and the directory
// is only recorded: it changes nothing. A platform that loads the client at
// run time would try this directory before its own search.
//
// Thread-safe: the value is guarded by a mutex.
#pragma once

#include <string>

namespace IBPP {

void SetClientLibrarySearchPath(std::string directory);
std::string ClientLibrarySearchPath();

}  // namespace IBPP
