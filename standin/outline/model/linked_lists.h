// Short lists of numbers by member, in the order in which they were added, without memory of their
// own each: the user-defined attributes of a member.
#pragma once

#include "standin/outline/model/member_map.h"

namespace standin {

class LinkedLists {
 public:
  // Adds a number at the end of a member's list. Throws std::bad_alloc.
  void add(MemberId id, uint32_t number);
  // Takes a number out that is in the member's list.
  void remove(MemberId id, uint32_t number);

  // Takes a member's list away, calling `dropped(number)` for what was in it.
  template <typename Dropped>
  void remove_all(MemberId id, Dropped&& dropped) {
    while (const uint32_t first = first_.at(id)) {
      dropped(entries_[first].number);
      remove(id, entries_[first].number);
    }
  }
  // Calls `visit(number)` for each number of a member until it answers false.
  template <typename Visit>
  void visit(MemberId id, Visit&& visit) const {
    for (uint32_t at = first_.at(id); at != 0; at = entries_[at].next) {
      if (!visit(entries_[at].number)) return;
    }
  }
  // Calls `visit(number)` for the numbers of all members; they may be changed.
  template <typename Visit>
  void visit_all(Visit&& visit) {
    first_.visit([&](MemberId, uint32_t first) {
      for (uint32_t at = first; at != 0; at = entries_[at].next) visit(entries_[at].number);
    });
  }

 private:
  struct Entry {
    uint32_t number = 0;
    uint32_t next = 0;  // in the list, or the next free one; 0: the last
  };

  MemberMap first_;
  Chunks<Entry> entries_;
  uint32_t free_ = 0;
};

}  // namespace standin
