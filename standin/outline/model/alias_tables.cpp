// Alias tables and the aliases in them.
#include "standin/outline/model/outline.h"

namespace standin {

size_t Outline::find_table(const char* name) const {
  if (name == nullptr) return 0;
  for (size_t i = 0; i < alias_tables_.size(); ++i) {
    if (same_text(alias_tables_[i].name, name)) return i;
  }
  return equal_text(name, kDefaultTableName, false) ? 0 : kNoTable;
}

void Outline::add_table(std::string_view name) {
  AliasTable table;
  table.name = name;
  alias_tables_.push_back(std::move(table));
}

void Outline::rename_table(size_t table, std::string_view name) {
  alias_tables_[table].name = name;
}

void Outline::remove_table(size_t table) {
  alias_tables_.erase(alias_tables_.begin() + static_cast<std::ptrdiff_t>(table));
}

void Outline::clear_table(size_t table) {
  alias_tables_[table].aliases = {};
  alias_tables_[table].series_aliases.clear();
}

void Outline::copy_table(size_t from, size_t to) {
  AliasTable copy = alias_tables_[from];
  copy.name = alias_tables_[to].name;
  alias_tables_[to] = std::move(copy);
}

std::string_view Outline::alias(size_t table, MemberId id) const {
  const auto& aliases = alias_tables_[table].aliases;
  const auto found = aliases.find(id);
  return found == aliases.end() ? std::string_view() : found->second;
}

void Outline::set_alias(size_t table, MemberId id, std::string_view alias) {
  alias_tables_[table].aliases.insert_or_assign(id, std::string(alias));
}

void Outline::remove_alias(size_t table, MemberId id) {
  alias_tables_[table].aliases.erase(id);
}

}  // namespace standin
