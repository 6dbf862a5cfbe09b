// The tables of an outline file, and the order in which the fields of the larger records stand in
// their columns, told once for writing and for reading.
#pragma once

#include <cstdint>

#include "standin/outline/model/outline.h"

namespace standin {

inline constexpr int64_t kApplicationId = 0x6B6F746C;  // "kotl"
inline constexpr int64_t kSchemaVersion = 1;

// Members are numbered from 1 in pre-order (a parent before its children, siblings in their
// order), so that reading by number needs no sorting. Parent 0 is the root. Where rows have no
// number of their own their order counts. member_index is filled by a restructure only and is
// not needed to open the outline.
inline constexpr const char* kSchema = R"sql(
CREATE TABLE outline(
  case_sensitive INTEGER NOT NULL, outline_type INTEGER NOT NULL, configure_flags INTEGER NOT NULL,
  reserved1 INTEGER NOT NULL, reserved5 INTEGER NOT NULL,
  long_name_constructor INTEGER NOT NULL, long_name_source INTEGER NOT NULL,
  long_name_delimiter INTEGER NOT NULL, date_format INTEGER NOT NULL,
  bucketing_type INTEGER NOT NULL, spec_reserved5 INTEGER NOT NULL,
  spec_reserved10 INTEGER NOT NULL, spec_reserved11 INTEGER NOT NULL,
  true_name TEXT, false_name TEXT, calc_dimension_name TEXT, sum_name TEXT, count_name TEXT,
  average_name TEXT, minimum_name TEXT, maximum_name TEXT);
CREATE TABLE member(
  id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, name TEXT NOT NULL,
  consolidation INTEGER NOT NULL, conversion_type INTEGER NOT NULL, time_balance INTEGER NOT NULL,
  time_balance_skip INTEGER NOT NULL, share_option INTEGER NOT NULL,
  storage_type INTEGER NOT NULL, dimension_category INTEGER NOT NULL,
  storage_category INTEGER NOT NULL, attribute_type INTEGER NOT NULL, two_pass INTEGER NOT NULL,
  expense INTEGER NOT NULL, hybrid_flag INTEGER NOT NULL,
  hybrid_analysis_enabled INTEGER NOT NULL);
CREATE TABLE reserved(member INTEGER NOT NULL, position INTEGER NOT NULL, value INTEGER NOT NULL);
CREATE TABLE name_order(member INTEGER NOT NULL);
CREATE TABLE formula(member INTEGER PRIMARY KEY, text TEXT NOT NULL);
CREATE TABLE comment(member INTEGER PRIMARY KEY, text TEXT NOT NULL);
CREATE TABLE extended_comment(member INTEGER PRIMARY KEY, text TEXT NOT NULL);
CREATE TABLE currency_member(member INTEGER PRIMARY KEY, text TEXT NOT NULL);
CREATE TABLE uda(member INTEGER NOT NULL, text TEXT NOT NULL);
CREATE TABLE dimension_association(base INTEGER NOT NULL, attribute INTEGER NOT NULL);
CREATE TABLE member_association(base INTEGER NOT NULL, attribute INTEGER NOT NULL);
CREATE TABLE generation_name(
  dimension INTEGER NOT NULL, number INTEGER NOT NULL, name TEXT NOT NULL);
CREATE TABLE level_name(dimension INTEGER NOT NULL, number INTEGER NOT NULL, name TEXT NOT NULL);
CREATE TABLE series(name TEXT NOT NULL, generation INTEGER NOT NULL);
CREATE TABLE alias_table(id INTEGER PRIMARY KEY, name TEXT NOT NULL);
CREATE TABLE alias(alias_table INTEGER NOT NULL, member INTEGER NOT NULL, text TEXT NOT NULL);
CREATE TABLE series_alias(alias_table INTEGER NOT NULL, series TEXT NOT NULL, text TEXT NOT NULL);
CREATE TABLE checksum(value INTEGER NOT NULL);
CREATE TABLE member_index(
  member INTEGER PRIMARY KEY, generation INTEGER NOT NULL, level INTEGER NOT NULL,
  last_descendant INTEGER NOT NULL);
)sql";

inline constexpr int kSettingsColumns = 21;
inline constexpr int kMemberColumns = 16;
inline constexpr size_t kAnyLength = 1'000'000'000;  // more than SQLite keeps

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

// The numbers of a member row behind its name.
template <typename Properties, typename Visit>
void visit_codes(Properties& properties, Visit&& visit) {
  visit(properties.consolidation);
  visit(properties.conversion_type);
  visit(properties.time_balance);
  visit(properties.time_balance_skip);
  visit(properties.share_option);
  visit(properties.storage_type);
  visit(properties.dimension_category);
  visit(properties.storage_category);
  visit(properties.attribute_type);
  visit(properties.two_pass);
  visit(properties.expense);
  visit(properties.hybrid_flag);
  visit(properties.hybrid_analysis_enabled);
}

// The tables that hold one text for each of some members.
struct TextTable {
  const char* name;
  std::string MemberExtras::*text;
  size_t longest;
};
inline constexpr TextTable kTextTables[] = {
    {"formula", &MemberExtras::formula, kAnyLength},
    {"comment", &MemberExtras::comment, kMaxComment},
    {"extended_comment", &MemberExtras::extended_comment, kAnyLength},
    {"currency_member", &MemberExtras::currency_member, kMaxMemberName},
};

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
