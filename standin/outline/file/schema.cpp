// The tables of an outline file.
#include "standin/outline/file/schema.h"

#include "standin/outline/model/member_fields.h"

namespace standin {

namespace {

constexpr const char* kSettingsTable = R"sql(
CREATE TABLE outline(
  case_sensitive INTEGER NOT NULL, outline_type INTEGER NOT NULL, configure_flags INTEGER NOT NULL,
  reserved1 INTEGER NOT NULL, reserved5 INTEGER NOT NULL,
  long_name_constructor INTEGER NOT NULL, long_name_source INTEGER NOT NULL,
  long_name_delimiter INTEGER NOT NULL, date_format INTEGER NOT NULL,
  bucketing_type INTEGER NOT NULL, spec_reserved5 INTEGER NOT NULL,
  spec_reserved10 INTEGER NOT NULL, spec_reserved11 INTEGER NOT NULL,
  true_name TEXT, false_name TEXT, calc_dimension_name TEXT, sum_name TEXT, count_name TEXT,
  average_name TEXT, minimum_name TEXT, maximum_name TEXT);
)sql";

constexpr const char* kOrderTables = R"sql(
CREATE TABLE reserved(member INTEGER NOT NULL, position INTEGER NOT NULL, value INTEGER NOT NULL);
CREATE TABLE name_order(member INTEGER NOT NULL);
)sql";

constexpr const char* kOtherTables = R"sql(
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

}  // namespace

std::string schema_sql() {
  std::string sql = kSettingsTable;
  sql += "CREATE TABLE member(id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, name TEXT NOT NULL";
  visit_member_codes([&](const char* column, auto, auto) {
    sql += std::string(", ") + column + " INTEGER NOT NULL";
  });
  sql += ");";
  sql += kOrderTables;
  visit_member_texts([&](const char* table, TextKind, size_t) {
    sql += std::string("CREATE TABLE ") + table +
           "(member INTEGER PRIMARY KEY, text TEXT NOT NULL);\n";
  });
  return sql + kOtherTables;
}

int member_columns() {
  int columns = 3;
  visit_member_codes([&](const char*, auto, auto) { ++columns; });
  return columns;
}

}  // namespace standin
