// The shape of the outline in memory: adding, moving, removing, renaming and sorting members.
#include "standin/outline/model/outline.h"

#include <algorithm>
#include <utility>

namespace standin {

Outline::Outline() {
  members_.add();  // the root
  add_table(kDefaultTableName);
}

bool Outline::contains(MemberId id) const {
  return id != kRoot && id < members_.size() && member(id).name != kNoText;
}

void Outline::reserve(uint32_t count) {
  members_.reserve(count + 1);
  names_.reserve(count);
}

bool Outline::is_within(MemberId id, MemberId ancestor) const {
  const uint32_t generation = member(ancestor).generation;
  while (member(id).generation > generation) id = member(id).parent;
  return id == ancestor;
}

MemberId Outline::next_in_subtree(MemberId id, MemberId top) const {
  if (member(id).first_child != kNoMember) return member(id).first_child;
  for (; id != top; id = member(id).parent) {
    if (member(id).next != kNoMember) return member(id).next;
  }
  return kNoMember;
}

MemberId Outline::look_up(std::string_view name, MemberId dimension) const {
  MemberId shared = kNoMember;
  for (MemberId id = find(name); id != kNoMember; id = next_of_same_name(id)) {
    if (dimension != kNoMember && member(id).dimension != dimension) continue;
    if (properties(id).share_option != kShareShared) return id;
    if (shared == kNoMember) shared = id;
  }
  return shared;
}

MemberId Outline::find_dimension(std::string_view name) const {
  MemberId id = find(name);
  while (id != kNoMember && !is_dimension(id)) id = next_of_same_name(id);
  return id;
}

MemberId Outline::first_dimension_of(int16_t category) const {
  for (const MemberId id : children(kRoot)) {
    if (properties(id).dimension_category == category) return id;
  }
  return kNoMember;
}

bool Outline::same_text(std::string_view a, std::string_view b) const {
  return equal_text(a, b, case_sensitive());
}

MemberId Outline::child_at(MemberId parent, uint32_t index) const {
  if (index >= member(parent).child_count) return kNoMember;
  std::vector<MemberId>& marks = marks_.children;
  if (marks.empty() || marks_.parent != parent) {
    marks.assign(1, member(parent).first_child);
    marks_.parent = parent;
  }
  const auto steps_from = [this](MemberId id, uint32_t steps) {
    for (; steps > 0; --steps) id = member(id).next;
    return id;
  };
  while (marks.size() <= index / kMarkEvery) marks.push_back(steps_from(marks.back(), kMarkEvery));
  return steps_from(marks[index / kMarkEvery], index % kMarkEvery);
}

void Outline::link(MemberId id, MemberId parent, MemberId previous) {
  marks_.children.clear();
  Member& linked = own(id);
  Member& above = own(parent);
  linked.parent = parent;
  linked.previous = previous;
  MemberId& before = previous != kNoMember ? own(previous).next : above.first_child;
  linked.next = before;
  before = id;
  (linked.next != kNoMember ? own(linked.next).previous : above.last_child) = id;
  ++above.child_count;
}

void Outline::unlink(MemberId id) {
  marks_.children.clear();
  const Member& leaving = member(id);
  Member& above = own(leaving.parent);
  (leaving.previous != kNoMember ? own(leaving.previous).next : above.first_child) = leaving.next;
  (leaving.next != kNoMember ? own(leaving.next).previous : above.last_child) = leaving.previous;
  --above.child_count;
}

// Adds a member that is not found by its name yet.
MemberId Outline::place(MemberId parent, MemberId previous, std::string_view name) {
  const MemberId id = members_.size();
  const MemberId dimension = parent == kRoot ? id : member(parent).dimension;
  const uint32_t generation = member(parent).generation + 1;
  members_.reserve(id + 1);
  make_room(dimension, generation);
  const TextRef kept = texts_.keep(name);
  // From here on nothing throws.
  Member& added = own(members_.add());
  added.name = kept;
  added.generation = generation;
  added.dimension = dimension;
  link(id, parent, previous);
  count_in(id);
  level_added(parent, id);
  ++living_;
  return id;
}

MemberId Outline::add(MemberId parent, MemberId previous, std::string_view name) {
  names_.make_room();
  const MemberId id = place(parent, previous, name);
  names_.insert(id);
  return id;
}

MemberId Outline::append_unindexed(MemberId parent, std::string_view name) {
  return place(parent, member(parent).last_child, name);
}

MemberId Outline::append(MemberId parent, std::string_view name) {
  return add(parent, member(parent).last_child, name);
}

void Outline::move(MemberId id, MemberId parent, MemberId previous) {
  if (previous == id) return;
  const MemberId dimension = parent == kRoot ? id : member(parent).dimension;
  const bool other_dimension = dimension != member(id).dimension;
  const uint32_t generation = member(parent).generation + 1;
  const bool renumbered = other_dimension || member(id).generation != generation;
  if (renumbered) make_room(dimension, generation + level(id));
  level_removed(member(id).parent, id);
  unlink(id);
  link(id, parent, previous);
  level_added(parent, id);
  if (renumbered) renumber_subtree(id);
  if (other_dimension) drop_invalid_associations(id);
}

void Outline::renumber_subtree(MemberId top) {
  for (const MemberId id : subtree(top)) {
    count_out(id);
    Member& moved = own(id);
    moved.generation = member(moved.parent).generation + 1;
    moved.dimension = member(moved.parent).dimension;
    count_in(id);
  }
}

void Outline::remove(MemberId id) {
  const bool was_dimension = is_dimension(id);
  level_removed(member(id).parent, id);
  unlink(id);
  // Removed members keep their links: the walk goes on over them.
  for (const MemberId removed : subtree(id)) erase(removed);
  if (was_dimension) drop_series_without_time();
  pack_texts();
}

// Takes back what one member owns and what refers to it, except its links.
void Outline::erase(MemberId id) {
  names_.erase(id);
  count_out(id);
  drop_associations(id);
  const auto drop_text = [&](MemberMap& texts) {
    texts_.drop(texts.at(id));
    texts.set(id, kNoText);
  };
  for (AliasTable& table : alias_tables_) drop_text(table.aliases);
  for (MemberMap& texts : member_texts_) drop_text(texts);
  udas_.remove_all(id, [this](TextRef uda) { texts_.drop(uda); });
  dimension_names.erase(id);
  Member& removed = own(id);
  property_sets_.release(std::exchange(removed.properties, 0));
  texts_.drop(std::exchange(removed.name, kNoText));
  --living_;
}

void Outline::rename(MemberId id, std::string_view name) {
  const bool same_name = same_text(name, this->name(id));
  if (!same_name) names_.make_room();
  const TextRef kept = texts_.keep(name);
  if (!same_name) names_.erase(id);
  texts_.drop(std::exchange(own(id).name, kept));
  if (!same_name) names_.insert(id);  // else the place among equal names stays
  pack_texts();
}

void Outline::sort_children(MemberId parent, bool descending) {
  std::vector<MemberId> order;
  order.reserve(member(parent).child_count);
  for (const MemberId id : children(parent)) order.push_back(id);
  const bool sensitive = case_sensitive();
  const auto byte_before = [sensitive](char a, char b) {
    return static_cast<unsigned char>(sensitive ? a : fold(a)) <
           static_cast<unsigned char>(sensitive ? b : fold(b));
  };
  const auto before = [&](MemberId a, MemberId b) {
    if (descending) std::swap(a, b);
    const std::string_view x = name(a);
    const std::string_view y = name(b);
    return std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end(), byte_before);
  };
  std::stable_sort(order.begin(), order.end(), before);
  marks_.children.clear();
  MemberId previous = kNoMember;
  for (const MemberId id : order) {
    own(id).previous = previous;
    (previous != kNoMember ? own(previous).next : own(parent).first_child) = id;
    previous = id;
  }
  if (previous != kNoMember) own(previous).next = kNoMember;
  own(parent).last_child = previous;
}

void Outline::drop_series_without_time() {
  if (first_dimension_of(kCategoryTime) != kNoMember) return;
  series.clear();
  for (AliasTable& table : alias_tables_) table.series_aliases.clear();
}

}  // namespace standin
