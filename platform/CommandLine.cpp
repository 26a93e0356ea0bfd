#include "platform/CommandLine.h"

namespace {

bool IsBlank(wchar_t ch) { return ch == L' ' || ch == L'\t'; }

void SkipBlanks(std::wstring_view text, std::size_t& pos) {
  while (pos < text.size() && IsBlank(text[pos])) ++pos;
}

std::wstring TakeProgramName(std::wstring_view text, std::size_t& pos) {
  std::wstring name;
  if (pos < text.size() && text[pos] == L'"') {
    ++pos;
    while (pos < text.size() && text[pos] != L'"') name += text[pos++];
    if (pos < text.size()) ++pos;  // the closing quote
  }
  while (pos < text.size() && !IsBlank(text[pos])) name += text[pos++];
  return name;
}

std::wstring TakeArgument(std::wstring_view text, std::size_t& pos) {
  std::wstring argument;
  bool quoted = false;
  while (pos < text.size()) {
    const wchar_t ch = text[pos];
    if (ch == L'\\') {
      std::size_t slashes = 0;
      while (pos < text.size() && text[pos] == L'\\') ++slashes, ++pos;
      if (pos < text.size() && text[pos] == L'"') {
        argument.append(slashes / 2, L'\\');
        if (slashes % 2 == 1) {
          argument += L'"';
          ++pos;
        }
      } else {
        argument.append(slashes, L'\\');
      }
    } else if (ch == L'"') {
      ++pos;
      if (quoted && pos < text.size() && text[pos] == L'"') {
        argument += L'"';
        ++pos;
      } else {
        quoted = !quoted;
      }
    } else if (IsBlank(ch) && !quoted) {
      break;
    } else {
      argument += ch;
      ++pos;
    }
  }
  return argument;
}

}  // namespace

std::vector<std::wstring> SplitCommandLine(std::wstring_view commandLine) {
  std::vector<std::wstring> arguments;
  std::size_t pos = 0;
  SkipBlanks(commandLine, pos);
  if (pos >= commandLine.size()) return arguments;
  arguments.push_back(TakeProgramName(commandLine, pos));
  for (SkipBlanks(commandLine, pos); pos < commandLine.size(); SkipBlanks(commandLine, pos)) {
    arguments.push_back(TakeArgument(commandLine, pos));
  }
  return arguments;
}

