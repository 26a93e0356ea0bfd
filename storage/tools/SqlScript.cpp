#include "storage/tools/SqlScript.h"

#include <cctype>

namespace {

std::string_view Trim(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
  return text;
}

bool StartsWithWordsIgnoringCase(std::string_view text, std::string_view first, std::string_view second,
                                 std::string_view* rest) {
  auto takeWord = [](std::string_view& from, std::string_view word) {
    from = Trim(from);
    if (from.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (std::toupper(static_cast<unsigned char>(from[i])) != word[i]) return false;
    }
    if (from.size() > word.size() && !std::isspace(static_cast<unsigned char>(from[word.size()]))) return false;
    from.remove_prefix(word.size());
    return true;
  };
  std::string_view cursor = text;
  if (!takeWord(cursor, first) || !takeWord(cursor, second)) return false;
  *rest = Trim(cursor);
  return true;
}

// Length of the comment or quoted text starting at position, 0 if none.
std::size_t SkipLength(std::string_view script, std::size_t position) {
  const char c = script[position];
  const char next = position + 1 < script.size() ? script[position + 1] : '\0';
  if (c == '-' && next == '-') {
    const std::size_t end = script.find('\n', position);
    return (end == std::string_view::npos ? script.size() : end) - position;
  }
  if (c == '/' && next == '*') {
    const std::size_t end = script.find("*/", position + 2);
    return (end == std::string_view::npos ? script.size() : end + 2) - position;
  }
  if (c == '\'' || c == '"') {
    std::size_t i = position + 1;
    while (i < script.size()) {
      if (script[i] == c) {
        if (i + 1 < script.size() && script[i + 1] == c) {
          i += 2;
          continue;
        }
        return i + 1 - position;
      }
      ++i;
    }
    return script.size() - position;
  }
  return 0;
}

bool OnlyComments(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    if (std::isspace(static_cast<unsigned char>(text[i]))) {
      ++i;
      continue;
    }
    const std::size_t skip = SkipLength(text, i);
    if (skip == 0 || text[i] == '\'' || text[i] == '"') return false;
    i += skip;
  }
  return true;
}

// Drops comments that stand before the statement's first word.
std::string_view StripLeadingComments(std::string_view text) {
  for (;;) {
    text = Trim(text);
    if (text.empty() || text[0] == '\'' || text[0] == '"') return text;
    const std::size_t skip = SkipLength(text, 0);
    if (skip == 0) return text;
    text.remove_prefix(skip);
  }
}

}  // namespace

std::vector<std::string> SqlScript::Split(std::string_view script) {
  std::vector<std::string> statements;
  std::string terminator = ";";
  std::size_t start = 0;
  std::size_t i = 0;

  auto finish = [&](std::string_view raw) {
    if (OnlyComments(raw)) return;
    const std::string_view statement = StripLeadingComments(raw);
    std::string_view newTerminator;
    if (StartsWithWordsIgnoringCase(statement, "SET", "TERM", &newTerminator)) {
      terminator = std::string(newTerminator);
      return;
    }
    statements.emplace_back(statement);
  };

  while (i < script.size()) {
    const std::size_t skip = SkipLength(script, i);
    if (skip > 0) {
      i += skip;
      continue;
    }
    if (script.compare(i, terminator.size(), terminator) == 0) {
      finish(script.substr(start, i - start));
      i += terminator.size();
      start = i;
      continue;
    }
    ++i;
  }
  if (start < script.size()) finish(script.substr(start));
  return statements;
}
