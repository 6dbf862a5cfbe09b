// Members as cells.
#include "command/rows/values.h"

#include "command/layer/naming.h"
#include "command/layer/text.h"

namespace command {

DefaultRecords::DefaultRecords() {
  for (const bool dimension : {false, true}) {
    for (const bool attribute : {false, true}) {
      MemberInfoRecord& record = records_[dimension ? 1 : 0][attribute ? 1 : 0];
      new_record(&record, dimension, attribute, "-");
      if (dimension) record.dimensionCategory = kCategoryNone;
    }
  }
}

const MemberInfoRecord& DefaultRecords::at(const PlaceWalk& walk,
                                           const MemberInfoRecord& record) const {
  const bool dimension = walk.at_dimension();
  const bool attribute =
      dimension ? record.dimensionCategory == kCategoryAttribute : walk.below_attribute();
  return records_[dimension ? 1 : 0][attribute ? 1 : 0];
}

const std::string* kept_text(const Field& field, size_t table, const Details& details) {
  switch (field.kind) {
    case FieldKind::kAlias:
      return table < details.aliases.size() ? &details.aliases[table] : nullptr;
    case FieldKind::kFormula:
      return &details.formula;
    case FieldKind::kComment:
      return &details.comment;
    case FieldKind::kExtendedComment:
      return &details.extended_comment;
    case FieldKind::kCurrency:
      return &details.currency;
    default:
      return nullptr;
  }
}

std::string value_of(const Field& field, size_t table, const Details& details) {
  if (const std::string* text = kept_text(field, table, details)) return *text;
  switch (field.kind) {
    case FieldKind::kUda:
      return join_quoted(details.udas, ';');
    case FieldKind::kAttribute:
      for (const Association& one : details.attributes) {
        if (one.dimension == field.key) return one.attribute;
      }
      return "";
    case FieldKind::kProperty:
      return field.property->text(field.property->get(details.record));
    case FieldKind::kReserved:
      return reserved_text(details.record);
    default:
      return "";
  }
}

std::vector<Field> all_fields(const Outline& outline) {
  std::vector<Field> fields;
  for (const Property& property : properties()) {
    fields.push_back({FieldKind::kProperty, "", &property});
  }
  std::string key;  // the first table is the default one, whatever its name
  for (const std::string& table : outline.alias_tables()) {
    if (!fields.empty() && fields.back().kind == FieldKind::kAlias) key = table;
    fields.push_back({FieldKind::kAlias, key, nullptr});
  }
  for (const FieldKind kind :
       {FieldKind::kUda, FieldKind::kFormula, FieldKind::kComment, FieldKind::kExtendedComment,
        FieldKind::kCurrency, FieldKind::kReserved, FieldKind::kRepeat}) {
    fields.push_back({kind, "", nullptr});
  }
  for (const Member dimension : children(outline.root())) {
    if (dimension.record().dimensionCategory != kCategoryAttribute) continue;
    fields.push_back({FieldKind::kAttribute, dimension.name(), nullptr});
  }
  return fields;
}

PlaceWalk::PlaceWalk(const Outline& outline, Member top)
    : outline_(outline), at_(subtree(top).begin()) {
  if (!top) return;
  outer_ = top.parent();
  if (!outer_) return;
  outer_attribute_ = outer_.record().dimensionCategory == kCategoryAttribute;
  outer_reference_ = reference_to(outline, outer_);
}

void PlaceWalk::advance(const MemberInfoRecord& record) {
  const Member left = *at_;
  const size_t depth = at_.depth();
  at_.advance(record);
  if (!at_) return;
  path_.resize(std::min(path_.size(), at_.depth()));
  if (at_.depth() > depth) {
    path_.push_back({left, record.dimensionCategory == kCategoryAttribute, ""});
  }
}

bool PlaceWalk::below_attribute() const {
  return path_.empty() ? outer_attribute_ : path_.back().attribute;
}

const std::string& PlaceWalk::parent() {
  if (path_.empty()) return outer_reference_;
  Above& above = path_.back();
  if (above.reference.empty()) above.reference = reference_to(outline_, above.member);
  return above.reference;
}

}  // namespace command
