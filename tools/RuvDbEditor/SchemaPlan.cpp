#include "SchemaPlan.h"

#include <algorithm>
#include <regex>

namespace {

const std::regex kNotNull(R"(\bNOT\s+NULL\b)", std::regex::icase);
const std::regex kNamedNotNull(R"(\bCONSTRAINT\s+\S+\s+NOT\s+NULL\b)", std::regex::icase);
const std::regex kEngineStyleName(R"(INTEG_(\d+))");

// A column definition whose NOT NULL the engine will name by its counter.
bool HasUnnamedNotNull(const std::string& columnDefinition) {
  return std::regex_search(columnDefinition, kNotNull) && !std::regex_search(columnDefinition, kNamedNotNull);
}

std::int64_t EngineStyleNumber(const std::string& constraintName) {
  std::smatch match;
  if (!std::regex_match(constraintName, match, kEngineStyleName)) return 0;
  return std::stoll(match[1]);
}

}  // namespace

SchemaPlan SchemaPlan::Make(const std::vector<SchemaStatement>& script, const SchemaInventory& existing) {
  SchemaPlan plan;
  for (const SchemaStatement& statement : script) {
    switch (statement.GetRole()) {
      case SchemaStatement::Role::kObject:
        plan.PlanObject(statement, existing);
        break;
      case SchemaStatement::Role::kFirstRow:
        plan.AddFirstRow(statement.Name(), statement.Text());
        break;
      case SchemaStatement::Role::kGeneratorStart:
        plan.generatorStarts_.push_back({statement.Name(), statement.StartValue()});
        break;
      case SchemaStatement::Role::kSetUp:
        break;
    }
  }
  plan.PlanConstraintNames(existing);
  return plan;
}

void SchemaPlan::PlanObject(const SchemaStatement& statement, const SchemaInventory& existing) {
  if (existing.Has(statement.Kind(), statement.Name())) {
    if (statement.Kind() == SchemaObjectKind::kTable) PlanTableElements(statement, existing);
    return;
  }
  changes_.push_back({SchemaChange::Kind::kScriptStatement, statement.Table(), statement.Text()});
  if (statement.Kind() == SchemaObjectKind::kConstraint) {
    highestNamedInteg_ = std::max(highestNamedInteg_, EngineStyleNumber(statement.Name()));
  }
  if (statement.Kind() == SchemaObjectKind::kTable) {
    for (const TableElement& element : statement.Elements()) {
      if (element.kind == TableElement::Kind::kColumn && HasUnnamedNotNull(element.definition)) {
        makesUnnamedNotNull_ = true;
      }
      if (element.kind == TableElement::Kind::kConstraint) {
        highestNamedInteg_ = std::max(highestNamedInteg_, EngineStyleNumber(element.name));
      }
    }
  }
}

void SchemaPlan::PlanTableElements(const SchemaStatement& table, const SchemaInventory& existing) {
  for (const TableElement& element : table.Elements()) {
    if (element.kind == TableElement::Kind::kColumn) {
      if (existing.HasColumn(table.Name(), element.name)) continue;
      changes_.push_back({SchemaChange::Kind::kAddColumn, table.Name(), element.definition});
      if (HasUnnamedNotNull(element.definition)) makesUnnamedNotNull_ = true;
    } else {
      if (existing.Has(SchemaObjectKind::kConstraint, element.name)) continue;
      changes_.push_back({SchemaChange::Kind::kAddConstraint, table.Name(), element.definition});
      highestNamedInteg_ = std::max(highestNamedInteg_, EngineStyleNumber(element.name));
    }
  }
}

void SchemaPlan::PlanConstraintNames(const SchemaInventory& existing) {
  if (!makesUnnamedNotNull_) return;
  constraintNamesToReserve_ = std::max<std::int64_t>(0, highestNamedInteg_ - existing.ConstraintNameCounter());
}

void SchemaPlan::AddFirstRow(const std::string& table, const std::string& insert) {
  const auto known = std::find_if(rows_.begin(), rows_.end(), [&](const FirstRows& rows) { return rows.table == table; });
  if (known != rows_.end()) {
    known->inserts.push_back(insert);
  } else {
    rows_.push_back({table, {insert}});
  }
}
