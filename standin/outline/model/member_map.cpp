// Numbers by member, dense or sparse.
#include "standin/outline/model/member_map.h"

#include <algorithm>
#include <utility>

namespace standin {

namespace {
// An array takes 4 bytes for each member up to the last with a number, a table 10 to 21 for each
// that has one. Between the two limits it stays what it is.
constexpr uint64_t kDenseFrom = 4;    // members to one with a number, at most
constexpr uint32_t kOneChunk = 1024;  // members, for which an array takes memory at once
constexpr uint64_t kSparseFrom = 16;  // more
}  // namespace

void MemberMap::make_room(MemberId id) {
  const uint32_t size = std::max(highest_, id) + 1;
  const uint64_t count = uint64_t{count_} + 1;
  if (dense_.size() != 0) {
    if (id < dense_.size()) return;
    if (count * kSparseFrom >= size) return dense_.grow_to(size);
    become_sparse();
  }
  if (!sparse_.full() || sparse_.find(id) != nullptr) return;
  if (count * kDenseFrom >= std::max(size, kOneChunk)) return become_dense(size);
  sparse_.make_room(1);
}

void MemberMap::set(MemberId id, uint32_t number) {
  const uint32_t before = at(id);
  if (before == 0 && number == 0) return;
  if (before == 0) make_room(id);
  count_ += (before == 0 ? 1 : 0);
  count_ -= (number == 0 ? 1 : 0);
  highest_ = std::max(highest_, id);
  if (dense_.size() != 0) {
    dense_[id] = number;
  } else if (number == 0) {
    sparse_.erase(id);
  } else if (before != 0) {
    *sparse_.find(id) = number;
  } else {
    sparse_.insert(id, number);
  }
}

void MemberMap::become_dense(uint32_t size) {
  Chunks<uint32_t> dense;
  dense.grow_to(size);
  sparse_.visit([&](MemberId id, uint32_t number) { dense[id] = number; });
  dense_ = std::move(dense);
  sparse_ = {};
}

void MemberMap::become_sparse() {
  SparseMap<uint32_t> sparse;
  sparse.make_room(count_ + 1);
  visit([&](MemberId id, uint32_t number) { sparse.insert(id, number); });
  sparse_ = std::move(sparse);
  dense_ = {};
}

}  // namespace standin
