// Sets of codes and flags by their values.
#include "standin/outline/model/property_sets.h"

#include <cstring>

#include "standin/outline/model/text.h"

namespace standin {

namespace {

// The codes as bytes; there are none between them.
static_assert(std::has_unique_object_representations_v<MemberProperties>);

std::string_view bytes_of(const MemberProperties& properties) {
  return {reinterpret_cast<const char*>(&properties), sizeof properties};
}

}  // namespace

PropertySets::PropertySets() : buckets_(16) {
  sets_.add();
}

size_t PropertySets::bucket(const MemberProperties& properties) const {
  return hash_text(bytes_of(properties), true) & (buckets_.size() - 1);
}

uint32_t PropertySets::use(const MemberProperties& properties) {
  const auto same = [&](uint32_t set) { return bytes_of(at(set)) == bytes_of(properties); };
  if (same(0)) return 0;
  uint32_t set = last_;
  if (set == 0 || !same(set)) {
    set = buckets_[bucket(properties)];
    while (set != 0 && !same(set)) set = sets_[set].next;
  }
  if (set == 0) {
    if (count_ == buckets_.size()) grow_buckets();
    set = free_ != 0 ? free_ : sets_.add();
    if (set == free_) free_ = sets_[set].next;
    uint32_t& first = buckets_[bucket(properties)];
    sets_[set] = {properties, 0, first};
    first = set;
    ++count_;
  }
  ++sets_[set].uses;
  last_ = set;
  return set;
}

void PropertySets::release(uint32_t set) {
  if (set == 0 || --sets_[set].uses != 0) return;
  uint32_t* link = &buckets_[bucket(at(set))];
  while (*link != set) link = &sets_[*link].next;
  *link = sets_[set].next;
  sets_[set].next = free_;
  free_ = set;
  if (last_ == set) last_ = 0;
  --count_;
}

void PropertySets::grow_buckets() {
  std::vector<uint32_t> old(2 * buckets_.size());
  old.swap(buckets_);
  for (uint32_t first : old) {
    while (first != 0) {
      const uint32_t next = sets_[first].next;
      uint32_t& to = buckets_[bucket(at(first))];
      sets_[first].next = to;
      to = first;
      first = next;
    }
  }
}

}  // namespace standin
