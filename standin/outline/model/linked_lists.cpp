// Short lists of numbers by member.
#include "standin/outline/model/linked_lists.h"

namespace standin {

void LinkedLists::add(MemberId id, uint32_t number) {
  first_.make_room(id);
  if (entries_.size() == 0) entries_.add();  // 0 ends a list
  const uint32_t added = free_ != 0 ? free_ : entries_.add();
  if (added == free_) free_ = entries_[added].next;
  entries_[added] = {number, 0};
  uint32_t last = first_.at(id);
  if (last == 0) {
    first_.set(id, added);
    return;
  }
  while (entries_[last].next != 0) last = entries_[last].next;
  entries_[last].next = added;
}

void LinkedLists::remove(MemberId id, uint32_t number) {
  uint32_t before = 0;
  uint32_t at = first_.at(id);
  while (entries_[at].number != number) {
    before = at;
    at = entries_[at].next;
  }
  const uint32_t next = entries_[at].next;
  if (before == 0) {
    first_.set(id, next);
  } else {
    entries_[before].next = next;
  }
  entries_[at] = {0, free_};
  free_ = at;
}

}  // namespace standin
