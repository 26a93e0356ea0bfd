// The schema script is UTF-8; its text literals (exception messages, the
// names of the standard projections) are catalog content, which the
// database holds in code page 1251 like everything the library writes.
#pragma once

#include <string>

// The statement in code page 1251. A character outside it would be lost
// without a word, so it is a std::runtime_error instead.
std::string ToDatabaseText(const std::string& utf8Statement);
