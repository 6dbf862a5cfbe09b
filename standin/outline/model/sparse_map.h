// A small hash table from members to something, for what few members have.
#pragma once

#include <cstdint>
#include <vector>

#include "standin/outline/model/member.h"

namespace standin {

// Values are plain. The root is no key.
template <typename Value>
class SparseMap {
 public:
  uint32_t size() const { return size_; }

  // The value of a member; null when there is none.
  const Value* find(MemberId id) const {
    if (size_ == 0) return nullptr;
    for (uint32_t at = home(id);; at = next(at)) {
      if (slots_[at].id == id) return &slots_[at].value;
      if (slots_[at].id == kRoot) return nullptr;
    }
  }
  Value* find(MemberId id) {
    return const_cast<Value*>(static_cast<const SparseMap*>(this)->find(id));
  }

  // True when one more member would need more memory.
  bool full() const { return size_ + 1 > slots_.size() / 4 * 3; }
  // Makes room for `more` further members; insert() of them throws nothing then.
  void make_room(uint32_t more) {
    size_t count = slots_.empty() ? 8 : slots_.size();
    while (size_ + more > count / 4 * 3) count *= 2;
    if (count == slots_.size()) return;
    std::vector<Slot> old(count);
    old.swap(slots_);
    shift_ = 32;
    while (size_t{1} << (32 - shift_) < count) --shift_;
    for (const Slot& slot : old) {
      if (slot.id != kRoot) *free_slot(slot.id) = slot;
    }
  }
  // Enters a member that is not in the map.
  void insert(MemberId id, const Value& value) {
    make_room(1);
    *free_slot(id) = {id, value};
    ++size_;
  }
  void erase(MemberId id) {
    if (find(id) == nullptr) return;
    uint32_t hole = home(id);
    while (slots_[hole].id != id) hole = next(hole);
    // Those behind the hole move up, unless they stand in front of their home then.
    for (uint32_t at = next(hole); slots_[at].id != kRoot; at = next(at)) {
      const uint32_t from_home = (at - home(slots_[at].id)) & mask();
      if (from_home < ((at - hole) & mask())) continue;
      slots_[hole] = slots_[at];
      hole = at;
    }
    slots_[hole] = {};
    --size_;
  }
  // Calls `visit(member, value)` for all, in no order; the values may be changed.
  template <typename Visit>
  void visit(Visit&& visit) {
    for (Slot& slot : slots_) {
      if (slot.id != kRoot) visit(slot.id, slot.value);
    }
  }
  template <typename Visit>
  void visit(Visit&& visit) const {
    for (const Slot& slot : slots_) {
      if (slot.id != kRoot) visit(slot.id, slot.value);
    }
  }

 private:
  struct Slot {
    MemberId id = kRoot;  // the root: free
    Value value{};
  };

  uint32_t mask() const { return static_cast<uint32_t>(slots_.size()) - 1; }
  uint32_t home(MemberId id) const { return (id * 2654435769u) >> shift_; }
  uint32_t next(uint32_t at) const { return (at + 1) & mask(); }
  Slot* free_slot(MemberId id) {
    uint32_t at = home(id);
    while (slots_[at].id != kRoot) at = next(at);
    return &slots_[at];
  }

  std::vector<Slot> slots_;  // a power of two of them, at least a quarter free
  unsigned shift_ = 31;      // leaves the bits of a position of a hash
  uint32_t size_ = 0;
};

}  // namespace standin
