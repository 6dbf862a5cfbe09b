// Finds members by name: a hash table over the members of one outline that keeps members of the
// same name in the order in which they took it.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "standin/outline/model/chunks.h"
#include "standin/outline/model/sparse_map.h"
#include "standin/outline/model/text.h"

namespace standin {

// The table holds one entry per name, in the order of the hashes: an entry stands where its hash
// as a fraction of all hashes points to, or as little behind it as those before it allow. So most
// look-ups read one cache line of it, a name that is not there needs no text to be compared, and
// the table grows in one pass over the old one.
class NameIndex {
 public:
  NameIndex(const Chunks<Member>& members, const TextPool& texts);

  bool case_sensitive() const { return case_sensitive_; }
  // Rebuilds the index; members whose names become equal follow in the order of their numbers.
  void set_case_sensitive(bool sensitive);

  // Makes room for `count` names in all; only speed depends on it.
  void reserve(size_t count);
  // Sees to it that the next insert() throws nothing.
  void make_room();
  // Enters a member under its name, behind others of that name.
  void insert(MemberId id);
  // Enters all members that have a name into an index that has none, in the order of their numbers:
  // cheaper than one by one, as the table is filled from its beginning to its end.
  void insert_all();
  // Takes a member out; its name must still be the one it was entered under.
  void erase(MemberId id);
  // erase() and insert() in one.
  void requeue(MemberId id);

  // The first member of a name; 0 when there is none.
  MemberId find(std::string_view name) const { return find(name, hash(name)); }
  // The same for a caller who has the name's hash_text() at hand.
  MemberId find(std::string_view name, uint32_t hash) const {
    return table_[position(name, hash)].head;
  }
  // False when no name has this hash.
  bool has_hash(uint32_t hash) const {
    const Entry& entry = table_[first_from(hash)];
    return entry.head != kNoMember && entry.hash == hash;
  }
  // The next member of the same name as `id`; 0 after the last.
  MemberId next_of_same_name(MemberId id) const;

 private:
  struct Entry {
    uint32_t hash = 0;
    MemberId head = kNoMember;  // the oldest member of the name; none: a free entry
  };
  // Members of one name form a ring when there are several.
  struct Neighbours {
    MemberId next = kNoMember;
    MemberId previous = kNoMember;
  };

  std::string_view name_of(MemberId id) const { return texts_.at(members_[id].name); }
  uint32_t hash(std::string_view name) const { return hash_text(name, case_sensitive_); }
  // Where an entry of this hash stands when nothing is in its way.
  static size_t home(uint32_t hash, size_t homes) {
    return static_cast<size_t>(uint64_t{hash} * homes >> 32);
  }
  size_t home(uint32_t hash) const { return home(hash, homes_); }
  // Of the first entry of this hash or a higher one, or of a free entry in front of it.
  size_t first_from(uint32_t hash) const {
    size_t at = home(hash);
    while (table_[at].head != kNoMember && table_[at].hash < hash) ++at;
    return at;
  }
  // Of the entry of a name, or of a free entry when there is none.
  size_t position(std::string_view name, uint32_t hash) const;
  void resize(size_t homes);
  void keep_end_free(size_t end);
  void insert_entry(Entry entry);
  void erase_entry(size_t at);
  void join_ring(MemberId head, MemberId id);

  const Chunks<Member>& members_;
  const TextPool& texts_;
  bool case_sensitive_ = false;
  std::vector<Entry> table_;  // homes_ entries and some behind them; the last is always free
  size_t homes_ = 0;
  size_t names_ = 0;
  SparseMap<Neighbours> rings_;
};

}  // namespace standin
