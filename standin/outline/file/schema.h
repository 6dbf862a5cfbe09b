// The tables of an outline file, and the order in which settings stand in their columns, told once
// for writing and for reading.
#pragma once

#include <cstdint>
#include <string>

#include "standin/outline/model/outline.h"

namespace standin {

inline constexpr int64_t kApplicationId = 0x6B6F746C;  // "kotl"
inline constexpr int64_t kSchemaVersion = 1;

// Members are numbered from 1 in pre-order (a parent before its children, siblings in their
// order), so that reading by number needs no sorting. Parent 0 is the root. Where rows have no
// number of their own their order counts. member_index is filled by a restructure only and is
// not needed to open the outline.

// The statements that make the tables. Blanks aside they are what a file of this version was made
// with.
std::string schema_sql();

// Columns of the member table: number, parent, name, and the codes of member_fields.h.
int member_columns();

inline constexpr int kSettingsColumns = 21;

// The numbers of the outline row behind case_sensitive.
template <typename AnyOutline, typename Visit>
void visit_settings(AnyOutline& outline, Visit&& visit) {
  visit(outline.outline_type);
  visit(outline.configure_flags);
  visit(outline.reserved_info[0]);
  visit(outline.reserved_info[1]);
  auto& specification = outline.attribute_settings;
  visit(specification.long_name_constructor);
  visit(specification.long_name_source);
  visit(specification.long_name_delimiter);
  visit(specification.date_format);
  visit(specification.bucketing_type);
  visit(specification.reserved5);
  visit(specification.reserved10[0]);
  visit(specification.reserved10[1]);
}

// The two tables of generation and level names.
struct NumberedNameTable {
  const char* name;
  std::map<uint16_t, std::string> DimensionNames::*names;
  uint16_t first;  // the lowest number there is
};
inline constexpr NumberedNameTable kNumberedNameTables[] = {
    {"generation_name", &DimensionNames::generations, 1},
    {"level_name", &DimensionNames::levels, 0},
};

}  // namespace standin
