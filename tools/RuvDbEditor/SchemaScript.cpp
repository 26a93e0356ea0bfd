#include "SchemaScript.h"

#include "storage/tools/SqlScript.h"

// The build passes the script's path; the assembler copies the file into
// read-only data, as the library does with its empty catalog.
#ifndef LX_SCHEMA_SCRIPT_FILE
#error "LX_SCHEMA_SCRIPT_FILE must name the schema script"
#endif

asm(".pushsection .rodata.lx_schema_script, \"a\", @progbits\n"
    ".globl lx_schema_script_begin\n"
    ".hidden lx_schema_script_begin\n"
    "lx_schema_script_begin:\n"
    ".incbin \"" LX_SCHEMA_SCRIPT_FILE "\"\n"
    ".globl lx_schema_script_end\n"
    ".hidden lx_schema_script_end\n"
    "lx_schema_script_end:\n"
    ".popsection\n");

extern "C" const char lx_schema_script_begin[];
extern "C" const char lx_schema_script_end[];

std::string_view SchemaScript::Text() {
  return {lx_schema_script_begin, static_cast<std::size_t>(lx_schema_script_end - lx_schema_script_begin)};
}

std::vector<SchemaStatement> SchemaScript::Statements() {
  std::vector<SchemaStatement> statements;
  for (std::string& text : SqlScript::Split(Text())) statements.push_back(SchemaStatement::Parse(std::move(text)));
  return statements;
}
