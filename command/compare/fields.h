// The fields of two members side by side.
#pragma once

#include <string>
#include <vector>

#include "command/layer/details.h"
#include "command/rows/fields.h"

namespace command {

// A field whose values differ.
struct FieldChange {
  Field field;
  std::string before;
  std::string after;
};

// Compares members of two outlines field by field; the alias tables and attribute dimensions are
// those of both.
class FieldComparison {
 public:
  FieldComparison(const Outline& before, const Outline& after);

  // True when name and fields are the same, told fast. What is false may turn out to have no
  // changes.
  bool same(Member before, Member after) const {
    return same_tables_ && before_.same(before, after_, after);
  }
  std::vector<FieldChange> changes(Member before, Member after) const;
  bool equal_but_name(Member before, Member after) const { return changes(before, after).empty(); }

 private:
  struct Column {
    Field field;
    size_t before_table;
    size_t after_table;
  };

  DetailsReader before_;
  DetailsReader after_;
  std::vector<Column> columns_;
  bool same_tables_ = false;
  mutable Details before_details_;
  mutable Details after_details_;
};

}  // namespace command
