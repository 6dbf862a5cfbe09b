// Finds members by name: a hash table over the members of one arena that keeps members of the
// same name in the order in which they took it.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "standin/outline/model/member_arena.h"
#include "standin/outline/model/text.h"

namespace standin {

class NameIndex {
 public:
  explicit NameIndex(const MemberArena& members) : members_(members) {}

  bool case_sensitive() const { return case_sensitive_; }
  // Rebuilds the index; members whose names become equal follow in the order of their numbers.
  void set_case_sensitive(bool sensitive);

  // Makes room for members numbered below `count`; insert() of those allocates nothing then.
  void reserve(uint32_t count);
  // Enters a member under its name in the arena, behind others of that name.
  void insert(MemberId id);
  // Takes a member out; its name in the arena must still be the one it was entered under.
  void erase(MemberId id);
  // erase() and insert() in one.
  void requeue(MemberId id);

  // The first member of a name; 0 when there is none.
  MemberId find(std::string_view name) const { return find(name, hash(name)); }
  // The same for a caller who has the name's hash_text() at hand.
  MemberId find(std::string_view name, uint32_t hash) const;
  // The next member of the same name as `id`; 0 after the last.
  MemberId next_of_same_name(MemberId id) const;

 private:
  // Members of one name form a ring; its head, the oldest, stands in the chain of a bucket.
  struct Node {
    uint32_t hash = 0;
    MemberId next_in_bucket = kNoMember;  // of a head
    MemberId ring_next = kNoMember;
    MemberId ring_previous = kNoMember;
  };

  uint32_t hash(std::string_view name) const { return hash_text(name, case_sensitive_); }
  MemberId& bucket(uint32_t hash) { return buckets_[hash & (buckets_.size() - 1)]; }
  MemberId* slot_of_head(MemberId head);

  const MemberArena& members_;
  bool case_sensitive_ = false;
  std::vector<Node> nodes_;        // by member number
  std::vector<MemberId> buckets_;  // heads of chains; a power of two of them
};

}  // namespace standin
