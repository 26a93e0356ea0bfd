#include "storage/EmptyCatalogImage.h"

// The build passes the path of the database file that tools/MakeEmptyCatalog
// made. The assembler copies the file into read-only data, so the image costs
// no start-up work and no generated source of several megabytes.
#ifndef LX_EMPTY_CATALOG_FILE
#error "LX_EMPTY_CATALOG_FILE must name the empty catalog database file"
#endif

asm(".pushsection .rodata.lx_empty_catalog, \"a\", @progbits\n"
    ".balign 16\n"
    ".globl lx_empty_catalog_begin\n"
    ".hidden lx_empty_catalog_begin\n"
    "lx_empty_catalog_begin:\n"
    ".incbin \"" LX_EMPTY_CATALOG_FILE "\"\n"
    ".globl lx_empty_catalog_end\n"
    ".hidden lx_empty_catalog_end\n"
    "lx_empty_catalog_end:\n"
    ".popsection\n");

extern "C" const unsigned char lx_empty_catalog_begin[];
extern "C" const unsigned char lx_empty_catalog_end[];

std::span<const unsigned char> EmptyCatalogImage() {
  return {lx_empty_catalog_begin, lx_empty_catalog_end};
}
