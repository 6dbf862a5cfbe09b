// Numbers by member: texts, aliases, heads of lists. Where many members have one it is an array,
// where few have one a hash table, and it changes from one to the other by itself.
#pragma once

#include "standin/outline/model/chunks.h"
#include "standin/outline/model/sparse_map.h"

namespace standin {

class MemberMap {
 public:
  // The number of a member; 0 when it has none.
  uint32_t at(MemberId id) const {
    if (dense_.size() != 0) return id < dense_.size() ? dense_[id] : 0;
    const uint32_t* found = sparse_.find(id);
    return found == nullptr ? 0 : *found;
  }
  // Members that have a number.
  uint32_t count() const { return count_; }
  // Sees to it that the next set() for this member throws nothing.
  void make_room(MemberId id);
  // Gives a member a number; 0 takes its own away.
  void set(MemberId id, uint32_t number);

  // Calls `visit(member, number)` for all, in no order; the numbers may be changed.
  template <typename Visit>
  void visit(Visit&& visit) {
    for (uint32_t id = 0; id < dense_.size(); ++id) {
      if (dense_[id] != 0) visit(id, dense_[id]);
    }
    sparse_.visit(visit);
  }
  template <typename Visit>
  void visit(Visit&& visit) const {
    for (uint32_t id = 0; id < dense_.size(); ++id) {
      if (dense_[id] != 0) visit(id, dense_[id]);
    }
    sparse_.visit(visit);
  }

 private:
  void become_dense(uint32_t size);
  void become_sparse();

  // One of the two is empty. As an array it ends behind the highest member that had a number.
  Chunks<uint32_t> dense_;
  SparseMap<uint32_t> sparse_;
  uint32_t count_ = 0;
  MemberId highest_ = kRoot;  // that ever had a number
};

}  // namespace standin
