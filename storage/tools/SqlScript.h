// SqlScript: cuts an isql-style script into statements. It knows the three
// things of isql syntax that a plain split on ';' gets wrong: comments
// ("--" to the end of the line, "/* ... */"), quoted text ('...' and "...",
// a doubled quote standing for itself), and SET TERM, which changes the
// terminator so that procedure and trigger bodies may contain ';'.
//
// SET TERM statements are consumed here and do not appear in the result.
// Pure; thread-safe.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class SqlScript {
 public:
  // Statements in order, without terminator or surrounding blanks; comments
  // inside a statement are kept, comments between statements are dropped.
  // A text left after the last terminator is a statement too.
  static std::vector<std::string> Split(std::string_view script);
};
