// Splitting one command-line text into arguments. The library builds the
// editor tool's command lines as single texts with quoted paths; this turns
// such a text into an argument vector by the rules Windows programs use, so
// the same text means the same arguments on every platform:
//  - arguments are separated by blanks and tabs;
//  - the program name (first argument) ends at the next blank, or, when it
//    starts with a quote, at the next quote; backslashes in it are literal;
//  - elsewhere, 2n backslashes before a quote give n backslashes and the quote
//    opens or closes a quoted part; 2n+1 give n backslashes and a literal
//    quote; backslashes before anything else are literal;
//  - inside a quoted part, two quotes in a row give one literal quote.
#pragma once

#include <string>
#include <string_view>
#include <vector>

std::vector<std::wstring> SplitCommandLine(std::wstring_view commandLine);

