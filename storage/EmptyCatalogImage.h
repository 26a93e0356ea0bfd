// The empty catalog: a complete Firebird database file, made at build time
// from schema/catalog.sql by tools/MakeEmptyCatalog and linked into the
// library as it is. Writing these bytes to a file gives a new, empty
// catalog; nothing here reads inside them.
//
// The bytes are constant for the life of the process; any thread may read them.
#pragma once

#include <span>

std::span<const unsigned char> EmptyCatalogImage();
