// Names of columns.
#include "command/rows/fields.h"

#include <csv.h>

#include <algorithm>

#include "command/layer/naming.h"

namespace command {
namespace {

struct PlainField {
  const char* name;
  FieldKind kind;
};
constexpr PlainField kPlain[] = {
    {"parent", FieldKind::kParent},
    {"name", FieldKind::kName},
    {"alias", FieldKind::kAlias},
    {"uda", FieldKind::kUda},
    {"formula", FieldKind::kFormula},
    {"comment", FieldKind::kComment},
    {"extended-comment", FieldKind::kExtendedComment},
    {"currency", FieldKind::kCurrency},
    {"reserved", FieldKind::kReserved},
    {"repeat", FieldKind::kRepeat},
};

bool starts_with(std::string_view text, std::string_view beginning) {
  return text.size() > beginning.size() &&
         same_name(text.substr(0, beginning.size()), beginning, false);
}

// True for what separates cells, by any separator that is read, ends records or quotes. Called for
// each byte of an export, so it has to melt into its loop.
constexpr auto kHasMeaning = [](char c) {
  return c == ',' || c == ';' || c == '\t' || c == '"' || c == '\r' || c == '\n';
};

}  // namespace

std::string Field::header() const {
  if (kind == FieldKind::kAlias && !key.empty()) return "alias:" + key;
  if (kind == FieldKind::kAttribute) return "attribute:" + key;
  if (kind == FieldKind::kProperty) return property->name;
  for (const PlainField& plain : kPlain) {
    if (plain.kind == kind) return plain.name;
  }
  return "";
}

std::optional<Field> parse_field(std::string_view header) {
  for (const PlainField& plain : kPlain) {
    if (same_name(header, plain.name, false)) return Field{plain.kind, "", nullptr};
  }
  if (const Property* property = find_property(header)) {
    return Field{FieldKind::kProperty, "", property};
  }
  if (starts_with(header, "alias:"))
    return Field{FieldKind::kAlias, std::string(header.substr(6)), nullptr};
  if (starts_with(header, "attribute:")) {
    return Field{FieldKind::kAttribute, std::string(header.substr(10)), nullptr};
  }
  return std::nullopt;
}

std::vector<std::string> field_names() {
  std::vector<std::string> names;
  for (const PlainField& plain : kPlain) names.emplace_back(plain.name);
  names.insert(names.end(), {"alias:TABLE", "attribute:DIMENSION"});
  for (const Property& property : properties()) names.emplace_back(property.name);
  return names;
}

void append_csv(std::string* text, std::string_view value, bool first) {
  if (!first) *text += ',';
  const bool quote = std::any_of(value.begin(), value.end(), kHasMeaning) ||
                     (!value.empty() && (value.front() == ' ' || value.back() == ' '));
  if (!quote) {
    *text += value;
    return;
  }
  const size_t begin = text->size();
  text->resize(begin + 2 * value.size() + 2);
  const size_t written =
      csv_write(text->data() + begin, text->size() - begin, value.data(), value.size());
  text->resize(begin + written);
}

}  // namespace command
