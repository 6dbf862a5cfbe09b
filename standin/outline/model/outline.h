// The outline in memory: an arena of linked members with a name index, alias tables and the
// outline-wide settings. Calls on one outline are serialised by its owner (open_outlines.h).
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "api/records.h"
#include "standin/outline/model/association_links.h"
#include "standin/outline/model/linked_lists.h"
#include "standin/outline/model/member_map.h"
#include "standin/outline/model/name_index.h"
#include "standin/outline/model/property_sets.h"
#include "standin/outline/model/walk.h"

namespace standin {

inline constexpr char kDefaultTableName[] = "Default";

// Position of an alias table in its outline.
inline constexpr size_t kNoTable = SIZE_MAX;

// Aliases of one table.
struct AliasTable {
  std::string name;
  MemberMap aliases;                                  // texts in the outline's pool
  std::map<std::string, std::string> series_aliases;  // by dynamic-time-series entry
};

// Names given to generations (from 1) and levels (from 0) of one dimension.
struct DimensionNames {
  std::map<uint16_t, std::string> generations;
  std::map<uint16_t, std::string> levels;
};

// An enabled dynamic-time-series entry.
struct SeriesEntry {
  std::string name;
  int16_t generation = 0;
};

// How attribute members are named and calculated; a missing text is a null one at the interface.
struct AttributeSettings {
  int16_t long_name_constructor = 0;
  int16_t long_name_source = 0;
  int8_t long_name_delimiter = 0;
  uint8_t reserved5 = 0;
  int16_t date_format = 0;
  int16_t bucketing_type = 0;
  std::array<uint8_t, 2> reserved10{};
  // In the record's order: true, false, calculation dimension, sum, count, average, minimum,
  // maximum.
  std::array<std::optional<std::string>, 8> texts{
      "True", "False", "Attribute Calculations", "Sum", "Count", "Average", "Minimum", "Maximum"};
};

// One outline. Members are numbered by MemberId, the HMember of the interface: never used twice,
// so that the handle of a deleted member is told from a living one. Member 0 is the root above
// the dimensions and is never handed out; as a link 0 means "none", as a parent it is the root.
//
// Functions that take a MemberId want a living member (`contains`), or the root where they say so.
// They check no other rule of the interface: that is the callers' work. Only std::bad_alloc is
// thrown, with the outline unchanged. Nothing here recurses over the tree.
class Outline {
 public:
  Outline();
  Outline(const Outline&) = delete;
  Outline& operator=(const Outline&) = delete;

  // ---- Members ----

  // True for a living member, false for the root, a deleted member and an invented number.
  bool contains(MemberId id) const;
  const Member& member(MemberId id) const { return members_[id]; }
  // Living members, without the root.
  uint32_t member_count() const { return living_; }
  // One above the highest MemberId used so far: the size for arrays indexed by MemberId.
  uint32_t id_limit() const { return members_.size(); }
  // Makes room for `count` members in all; only speed depends on it.
  void reserve(uint32_t count);

  bool is_dimension(MemberId id) const { return member(id).parent == kRoot; }
  // True when `id` is `ancestor` or lies below it.
  bool is_within(MemberId id, MemberId ancestor) const;
  // The children of a member, or the dimensions of the root, in their order.
  auto children(MemberId parent) const {
    return MemberWalk(member(parent).first_child, [this](MemberId id) { return member(id).next; });
  }
  // A member and all below it in pre-order; of the root all members without itself.
  auto subtree(MemberId top) const {
    return MemberWalk(top == kRoot ? member(kRoot).first_child : top,
                      [this, top](MemberId id) { return next_in_subtree(id, top); });
  }
  // Child number `index` of a member or of the root, counted from 0; 0 when there are fewer. The
  // first call for a parent walks to the child, later ones a few steps.
  MemberId child_at(MemberId parent, uint32_t index) const;
  // Level of a member, 0 without children, else one above its highest child. Constant for a
  // dimension, amortised constant for others.
  uint32_t level(MemberId id) const;
  // Generations of a dimension, at least 1.
  uint32_t generation_count(MemberId dimension) const { return level(dimension) + 1; }
  // The first dimension of a category; 0 when there is none.
  MemberId first_dimension_of(int16_t category) const;

  // ---- Shape ----

  // Adds a member below `parent` (the root: a dimension) behind `previous` (0: as first child).
  MemberId add(MemberId parent, MemberId previous, std::string_view name);
  // Adds a member as the last child.
  MemberId append(MemberId parent, std::string_view name);
  // The same for a new outline that is built from a list: no name is found before index_names(),
  // which enters all of them at less cost than one by one.
  MemberId append_unindexed(MemberId parent, std::string_view name);
  void index_names() { names_.insert_all(); }
  // Moves a member with its subtree; `parent` must not lie within it, and is the root for a
  // dimension and only then. Associations that the new place rules out are removed.
  void move(MemberId id, MemberId parent, MemberId previous);
  // Removes a member with its subtree and everything that refers to it.
  void remove(MemberId id);
  void rename(MemberId id, std::string_view name);
  // Sorts the children of `parent` (or of the root) by the bytes of their names, folded when the
  // outline does not tell case; stable.
  void sort_children(MemberId parent, bool descending);

  // ---- Names ----

  std::string_view name(MemberId id) const { return texts_.at(member(id).name); }

  // The member that has had this name longest; 0 when there is none.
  MemberId find(std::string_view name) const { return names_.find(name); }
  MemberId find(std::string_view name, uint32_t hash) const { return names_.find(name, hash); }
  // The member that a name stands for, in one dimension (0: in any): the one that has had it
  // longest and is no shared member; a shared one only when there is no other, 0 when there is
  // none.
  MemberId look_up(std::string_view name, MemberId dimension = kNoMember) const;
  // The dimension of a name; 0 when there is none.
  MemberId find_dimension(std::string_view name) const;
  // False when no name has this hash_text(): find() need not be asked.
  bool has_name_hash(uint32_t hash) const { return names_.has_hash(hash); }
  // The member that comes after `id` in the order in which its name was taken; 0 after the last.
  MemberId next_of_same_name(MemberId id) const { return names_.next_of_same_name(id); }
  // Makes `id` the youngest holder of its name: calling it for all holders in turn sets their
  // order.
  void requeue_name(MemberId id) { names_.requeue(id); }
  bool case_sensitive() const { return names_.case_sensitive(); }
  // Changes how names are compared and rebuilds the index. Names that now collide keep the order
  // of their members.
  void set_case_sensitive(bool sensitive) { names_.set_case_sensitive(sensitive); }
  // Compares two texts as member names are compared.
  bool same_text(std::string_view a, std::string_view b) const;

  // ---- Details ----

  const MemberProperties& properties(MemberId id) const {
    return property_sets_.at(member(id).properties);
  }
  void set_properties(MemberId id, const MemberProperties& properties);
  // set_properties() and set_text() of what a record brings, all or nothing.
  void set_record(MemberId id, const MemberProperties& properties, std::string_view currency_member,
                  std::string_view comment);
  // A text of a member, empty when it has none; an empty one is none.
  std::string_view text(MemberId id, TextKind kind) const;
  void set_text(MemberId id, TextKind kind, std::string_view text);
  // The user-defined attributes of a member in the order in which they were given. Those of one
  // member are told apart as names are.
  std::vector<std::string_view> udas(MemberId id) const;
  bool has_uda(MemberId id, std::string_view uda) const;
  void add_uda(MemberId id, std::string_view uda);
  // False when the member does not carry it.
  bool remove_uda(MemberId id, std::string_view uda);

  // ---- Attributes ----

  // The member's associations: attribute dimensions of a dimension, attribute members of others;
  // in the order in which they were made.
  std::vector<MemberId> associations(MemberId id) const;
  bool has_associations(MemberId id) const;
  // True when any member, or dimension, is associated with this attribute.
  bool has_carriers(MemberId attribute) const;
  bool associated(MemberId base, MemberId attribute) const;
  // True when `base` carries another member of the attribute's dimension: it may carry one.
  bool carries_other(MemberId base, MemberId attribute) const;
  void associate(MemberId base, MemberId attribute);
  // Removes an association if there is one; from a dimension also those of its members.
  void disassociate(MemberId base, MemberId attribute);
  // Removes every association that a dimension takes part in on either side, with those of its
  // members.
  void drop_dimension_associations(MemberId dimension);

  // ---- Alias tables ----

  // Position of a table; kNoTable when there is none. Table names are compared as member names are;
  // null, and "Default" in any case unless another table bears it, name the default table.
  size_t find_table(const char* name) const;
  // The default table is the first one; there is always one.
  const std::vector<AliasTable>& alias_tables() const { return alias_tables_; }
  // Adds an empty table behind the others.
  void add_table(std::string_view name);
  void rename_table(size_t table, std::string_view name);
  void remove_table(size_t table);
  // Removes the aliases of a table, those of time series included.
  void clear_table(size_t table);
  // Gives table `to` the aliases of table `from` in place of its own.
  void copy_table(size_t from, size_t to);

  // A member's alias in a table, empty when it has none.
  std::string_view alias(size_t table, MemberId id) const;
  void set_alias(size_t table, MemberId id, std::string_view alias);
  void remove_alias(size_t table, MemberId id);
  uint32_t alias_count(size_t table) const { return alias_tables_[table].aliases.count(); }
  // Calls `visit(member, alias)` for every alias of a table, in no order.
  template <typename Visit>
  void visit_aliases(size_t table, Visit&& visit) const {
    alias_tables_[table].aliases.visit(
        [&](MemberId id, TextRef alias) { visit(id, texts_.at(alias)); });
  }

  // Aliases of time series, by entry name.
  const std::map<std::string, std::string>& series_aliases(size_t table) const {
    return alias_tables_[table].series_aliases;
  }
  std::map<std::string, std::string>& series_aliases(size_t table) {
    return alias_tables_[table].series_aliases;
  }

  // ---- Settings ----

  int16_t outline_type = 0;
  uint8_t configure_flags = 0;
  std::array<uint8_t, 2> reserved_info{};  // reserved1 and reserved5 of the record
  AttributeSettings attribute_settings;
  std::unordered_map<MemberId, DimensionNames> dimension_names;  // by dimension
  std::vector<SeriesEntry> series;                               // enabled entries

  // Removes the time-series entries and their aliases when no time dimension is left.
  void drop_series_without_time();

 private:
  // Every so many children of the parent that child_at() was last called for, as far as it came;
  // any change of shape clears it.
  static constexpr uint32_t kMarkEvery = 64;
  struct Marks {
    MemberId parent = kRoot;
    std::vector<MemberId> children;
  };

  // The member itself, to be changed.
  Member& own(MemberId id) { return members_[id]; }
  MemberId next_in_subtree(MemberId id, MemberId top) const;
  void set_text(MemberMap& texts, MemberId id, std::string_view text);
  TextRef uda_ref(MemberId id, std::string_view uda) const;
  void pack_texts();
  MemberId place(MemberId parent, MemberId previous, std::string_view name);
  void link(MemberId id, MemberId parent, MemberId previous);
  void unlink(MemberId id);
  void erase(MemberId id);
  void renumber_subtree(MemberId top);
  void drop_associations(MemberId id);
  void drop_invalid_associations(MemberId top);
  void drop_invalid_associations_of(MemberId id);
  bool association_allowed(MemberId base, MemberId attribute) const;
  void make_room(MemberId dimension, uint32_t generation);
  void count_in(MemberId id);
  void count_out(MemberId id);
  void level_added(MemberId parent, MemberId child);
  void level_removed(MemberId parent, MemberId child);
  void invalidate_levels(MemberId id);

  Chunks<Member> members_;
  TextPool texts_;
  NameIndex names_{members_, texts_};
  PropertySets property_sets_;
  std::array<MemberMap, kTextKinds> member_texts_;  // by TextKind
  LinkedLists udas_;                                // texts
  AssociationLinks associations_;
  uint32_t living_ = 0;
  // Members per generation, by dimension; the dimension itself comes first, a zero never last.
  std::unordered_map<MemberId, std::vector<uint32_t>> generation_sizes_;
  mutable Marks marks_;
  std::vector<AliasTable> alias_tables_;
};

}  // namespace standin
