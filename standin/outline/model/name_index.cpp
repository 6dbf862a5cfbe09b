// The name index: entries in the order of their hashes, and rings of equal names.
#include "standin/outline/model/name_index.h"

#include <algorithm>

#include "standin/outline/model/sort_by_hash.h"

namespace standin {

namespace {
constexpr size_t kFewest = 16;  // homes
constexpr size_t kBehind = 64;  // entries behind the homes, for those that found theirs taken
}  // namespace

NameIndex::NameIndex(const Chunks<Member>& members, const TextPool& texts)
    : members_(members), texts_(texts) {
  resize(kFewest);
}

// Enters all names anew, in one pass as their order stays.
void NameIndex::resize(size_t homes) {
  std::vector<Entry> resized(homes + kBehind);
  size_t free = 0;
  for (const Entry& entry : table_) {
    if (entry.head == kNoMember) continue;
    free = std::max(free, home(entry.hash, homes));
    if (free + 1 >= resized.size()) resized.resize(resized.size() + kBehind);
    resized[free++] = entry;
  }
  table_.swap(resized);
  homes_ = homes;
}

void NameIndex::reserve(size_t count) {
  const size_t homes = count + count / 3 + 8;  // three quarters full
  if (homes > homes_) resize(homes);
}

void NameIndex::make_room() {
  if (names_ + 1 > homes_ / 4 * 3) resize(homes_ + homes_ / 2);
  // An entry that is pushed on ends at a free one, which may be the last.
  if (table_.back().head != kNoMember || table_[table_.size() - 2].head != kNoMember) {
    table_.resize(table_.size() + kBehind);
  }
  rings_.make_room(2);
}

size_t NameIndex::position(std::string_view name, uint32_t hash) const {
  for (size_t at = first_from(hash); table_[at].head != kNoMember && table_[at].hash == hash;
       ++at) {
    if (equal_text(name_of(table_[at].head), name, case_sensitive_)) return at;
  }
  return table_.size() - 1;
}

void NameIndex::insert_entry(Entry entry) {
  size_t at = home(entry.hash);
  while (table_[at].head != kNoMember && table_[at].hash <= entry.hash) ++at;
  while (table_[at].head != kNoMember) std::swap(table_[at++], entry);
  table_[at] = entry;
  ++names_;
}

void NameIndex::erase_entry(size_t at) {
  // Those behind it move up as far as their homes.
  while (table_[at + 1].head != kNoMember && home(table_[at + 1].hash) <= at) {
    table_[at] = table_[at + 1];
    ++at;
  }
  table_[at] = {};
  --names_;
}

void NameIndex::insert(MemberId id) {
  make_room();
  const std::string_view name = name_of(id);
  const uint32_t own_hash = hash(name);
  const MemberId head = find(name, own_hash);
  if (head == kNoMember) {
    insert_entry({own_hash, id});
  } else {
    join_ring(head, id);
  }
}

void NameIndex::insert_all() {
  struct Named {
    uint32_t hash;
    MemberId id;
  };
  std::vector<Named> named;
  named.reserve(members_.size());
  for (MemberId id = 0; id < members_.size(); ++id) {
    if (members_[id].name != kNoText) named.push_back({hash(name_of(id)), id});
  }
  sort_by_hash(named);
  reserve(named.size());
  size_t end = 0;  // of what is filled
  for (size_t i = 0; i < named.size(); ++i) {
    const Named& next = named[i];
    const size_t before = names_;
    if (i > 0 && named[i - 1].hash == next.hash) {
      insert(next.id);  // maybe of the same name
      end += names_ - before;
      continue;
    }
    end = std::max(end, home(next.hash));
    keep_end_free(end);
    table_[end++] = {next.hash, next.id};
    ++names_;
  }
}

// Sees to it that the last entry is free when one is put at `end`.
void NameIndex::keep_end_free(size_t end) {
  if (end + 1 >= table_.size()) table_.resize(table_.size() + kBehind);
}

void NameIndex::join_ring(MemberId head, MemberId id) {
  if (rings_.find(head) == nullptr) rings_.insert(head, {head, head});
  const MemberId tail = rings_.find(head)->previous;
  rings_.insert(id, {head, tail});
  rings_.find(tail)->next = id;
  rings_.find(head)->previous = id;
}

void NameIndex::erase(MemberId id) {
  const std::string_view name = name_of(id);
  const size_t at = position(name, hash(name));
  const Neighbours* found = rings_.find(id);
  if (found == nullptr) {
    erase_entry(at);
    return;
  }
  const Neighbours ring = *found;
  if (table_[at].head == id) table_[at].head = ring.next;
  rings_.find(ring.previous)->next = ring.next;
  rings_.find(ring.next)->previous = ring.previous;
  rings_.erase(id);
  if (ring.next == ring.previous) rings_.erase(ring.next);  // one is left
}

void NameIndex::requeue(MemberId id) {
  make_room();
  erase(id);
  insert(id);
}

MemberId NameIndex::next_of_same_name(MemberId id) const {
  const Neighbours* ring = rings_.find(id);
  if (ring == nullptr) return kNoMember;
  return ring->next == find(name_of(id)) ? kNoMember : ring->next;
}

void NameIndex::set_case_sensitive(bool sensitive) {
  if (sensitive == case_sensitive_) return;
  std::vector<MemberId> order;
  for (const Entry& entry : table_) {
    if (entry.head != kNoMember) order.push_back(entry.head);
  }
  std::sort(order.begin(), order.end());
  NameIndex changed(members_, texts_);
  changed.case_sensitive_ = sensitive;
  changed.reserve(order.size());
  for (const MemberId head : order) {
    MemberId id = head;
    do {
      changed.insert(id);
      const Neighbours* ring = rings_.find(id);
      id = ring == nullptr ? head : ring->next;
    } while (id != head);
  }
  table_.swap(changed.table_);
  std::swap(homes_, changed.homes_);
  std::swap(names_, changed.names_);
  std::swap(rings_, changed.rings_);
  case_sensitive_ = sensitive;
}

}  // namespace standin
