// Alias tables and the aliases in them.
#include <utility>

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
  clear_table(table);
  alias_tables_.erase(alias_tables_.begin() + static_cast<std::ptrdiff_t>(table));
}

void Outline::clear_table(size_t table) {
  const MemberMap aliases = std::exchange(alias_tables_[table].aliases, {});
  aliases.visit([this](MemberId, TextRef alias) { texts_.drop(alias); });
  alias_tables_[table].series_aliases.clear();
  pack_texts();
}

void Outline::copy_table(size_t from, size_t to) {
  auto series_aliases = alias_tables_[from].series_aliases;
  MemberMap copy;
  try {
    alias_tables_[from].aliases.visit([&](MemberId id, TextRef alias) {
      copy.make_room(id);
      copy.set(id, texts_.keep(texts_.at(alias)));
    });
  } catch (...) {
    copy.visit([this](MemberId, TextRef alias) { texts_.drop(alias); });
    throw;
  }
  std::swap(alias_tables_[to].aliases, copy);
  alias_tables_[to].series_aliases.swap(series_aliases);
  copy.visit([this](MemberId, TextRef alias) { texts_.drop(alias); });
  pack_texts();
}

std::string_view Outline::alias(size_t table, MemberId id) const {
  return texts_.at(alias_tables_[table].aliases.at(id));
}

void Outline::set_alias(size_t table, MemberId id, std::string_view alias) {
  set_text(alias_tables_[table].aliases, id, alias);
}

void Outline::remove_alias(size_t table, MemberId id) {
  set_text(alias_tables_[table].aliases, id, {});
}

}  // namespace standin
