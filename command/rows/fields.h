// The columns of tables of members, for loading and exporting alike: how they are called, and a
// row of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "command/layer/properties.h"

namespace command {

enum class FieldKind {
  kParent,
  kName,
  kAlias,  // key: the table, empty for the default one
  kUda,    // items separated by semicolons
  kFormula,
  kComment,
  kExtendedComment,
  kCurrency,
  kAttribute,  // key: the attribute dimension
  kProperty,
  kReserved,  // the record's reserved bytes in hexadecimal digits
  kRepeat,    // "yes": the member repeats a name on purpose
  kSkipped,
};

struct Field {
  FieldKind kind = FieldKind::kSkipped;
  std::string key;
  const Property* property = nullptr;

  // What the column is called: "alias:French", "time-balance".
  std::string header() const;
};

// The field of a header in any case; nothing when there is none.
std::optional<Field> parse_field(std::string_view header);
// What can stand in a header, for messages.
std::vector<std::string> field_names();

// One row: a member with values by field. An empty value is an empty cell.
struct Row {
  uint64_t line = 0;
  std::string parent;
  std::string name;
  std::vector<std::string> values;
};

// One record of a CSV file, quoted where it has to be.
void append_csv(std::string* text, std::string_view value, bool first);

}  // namespace command
