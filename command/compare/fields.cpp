// Comparing fields.
#include "command/compare/fields.h"

#include <algorithm>

#include "command/rows/values.h"

namespace command {
namespace {

size_t position(const std::vector<std::string>& tables, const std::string& name) {
  if (name.empty()) return 0;
  return static_cast<size_t>(std::find(tables.begin(), tables.end(), name) - tables.begin());
}

// All but the aliases.
bool same_everything(const Details& a, const Details& b) {
  for (const Property& property : properties()) {
    if (property.get(a.record) != property.get(b.record)) return false;
  }
  return a.udas == b.udas && a.formula == b.formula && a.comment == b.comment &&
         a.extended_comment == b.extended_comment && a.currency == b.currency &&
         a.attributes == b.attributes && reserved_text(a.record) == reserved_text(b.record);
}

}  // namespace

FieldComparison::FieldComparison(const Outline& before, const Outline& after)
    : before_(before), after_(after) {
  std::vector<Field> fields = all_fields(before);
  for (Field& field : all_fields(after)) {
    const auto same = [&](const Field& other) { return other.header() == field.header(); };
    if (std::none_of(fields.begin(), fields.end(), same)) fields.push_back(std::move(field));
  }
  const auto others = [](const std::vector<std::string>& tables) {
    return std::vector<std::string>(tables.begin() + 1, tables.end());
  };
  same_tables_ = others(before_.tables()) == others(after_.tables());
  for (Field& field : fields) {
    if (field.kind == FieldKind::kRepeat) continue;
    const size_t before_table = position(before_.tables(), field.key);
    const size_t after_table = position(after_.tables(), field.key);
    columns_.push_back({std::move(field), before_table, after_table});
  }
}

std::vector<FieldChange> FieldComparison::changes(Member before, Member after) const {
  std::vector<FieldChange> changes;
  if (same(before, after)) return changes;
  before_.read(before, &before_details_);
  after_.read(after, &after_details_);
  if (same_tables_ && before_details_.aliases == after_details_.aliases &&
      same_everything(before_details_, after_details_)) {
    return changes;
  }
  for (const Column& column : columns_) {
    std::string old_value = value_of(column.field, column.before_table, before_details_);
    std::string new_value = value_of(column.field, column.after_table, after_details_);
    if (old_value != new_value) {
      changes.push_back({column.field, std::move(old_value), std::move(new_value)});
    }
  }
  return changes;
}

}  // namespace command
