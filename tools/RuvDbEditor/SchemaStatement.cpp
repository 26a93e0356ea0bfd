#include "SchemaStatement.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <stdexcept>
#include <string_view>

namespace {

#define LX_IDENTIFIER "([A-Za-z][A-Za-z0-9_$]*)"

struct ObjectPattern {
  std::regex pattern;
  SchemaObjectKind kind;
  // Which groups of the pattern hold the name and the table (0: none).
  int nameGroup;
  int tableGroup;
};

constexpr auto kIgnoreCase = std::regex::icase | std::regex::ECMAScript;

const std::vector<ObjectPattern>& ObjectPatterns() {
  static const std::vector<ObjectPattern> patterns{
      {std::regex(R"(CREATE\s+(?:GENERATOR|SEQUENCE)\s+)" LX_IDENTIFIER, kIgnoreCase), SchemaObjectKind::kGenerator, 1, 0},
      {std::regex(R"(CREATE\s+EXCEPTION\s+)" LX_IDENTIFIER, kIgnoreCase), SchemaObjectKind::kException, 1, 0},
      {std::regex(R"(CREATE\s+TABLE\s+)" LX_IDENTIFIER R"(\s*\()", kIgnoreCase), SchemaObjectKind::kTable, 1, 0},
      {std::regex(R"(CREATE\s+(?:UNIQUE\s+)?(?:(?:ASC|ASCENDING|DESC|DESCENDING)\s+)?INDEX\s+)" LX_IDENTIFIER
                  R"(\s+ON\s+)" LX_IDENTIFIER,
                  kIgnoreCase),
       SchemaObjectKind::kIndex, 1, 2},
      {std::regex(R"(ALTER\s+TABLE\s+)" LX_IDENTIFIER R"(\s+ADD\s+CONSTRAINT\s+)" LX_IDENTIFIER, kIgnoreCase),
       SchemaObjectKind::kConstraint, 2, 1},
      {std::regex(R"(CREATE\s+TRIGGER\s+)" LX_IDENTIFIER R"(\s+FOR\s+)" LX_IDENTIFIER, kIgnoreCase),
       SchemaObjectKind::kTrigger, 1, 2},
      {std::regex(R"(CREATE\s+PROCEDURE\s+)" LX_IDENTIFIER, kIgnoreCase), SchemaObjectKind::kProcedure, 1, 0},
  };
  return patterns;
}

const std::regex kSetUp(R"((SET\s+SQL\s+DIALECT|CREATE\s+DATABASE|COMMIT)\b)", kIgnoreCase);
const std::regex kFirstRow(R"(INSERT\s+INTO\s+)" LX_IDENTIFIER, kIgnoreCase);
const std::regex kGeneratorStart(R"(SET\s+GENERATOR\s+)" LX_IDENTIFIER R"(\s+TO\s+(-?\d+)\s*)", kIgnoreCase);
const std::regex kUnnamedConstraint(R"((PRIMARY|UNIQUE|CHECK|FOREIGN)\b)", kIgnoreCase);

#undef LX_IDENTIFIER

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
  return text;
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

std::string FirstWord(std::string_view text) {
  const std::size_t end = text.find_first_of(" \t\r\n(");
  return std::string(text.substr(0, end));
}

bool StartsWith(const std::string& text, const std::regex& pattern, std::smatch& match) {
  return std::regex_search(text, match, pattern, std::regex_constants::match_continuous);
}

// The parts of a table body between top-level commas, with comments
// dropped; quoted text and parenthesised parts stay whole.
std::vector<std::string> SplitElements(std::string_view body) {
  std::vector<std::string> parts(1);
  int depth = 0;
  for (std::size_t i = 0; i < body.size(); ++i) {
    const char c = body[i];
    const char next = i + 1 < body.size() ? body[i + 1] : '\0';
    if (c == '-' && next == '-') {
      i = std::min(body.find('\n', i), body.size());
      parts.back() += ' ';
    } else if (c == '/' && next == '*') {
      const std::size_t end = body.find("*/", i + 2);
      i = end == std::string_view::npos ? body.size() : end + 1;
      parts.back() += ' ';
    } else if (c == '\'' || c == '"') {
      std::size_t end = i + 1;
      while (end < body.size() && !(body[end] == c && (end + 1 >= body.size() || body[end + 1] != c))) {
        end += body[end] == c ? 2 : 1;
      }
      parts.back().append(body.substr(i, end + 1 - i));
      i = end;
    } else if (c == ',' && depth == 0) {
      parts.emplace_back();
    } else {
      if (c == '(') ++depth;
      if (c == ')') --depth;
      parts.back() += c;
    }
  }
  return parts;
}

std::vector<TableElement> TableElements(const std::string& text, const std::string& table) {
  const std::size_t open = text.find('(');
  const std::size_t close = text.rfind(')');
  if (open == std::string::npos || close == std::string::npos || close < open) {
    throw std::runtime_error("no column list in CREATE TABLE " + table);
  }
  std::vector<TableElement> elements;
  for (const std::string& part : SplitElements(std::string_view(text).substr(open + 1, close - open - 1))) {
    const std::string_view element = Trim(part);
    if (element.empty()) throw std::runtime_error("an empty element in CREATE TABLE " + table);
    const std::string first = Upper(FirstWord(element));
    if (first == "CONSTRAINT") {
      const std::string name = Upper(FirstWord(Trim(element.substr(first.size()))));
      elements.push_back({TableElement::Kind::kConstraint, name, std::string(element)});
      continue;
    }
    std::smatch unnamed;
    const std::string elementText(element);
    if (StartsWith(elementText, kUnnamedConstraint, unnamed)) {
      // The update finds constraints by name; one without a name could
      // only be added again and again.
      throw std::runtime_error("an unnamed constraint in CREATE TABLE " + table);
    }
    elements.push_back({TableElement::Kind::kColumn, first, elementText});
  }
  return elements;
}

}  // namespace

SchemaStatement SchemaStatement::Parse(std::string text) {
  SchemaStatement statement(std::move(text));
  const std::string& sql = statement.text_;
  std::smatch match;
  if (StartsWith(sql, kSetUp, match)) return statement;
  if (std::regex_match(sql, match, kGeneratorStart)) {
    statement.role_ = Role::kGeneratorStart;
    statement.name_ = Upper(match[1]);
    statement.startValue_ = std::stoll(match[2]);
    return statement;
  }
  if (StartsWith(sql, kFirstRow, match)) {
    statement.role_ = Role::kFirstRow;
    statement.name_ = Upper(match[1]);
    return statement;
  }
  for (const ObjectPattern& object : ObjectPatterns()) {
    if (!StartsWith(sql, object.pattern, match)) continue;
    statement.role_ = Role::kObject;
    statement.kind_ = object.kind;
    statement.name_ = Upper(match[object.nameGroup]);
    if (object.tableGroup != 0) statement.table_ = Upper(match[object.tableGroup]);
    if (object.kind == SchemaObjectKind::kTable) statement.elements_ = TableElements(sql, statement.name_);
    return statement;
  }
  throw std::runtime_error("the schema script has a statement the update does not know: " + FirstLine(sql));
}
